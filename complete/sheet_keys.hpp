// The further keys of a sheet.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// How the sheet is plotted, and its system of coordinates; docs name the group codes.
void AppendSheetKeys(JsonOut& out, const Dwg_Object_LAYOUT& layout, const CompleteContext& context);
