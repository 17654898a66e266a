// Lengths, angles and areas in drawing units.
#pragma once

#include <QPointF>

#include <optional>
#include <span>

#include "scene/scene.hpp"

namespace preview {

struct Leg {
  double length = 0;
  // Of the way from the first point to the second, in degrees from 0 to 360,
  // counter-clockwise from the X axis.
  double direction = 0;
  double dx = 0;
  double dy = 0;
};
Leg MeasureLeg(QPointF from, QPointF to);

// Between the ways from the corner to the two points, in degrees from 0 to 180.
double AngleAt(QPointF corner, QPointF a, QPointF b);

double LengthOf(std::span<const QPointF> points);

// Of the polygon; its last point is joined to its first.
double AreaOf(std::span<const QPointF> points);

struct Measured {
  double length = 0;
  // Of an open line as if it were closed.
  double area = 0;
  bool isClosed = false;
};

// Of a polyline, circle, arc, line, ellipse, spline or the edge of a filled area, as it
// stands on its sheet. Polylines with arcs and circles are exact where no reference
// distorts them; other curves are within a millionth of their size. Nothing for texts
// and pictures.
std::optional<Measured> MeasureItem(const Scene& scene, const Item& item);

}  // namespace preview
