// The data that applications attach to objects (groups 1000 to 1071).
#pragma once

#include <dwg.h>

#include <cstddef>
#include <span>
#include <string>

#include "complete/complete_context.hpp"

// Those of one application, in order; none when it attached nothing.
std::span<const Dwg_Eed> ExtendedDataOf(const Dwg_Object& object, Handle application);

// The text of an item; empty for one that is none.
std::string ExtendedText(const Dwg_Eed& item, const CompleteContext& context);
