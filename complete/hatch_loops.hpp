// The outlines of HATCH as points, where they run.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// The keys of the plain form: `solid` and `loops`. Bulged edges run along the arc to
// the next vertex; splines are sampled along the curve, 4 points for each control point
// and at least 20, where the plain form takes their fit or control points.
void AppendHatchLoops(JsonOut& out, const Dwg_Entity_HATCH& hatch);

// `world` with `loops`, flat lists of x, y, z; only for a hatch whose system is not the
// world's.
void AppendHatchWorld(JsonOut& out, const Dwg_Entity_HATCH& hatch);
