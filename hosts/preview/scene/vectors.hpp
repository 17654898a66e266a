// Plane vectors and boxes, with Y up.
#pragma once

#include <QPointF>
#include <QRectF>

#include <algorithm>
#include <cmath>

namespace preview {

inline double Length(QPointF v) {
  return std::hypot(v.x(), v.y());
}

inline double Dot(QPointF a, QPointF b) {
  return a.x() * b.x() + a.y() * b.y();
}

// Turned by a quarter counter-clockwise.
inline QPointF LeftOf(QPointF v) {
  return {-v.y(), v.x()};
}

// Of length 1, in the direction of an angle in radians.
inline QPointF DirectionOf(double angle) {
  return {std::cos(angle), std::sin(angle)};
}

// The box around both, which also takes boxes without width or height.
inline QRectF Around(const QRectF& a, const QRectF& b) {
  return {QPointF(std::min(a.left(), b.left()), std::min(a.top(), b.top())),
          QPointF(std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom()))};
}

// What both boxes have, likewise; a box without size where they lie apart.
inline QRectF Within(const QRectF& a, const QRectF& b) {
  const double left = std::max(a.left(), b.left());
  const double top = std::max(a.top(), b.top());
  return {QPointF(left, top), QPointF(std::max(left, std::min(a.right(), b.right())),
                                      std::max(top, std::min(a.bottom(), b.bottom())))};
}

}  // namespace preview
