// Records of LINE, POINT, RAY, XLINE, CIRCLE, ARC and ELLIPSE.
//
// Coordinates and angles (radians) are written as stored: X and Y only, no
// object-coordinate-system transform, no normalisation, no validity check.
#pragma once

#include <dwg.h>

#include <string>
#include <string_view>

std::string LineRecord(const Dwg_Entity_LINE& line, std::string_view layer);
std::string PointRecord(const Dwg_Entity_POINT& point, std::string_view layer);
std::string RayRecord(const Dwg_Entity_RAY& ray, std::string_view layer);
std::string XlineRecord(const Dwg_Entity_XLINE& xline, std::string_view layer);
std::string CircleRecord(const Dwg_Entity_CIRCLE& circle, std::string_view layer);
std::string ArcRecord(const Dwg_Entity_ARC& arc, std::string_view layer);

// `semiMajor` is the three-dimensional length of the major axis, of which only
// the X and Y components are written; consumers take the length from it and
// the direction from them.
std::string EllipseRecord(const Dwg_Entity_ELLIPSE& ellipse, std::string_view layer);
