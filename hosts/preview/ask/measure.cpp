#include "ask/measure.hpp"

#include <QJsonArray>

#include <cmath>
#include <numbers>
#include <vector>

#include "ask/segments.hpp"
#include "model/record.hpp"
#include "scene/vectors.hpp"

namespace preview {
namespace {

constexpr double kDegrees = 180 / std::numbers::pi;

double Cross(QPointF a, QPointF b) {
  return Dot(LeftOf(a), b);
}

// How much larger a place makes everything, or nothing when it distorts.
std::optional<double> ScaleOf(const QTransform& place) {
  const QPointF x(place.m11(), place.m12());
  const QPointF y(place.m21(), place.m22());
  const double scale = Length(x);
  const bool isSquare = std::abs(Dot(x, y)) <= 1e-9 * scale * scale;
  return isSquare && std::abs(Length(y) - scale) <= 1e-9 * scale ? std::optional(scale)
                                                                 : std::nullopt;
}

// In a plane that is seen from above or from below.
bool LiesFlat(const QJsonObject& record) {
  const QJsonArray extrusion = record["extrusion"].toArray();
  return extrusion.isEmpty() || (extrusion[0].toDouble() == 0 && extrusion[1].toDouble() == 0);
}

bool IsBulgedPolyline(const QJsonObject& record) {
  return IsType(record, "LWPOLYLINE") || IsType(record, "POLYLINE_2D");
}

// One segment, or the arc that its bulge makes of it: the segment of a circle between
// arc and chord comes on top of the polygon's area.
void AddBulged(Measured& outline, QPointF from, QPointF to, double bulge, bool isDrawn) {
  const double chord = Length(to - from);
  const double angle = 4 * std::atan(std::isfinite(bulge) ? bulge : 0);
  const bool isArc = std::abs(angle) > 1e-9 && isDrawn;
  const double radius = isArc ? chord / 2 / std::sin(std::abs(angle) / 2) : 0;
  if (isDrawn) {
    outline.length += isArc ? radius * std::abs(angle) : chord;
  }
  outline.area += Cross(from, to) / 2 + radius * radius * (angle - std::sin(angle)) / 2;
}

Measured MeasureBulged(const QJsonObject& record) {
  const QJsonArray points = record["points"].toArray();
  const QJsonArray bulges = record["bulges"].toArray();
  Measured outline{.length = 0, .area = 0, .isClosed = record["closed"].toBool()};
  const auto at = [&](qsizetype i) {
    const QJsonArray point = points[i % points.size()].toArray();
    const QJsonArray first = points[0].toArray();
    // From the first point, since far from the origin areas lose their digits.
    return QPointF(point[0].toDouble() - first[0].toDouble(),
                   point[1].toDouble() - first[1].toDouble());
  };
  for (qsizetype i = 0; i < points.size(); ++i) {
    const bool isDrawn = outline.isClosed || i + 1 < points.size();
    AddBulged(outline, at(i), at(i + 1), bulges[i].toDouble(), isDrawn);
  }
  return outline;
}

std::optional<Measured> MeasureRecord(const QJsonObject& record) {
  if (IsBulgedPolyline(record)) {
    return MeasureBulged(record);
  }
  if (IsType(record, "CIRCLE")) {
    const double radius = NumberOf(record, "radius");
    return Measured{2 * std::numbers::pi * radius, std::numbers::pi * radius * radius, true};
  }
  return std::nullopt;
}

Measured MeasurePath(const Item& item) {
  Measured outline;
  const double size = std::hypot(item.bounds.width(), item.bounds.height());
  bool hasStart = false;
  QPointF start;
  QPointF end;
  for (const Part& part : PartList(*item.shape)) {
    const bool isArea = part.fill != Fill::kNone;
    outline.isClosed = outline.isClosed || isArea;
    VisitSegments(part.path, *item.place, size * 1e-7, isArea, [&](QPointF a, QPointF b) {
      start = hasStart ? start : a;
      hasStart = true;
      end = b;
      outline.length += Length(b - a);
    });
    VisitSegments(part.path, *item.place, size * 1e-7, true,
                  [&](QPointF a, QPointF b) { outline.area += Cross(a - start, b - start) / 2; });
  }
  outline.isClosed = outline.isClosed || (hasStart && Length(end - start) <= 1e-9 * size);
  return outline;
}

}  // namespace

Leg MeasureLeg(QPointF from, QPointF to) {
  const QPointF way = to - from;
  double direction = std::atan2(way.y(), way.x()) * kDegrees;
  if (direction < 0) {
    direction += 360;
  }
  return {Length(way), direction, way.x(), way.y()};
}

double AngleAt(QPointF corner, QPointF a, QPointF b) {
  const QPointF first = a - corner;
  const QPointF second = b - corner;
  return std::abs(std::atan2(Cross(first, second), Dot(first, second))) * kDegrees;
}

double LengthOf(std::span<const QPointF> points) {
  double length = 0;
  for (std::size_t i = 1; i < points.size(); ++i) {
    length += Length(points[i] - points[i - 1]);
  }
  return length;
}

double AreaOf(std::span<const QPointF> points) {
  double area = 0;
  for (std::size_t i = 2; i < points.size(); ++i) {
    area += Cross(points[i - 1] - points[0], points[i] - points[0]) / 2;
  }
  return std::abs(area);
}

std::optional<Measured> MeasureItem(const Scene& scene, const Item& item) {
  if (!item.shape || item.shape->hasText || PartList(*item.shape).empty() ||
      item.shape->hasImage()) {
    return std::nullopt;
  }
  Measured outline;
  const std::optional<double> scale = ScaleOf(*item.place);
  std::optional<Measured> exact;
  if (item.record >= 0 && scale) {
    const QJsonObject& record = scene.records[static_cast<std::size_t>(item.record)];
    exact = LiesFlat(record) ? MeasureRecord(record) : std::nullopt;
  }
  if (exact) {
    outline = {exact->length * *scale, exact->area * *scale * *scale, exact->isClosed};
  } else {
    outline = MeasurePath(item);
  }
  outline.area = std::abs(outline.area);
  return outline;
}

}  // namespace preview
