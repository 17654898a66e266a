// Records of types that only drawings before release 13 have.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"

// As a LINE, with `startZ` and `endZ`.
void AppendSpatialLine(JsonOut& out, const Dwg_Entity__3DLINE& line);

// What stands between REPEAT and ENDREP is drawn in rows and columns. The ENDREP has
// their numbers and distances.
void AppendRepeatStart(JsonOut& out, const Dwg_Entity_REPEAT& repeat);
void AppendRepeatEnd(JsonOut& out, const Dwg_Entity_ENDREP& repeat);
