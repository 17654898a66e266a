// What the records of simple curves and of SOLID lack: heights, thickness, extrusion,
// and where they lie in the world.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"

// `startZ`, `endZ`, `thickness`, `extrusion`, each where it is not 0, or not the z axis.
// The points are in the world's system whatever the extrusion is.
void AppendLineFurtherKeys(JsonOut& out, const Dwg_Entity_LINE& line);

// `z`, `angleRad` (group 50: of the x axis that the point's mark has), `thickness`,
// `extrusion`. The point is in the world's system.
void AppendPointFurtherKeys(JsonOut& out, const Dwg_Entity_POINT& point);

// `z` and `dz`. The type is that of RAY and of XLINE.
void AppendRayFurtherKeys(JsonOut& out, const Dwg_Entity_RAY& ray);

// `elevation`, `thickness`, `extrusion`; `world` with `center`.
void AppendCircleFurtherKeys(JsonOut& out, const Dwg_Entity_CIRCLE& circle);
void AppendArcFurtherKeys(JsonOut& out, const Dwg_Entity_ARC& arc);

// `cz`, `smAxisZ`, `extrusion`. Centre and axis are in the world's system.
void AppendEllipseFurtherKeys(JsonOut& out, const Dwg_Entity_ELLIPSE& ellipse);

// `elevation`, `thickness`, `extrusion`; `world` with `pts`, as many and in the order
// that the plain keys have them.
void AppendSolidFurtherKeys(JsonOut& out, const Dwg_Entity_SOLID& solid);

// The same of a TRACE; `world` has `points`.
void AppendTraceFurtherKeys(JsonOut& out, const Dwg_Entity_TRACE& trace);
