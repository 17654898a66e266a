// Records of three-dimensional faces and of traces.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"

// `points`: the four corners in the world's system (groups 10 to 13); `edges`: for
// each edge, from corner to corner in order, whether it is drawn (group 70).
void AppendFace(JsonOut& out, const Dwg_Entity__3DFACE& face);

// As a SOLID's: `points`, the corners in stored order, in the entity's own plane.
void AppendTrace(JsonOut& out, const Dwg_Entity_TRACE& trace);
