// Records of HATCH: boundaries flattened into point loops, so that a consumer
// only has to fill polygons. The pattern itself is not written.
//
// Arcs take one step for every started 10 degrees, at least 2 and at most 36,
// whatever their size. Splines are replaced by their fit or control points.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"

// Loops of fewer than three points are dropped; nothing without any loop.
// Gradients count as solid fills.
void AppendHatch(JsonOut& out, const Dwg_Entity_HATCH& hatch);
