// Paths of curves, in drawing units with Y up. Angles are radians,
// counter-clockwise.
#pragma once

#include <QPainterPath>
#include <QPointF>

#include <optional>
#include <span>
#include <vector>

#include "scene/scene.hpp"

namespace preview {

// A path of straight segments; closed when asked.
QPainterPath StraightPath(std::span<const QPointF> points, bool closed);

// The arc of a circle, counter-clockwise from `start` to `end`; a whole circle
// when both are the same direction.
QPainterPath ArcPath(QPointF center, double radius, double start, double end);

// The same as it is drawn, and the box around what a transform makes of it.
Round RoundOf(QPointF center, double radius, double start, double end);
QPainterPath RoundPath(const Round& round);
QRectF BoundsOfRound(const Round& round, const QTransform& place);

struct EllipseShape {
  QPointF center;
  double majorLength = 0;
  double majorAngle = 0;
  double ratio = 1;
};
// `start` and `end` are parameters of the ellipse, not directions.
QPainterPath EllipsePath(const EllipseShape& ellipse, double start, double end);

// Points joined by segments; `bulges` has one number a point, the tangent of a
// quarter of the arc's angle from that point to the next, positive
// counter-clockwise. Missing bulges count as 0.
QPainterPath BulgedPath(std::span<const QPointF> points, std::span<const double> bulges,
                        bool closed);

struct EndTangents {
  std::optional<QPointF> begin;
  std::optional<QPointF> end;
};
// A curve with continuous curvature through the points: clamped to the tangents
// where they are given, natural ends otherwise, periodic when closed.
QPainterPath InterpolatedPath(std::span<const QPointF> points, bool closed,
                              const EndTangents& tangents);

// The same through many points of a curve that may have corners: the curve is
// interrupted where it turns by more than 40 degrees from one point to the next.
QPainterPath SmoothedPath(std::span<const QPointF> points);

// A filled triangle with its tip at `tip` that points along `direction` (any
// length but 0).
QPainterPath ArrowPath(QPointF tip, QPointF direction, double size);

}  // namespace preview
