// Records of SOLID.
#pragma once

#include <dwg.h>

#include <string>
#include <string_view>

// The corners in outline order (the format stores them in zig-zag order); the
// fourth is left out when it coincides with the third.
std::string SolidRecord(const Dwg_Entity_SOLID& solid, std::string_view layer);
