// What dimensions measure, computed from their points: for drawings that do not
// store it. Lengths in drawing units, angles in radians from 0 to a full turn.
#pragma once

#include <dwg.h>

double DistanceBetween(const BITCODE_3BD& from, const BITCODE_3BD& to);

// Along the dimension line's direction.
double MeasureOf(const Dwg_Entity_DIMENSION_LINEAR& dimension);
double MeasureOf(const Dwg_Entity_DIMENSION_ALIGNED& dimension);
double MeasureOf(const Dwg_Entity_DIMENSION_RADIUS& dimension);
double MeasureOf(const Dwg_Entity_DIMENSION_DIAMETER& dimension);
// Of the sector that the arc's point lies in.
double MeasureOf(const Dwg_Entity_DIMENSION_ANG2LN& dimension);
double MeasureOf(const Dwg_Entity_DIMENSION_ANG3PT& dimension);
// From the origin along one of the axes.
double MeasureOf(const Dwg_Entity_DIMENSION_ORDINATE& dimension);
double MeasureOf(const Dwg_Entity_ARC_DIMENSION& dimension);
double MeasureOf(const Dwg_Entity_LARGE_RADIAL_DIMENSION& dimension);

// Whether an ordinate dimension measures along the x axis (bit 64 of group 70).
bool MeasuresX(const Dwg_Entity_DIMENSION_ORDINATE& dimension);
