// Paths as straight segments, for distances and areas.
//
// Reads a path's elements only, none of what Qt's paths keep for themselves, and
// costs what its elements cost.
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QTransform>

#include <functional>
#include <optional>

namespace preview {

using SegmentVisitor = std::function<void(QPointF, QPointF)>;

// The segments of a mapped path. Curves are cut so that no piece is further than
// `tolerance` from them, into 256 pieces at most. With `closed` each figure gets
// the segment that closes it.
void VisitSegments(const QPainterPath& path, const QTransform& place, double tolerance, bool closed,
                   const SegmentVisitor& visit);

double DistanceToSegment(QPointF point, QPointF a, QPointF b);

// Where two segments cross; nothing for parallel ones.
std::optional<QPointF> CrossingOf(QPointF a, QPointF b, QPointF c, QPointF d);

struct PathProbe {
  // To the nearest segment; infinite for a path without any.
  double distance = 0;
  // By the path's own rule, its figures closed.
  bool isInside = false;
};
PathProbe ProbePath(const QPainterPath& path, const QTransform& place, QPointF point,
                    double tolerance);

}  // namespace preview
