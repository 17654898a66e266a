// Records of SOLID.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"

// The corners in outline order (the format stores them in zig-zag order); the
// fourth is left out when it coincides with the third.
void AppendSolid(JsonOut& out, const Dwg_Entity_SOLID& solid);

// Whether the fourth corner coincides with the third.
bool IsTriangle(const Dwg_Entity_SOLID& solid);

// Calls `each` with those three or four corners, in outline order.
template <typename Each>
void ForEachSolidCorner(const Dwg_Entity_SOLID& solid, Each each) {
  each(solid.corner1);
  each(solid.corner2);
  if (!IsTriangle(solid)) {
    each(solid.corner4);
  }
  each(solid.corner3);
}
