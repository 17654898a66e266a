// Splines as their control points and knots say.
#pragma once

#include <QJsonObject>
#include <QPainterPath>
#include <QPointF>

#include <vector>

namespace preview {

struct Nurbs {
  int degree = 3;
  std::vector<double> knots;
  std::vector<QPointF> controlPoints;
  // One for each control point, or none.
  std::vector<double> weights;
};

// The curve; empty for numbers that make none: too few knots or points, knots that
// fall, a degree beyond 15. Exact up to degree 3 without weights; else each span
// between knots is drawn in pieces with the right ends and directions.
QPainterPath SplinePath(const Nurbs& spline);

// From the keys `degree`, `knots`, `controlPoints`, `weights`.
Nurbs SplineOf(const QJsonObject& record);

}  // namespace preview
