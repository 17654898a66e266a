// Records of LINE, POINT, RAY, XLINE, CIRCLE, ARC and ELLIPSE.
//
// Coordinates and angles (radians) are written as stored: X and Y only, no
// object-coordinate-system transform, no normalisation, no validity check.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"

void AppendLine(JsonOut& out, const Dwg_Entity_LINE& line);
void AppendPoint(JsonOut& out, const Dwg_Entity_POINT& point);
void AppendRay(JsonOut& out, const Dwg_Entity_RAY& ray);
void AppendXline(JsonOut& out, const Dwg_Entity_XLINE& xline);
void AppendCircle(JsonOut& out, const Dwg_Entity_CIRCLE& circle);
void AppendArc(JsonOut& out, const Dwg_Entity_ARC& arc);

// `semiMajor` is the three-dimensional length of the major axis, of which only
// the X and Y components are written; consumers take the length from it and
// the direction from them.
void AppendEllipse(JsonOut& out, const Dwg_Entity_ELLIPSE& ellipse);
