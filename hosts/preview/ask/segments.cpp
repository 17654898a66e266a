#include "ask/segments.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

#include "scene/vectors.hpp"

namespace preview {
namespace {

constexpr int kMostPieces = 256;

struct Cubic {
  QPointF a;
  QPointF b;
  QPointF c;
  QPointF d;

  QPointF At(double t) const {
    const double s = 1 - t;
    return s * s * s * a + 3 * s * s * t * b + 3 * s * t * t * c + t * t * t * d;
  }
};

// Wang's bound of how far pieces of equal parameter are from the curve.
int PiecesOf(const Cubic& curve, double tolerance) {
  const double bend =
      std::max(Length(curve.a - 2 * curve.b + curve.c), Length(curve.b - 2 * curve.c + curve.d));
  const double pieces = std::ceil(std::sqrt(0.75 * bend / std::max(tolerance, 1e-12)));
  return pieces < kMostPieces ? std::max(1, static_cast<int>(pieces)) : kMostPieces;
}

class Walk {
 public:
  Walk(double tolerance, bool closed, const SegmentVisitor& visit)
      : tolerance_(tolerance), closed_(closed), visit_(visit) {}

  void MoveTo(QPointF point) {
    Close();
    start_ = at_ = point;
  }

  void LineTo(QPointF point) {
    visit_(at_, point);
    at_ = point;
  }

  void CurveTo(QPointF b, QPointF c, QPointF d) {
    const Cubic curve{at_, b, c, d};
    const int pieces = PiecesOf(curve, tolerance_);
    for (int i = 1; i < pieces; ++i) {
      LineTo(curve.At(static_cast<double>(i) / pieces));
    }
    LineTo(d);
  }

  void Close() {
    if (closed_ && at_ != start_) {
      LineTo(start_);
    }
  }

 private:
  double tolerance_;
  bool closed_;
  const SegmentVisitor& visit_;
  QPointF start_;
  QPointF at_;
};

// How often the segment passes the point on its right: 1 up, -1 down, 0.
int PassOf(QPointF point, QPointF a, QPointF b) {
  if ((a.y() > point.y()) == (b.y() > point.y())) {
    return 0;
  }
  const double x = a.x() + (point.y() - a.y()) / (b.y() - a.y()) * (b.x() - a.x());
  if (!(x > point.x())) {
    return 0;
  }
  return b.y() > a.y() ? 1 : -1;
}

}  // namespace

void VisitSegments(const QPainterPath& path, const QTransform& place, double tolerance, bool closed,
                   const SegmentVisitor& visit) {
  Walk walk(tolerance, closed, visit);
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPainterPath::Element element = path.elementAt(i);
    const QPointF point = place.map(QPointF(element));
    if (element.isMoveTo()) {
      walk.MoveTo(point);
    } else if (element.isLineTo()) {
      walk.LineTo(point);
    } else if (element.isCurveTo() && i + 2 < path.elementCount()) {
      walk.CurveTo(point, place.map(QPointF(path.elementAt(i + 1))),
                   place.map(QPointF(path.elementAt(i + 2))));
      i += 2;
    }
  }
  walk.Close();
}

double DistanceToSegment(QPointF point, QPointF a, QPointF b) {
  const QPointF way = b - a;
  const double square = Dot(way, way);
  const double share = square > 0 ? std::clamp(Dot(point - a, way) / square, 0.0, 1.0) : 0;
  return Length(point - (a + way * share));
}

std::optional<QPointF> CrossingOf(QPointF a, QPointF b, QPointF c, QPointF d) {
  const QPointF first = b - a;
  const QPointF second = d - c;
  const double cross = Dot(LeftOf(first), second);
  if (std::abs(cross) <= 1e-12 * Length(first) * Length(second)) {
    return std::nullopt;
  }
  const double alongFirst = Dot(LeftOf(c - a), second) / cross;
  const double alongSecond = Dot(LeftOf(c - a), first) / cross;
  const auto lies = [](double share) { return share >= -1e-9 && share <= 1 + 1e-9; };
  return lies(alongFirst) && lies(alongSecond) ? std::optional(a + first * alongFirst)
                                               : std::nullopt;
}

PathProbe ProbePath(const QPainterPath& path, const QTransform& place, QPointF point,
                    double tolerance) {
  PathProbe probe{std::numeric_limits<double>::infinity(), false};
  int passes = 0;
  int windings = 0;
  VisitSegments(path, place, tolerance, true, [&](QPointF a, QPointF b) {
    const int pass = PassOf(point, a, b);
    passes += std::abs(pass);
    windings += pass;
  });
  VisitSegments(path, place, tolerance, false, [&](QPointF a, QPointF b) {
    probe.distance = std::min(probe.distance, DistanceToSegment(point, a, b));
  });
  probe.isInside = path.fillRule() == Qt::WindingFill ? windings != 0 : passes % 2 != 0;
  return probe;
}

}  // namespace preview
