// Records of HELIX: a SPLINE's keys, and how the helix was made.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// The stored graphics stand in for a spline that the library's DXF reader leaves out.
void AppendHelix(JsonOut& out, const Dwg_Entity_HELIX& helix, const CompleteContext& context,
                 const EntityOrigin& origin);

// What a SPLINE has besides, its axis (base point and vector), start, radius, turns and
// height of a turn, in the world's system.
void AppendHelixFurtherKeys(JsonOut& out, const Dwg_Entity_HELIX& helix);
