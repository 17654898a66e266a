// Records of LINE, POINT, RAY, XLINE, CIRCLE, ARC and ELLIPSE.
//
// Coordinates and angles (radians) are written as stored: X and Y only, no
// object-coordinate-system transform, no normalisation, no validity check.
#pragma once

#include <dwg.h>

#include <string_view>

#include "encode/json_out.hpp"

void AppendLineRecord(JsonOut& out, const Dwg_Entity_LINE& line, std::string_view layer);
void AppendPointRecord(JsonOut& out, const Dwg_Entity_POINT& point, std::string_view layer);
void AppendRayRecord(JsonOut& out, const Dwg_Entity_RAY& ray, std::string_view layer);
void AppendXlineRecord(JsonOut& out, const Dwg_Entity_XLINE& xline, std::string_view layer);
void AppendCircleRecord(JsonOut& out, const Dwg_Entity_CIRCLE& circle, std::string_view layer);
void AppendArcRecord(JsonOut& out, const Dwg_Entity_ARC& arc, std::string_view layer);

// `semiMajor` is the three-dimensional length of the major axis, of which only
// the X and Y components are written; consumers take the length from it and
// the direction from them.
void AppendEllipseRecord(JsonOut& out, const Dwg_Entity_ELLIPSE& ellipse, std::string_view layer);
