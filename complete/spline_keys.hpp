// What the records of SPLINE lack: the curve itself.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"

// `degree` (group 71), `periodic` when it is, `knots` (40), `weights` (41) when they
// are not all 1, `controlPoints` (10), `fitPoints` (11), `startTangent` and `endTangent`
// (12, 13) when they have a length. Points and tangents are `[x,y,z]` in the world.
// Lists that are empty are left out.
void AppendSplineFurtherKeys(JsonOut& out, const Dwg_Entity_SPLINE& spline);
