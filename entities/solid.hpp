// Records of SOLID.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"

// The corners in outline order (the format stores them in zig-zag order); the
// fourth is left out when it coincides with the third.
void AppendSolid(JsonOut& out, const Dwg_Entity_SOLID& solid);
