#include "scene/hatch.hpp"

#include <QJsonArray>
#include <QLinearGradient>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

#include "model/record.hpp"
#include "scene/curves.hpp"
#include "scene/plane.hpp"
#include "scene/spline.hpp"
#include "scene/vectors.hpp"

namespace preview {
namespace {

// Of one hatch: lines of its pattern, and pieces of them.
constexpr double kMostLines = 4000;
constexpr int kMostPieces = 20000;

enum IslandStyle { kEverySecond, kOutermostOnly, kWhole };
enum PathFlag { kExternal = 1, kOutermost = 16 };

QPainterPath ArcOf(const QJsonObject& edge, QPointF major, double ratio) {
  const bool ccw = edge["ccw"].toBool(true);
  const double sign = ccw ? 1 : -1;
  double start = sign * NumberOf(edge, "startAngleRad");
  double end = sign * NumberOf(edge, "endAngleRad");
  const QPainterPath path = EllipsePath({.center = PointFromAbove(edge["center"]),
                                         .majorLength = Length(major),
                                         .majorAngle = std::atan2(major.y(), major.x()),
                                         .ratio = ratio},
                                        ccw ? start : end, ccw ? end : start);
  return ccw ? path : path.toReversed();
}

QPainterPath SplineEdge(const QJsonObject& edge) {
  const QPainterPath path = SplinePath(SplineOf(edge));
  return path.isEmpty() ? StraightPath(PointsFromAbove(edge["fitPoints"]), false) : path;
}

QPainterPath PathOfEdge(const QJsonObject& edge) {
  const QString type = edge["type"].toString();
  if (type == QLatin1String("arc")) {
    return ArcOf(edge, {NumberOf(edge, "radius"), 0}, 1);
  }
  if (type == QLatin1String("ellipse")) {
    return ArcOf(edge, PointFromAbove(edge["majorAxis"]), NumberOf(edge, "axisRatio"));
  }
  if (type == QLatin1String("spline")) {
    return SplineEdge(edge);
  }
  const QPointF ends[] = {PointFromAbove(edge["start"]), PointFromAbove(edge["end"])};
  return StraightPath(ends, false);
}

// Joins edges to loops: an edge goes on where the loop is still open, the other way
// round when only its end lies there; gaps are closed by straight lines.
class LoopJoiner {
 public:
  void Add(const QPainterPath& edge) {
    const QRectF box = edge.boundingRect();
    const double slack = kSlack * Length(box.bottomRight() - box.topLeft());
    const QPointF start = edge.elementAt(0);
    const QPointF end = edge.currentPosition();
    const auto meets = [&](QPointF a, QPointF b) { return Length(a - b) <= slack; };
    if (edges_ == 1 && !meets(End(), start) && !meets(End(), end) &&
        (meets(Start(), start) || meets(Start(), end))) {
      loop_ = loop_.toReversed();
    }
    if (edges_ > 0 && meets(End(), Start()) && !meets(End(), start)) {
      Close();
    }
    const bool turns = edges_ > 0 && meets(End(), end) && !meets(End(), start);
    if (edges_ == 0) {
      loop_ = edge;
    } else {
      loop_.connectPath(turns ? edge.toReversed() : edge);
    }
    ++edges_;
  }

  QPainterPath Take() {
    Close();
    return all_;
  }

 private:
  // Of an edge's size.
  static constexpr double kSlack = 1e-3;

  QPointF Start() const { return loop_.elementAt(0); }
  QPointF End() const { return loop_.currentPosition(); }

  void Close() {
    if (edges_ > 0) {
      loop_.closeSubpath();
      all_.addPath(loop_);
    }
    edges_ = 0;
  }

  QPainterPath all_;
  QPainterPath loop_;
  int edges_ = 0;
};

QPainterPath PathOfEdges(const QJsonArray& edges) {
  LoopJoiner joiner;
  for (const auto& value : edges) {
    const QPainterPath edge = PathOfEdge(value.toObject());
    if (!edge.isEmpty()) {
      joiner.Add(edge);
    }
  }
  return joiner.Take();
}

QPainterPath PathOfBoundary(const QJsonObject& boundary) {
  if (boundary.contains("edges")) {
    return PathOfEdges(boundary["edges"].toArray());
  }
  return BulgedPath(PointsFromAbove(boundary["points"]), NumbersOf(boundary["bulges"]), true);
}

QPainterPath PathOfLoops(const QJsonArray& loops) {
  QPainterPath path;
  for (const auto& value : loops) {
    const std::vector<double> numbers = NumbersOf(value);
    std::vector<QPointF> points;
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
      points.emplace_back(numbers[i], numbers[i + 1]);
    }
    path.addPath(StraightPath(points, true));
  }
  return path;
}

bool IsFilled(const QJsonObject& boundary, int islandStyle, bool anyOutermost) {
  const int flags = boundary["flags"].toInt();
  switch (islandStyle) {
    case kOutermostOnly: return !anyOutermost || (flags & (kExternal | kOutermost)) != 0;
    case kWhole: return !anyOutermost || (flags & kExternal) != 0;
    default: return true;
  }
}

// The lines of one family within an area, found in coordinates whose x axis runs
// along the lines and in which line number n has y = n * distance.
class Family {
 public:
  Family(const QJsonObject& line, const QList<QPolygonF>& area)
      : angle_(NumberOf(line, "angle")), dashes_(NumbersOf(line["dashes"])) {
    const QPointF base = PointFromAbove(line["base"]);
    toWorld_.translate(base.x(), base.y());
    toWorld_.rotateRadians(angle_);
    const QPointF offset = PointFromAbove(line["offset"]);
    const QPointF along = DirectionOf(angle_);
    distance_ = Dot(offset, LeftOf(along));
    shift_ = Dot(offset, along);
    const QTransform toFamily = toWorld_.inverted();
    for (const QPolygonF& loop : area) {
      loops_.append(toFamily.map(loop));
    }
    for (const double dash : dashes_) {
      period_ += std::abs(dash);
    }
  }

  double Distance() const { return std::abs(distance_); }

  // False when there are too many.
  bool AddTo(QPainterPath& path, int& pieces) {
    QRectF box;
    for (const QPolygonF& loop : loops_) {
      box = box.isNull() ? loop.boundingRect() : Around(box, loop.boundingRect());
    }
    const double first = box.top() / distance_;
    const double last = box.bottom() / distance_;
    if (!(std::abs(last - first) < kMostLines) || !(std::abs(first) < 1e12)) {
      return false;
    }
    for (double n = std::ceil(std::min(first, last)); n <= std::max(first, last); ++n) {
      if (!AddLine(path, n, pieces)) {
        return false;
      }
    }
    return true;
  }

 private:
  bool AddLine(QPainterPath& path, double n, int& pieces) {
    // A line through a corner would count it twice or not at all.
    const double y = n * distance_ * (1 + 1e-12) + std::abs(distance_) * 1e-9;
    std::vector<double> crossings = CrossingsAt(y);
    std::sort(crossings.begin(), crossings.end());
    for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
      if (!AddInside(path, y, crossings[i], crossings[i + 1], n * shift_, pieces)) {
        return false;
      }
    }
    return true;
  }

  std::vector<double> CrossingsAt(double y) const {
    std::vector<double> crossings;
    for (const QPolygonF& loop : loops_) {
      for (qsizetype i = 0; i < loop.size(); ++i) {
        const QPointF a = loop[i];
        const QPointF b = loop[(i + 1) % loop.size()];
        if ((a.y() <= y) != (b.y() <= y)) {
          crossings.push_back(a.x() + (b.x() - a.x()) * (y - a.y()) / (b.y() - a.y()));
        }
      }
    }
    return crossings;
  }

  bool AddInside(QPainterPath& path, double y, double from, double to, double phase, int& pieces) {
    if (dashes_.empty() || !(period_ > 0)) {
      Add(path, y, from, to);
      return ++pieces <= kMostPieces;
    }
    if (!((to - from) / period_ * static_cast<double>(dashes_.size()) < kMostPieces)) {
      return false;
    }
    double at = phase + std::floor((from - phase) / period_) * period_;
    while (at < to) {
      for (const double dash : dashes_) {
        const double end = at + std::abs(dash);
        if (dash >= 0 && end >= from && at <= to) {
          Add(path, y, std::max(at, from), std::min(end, to));
          ++pieces;
        }
        at = end;
      }
      // A period too small for its place makes no way.
      if (++pieces > kMostPieces) {
        return false;
      }
    }
    return true;
  }

  void Add(QPainterPath& path, double y, double from, double to) const {
    path.moveTo(toWorld_.map(QPointF(from, y)));
    path.lineTo(toWorld_.map(QPointF(to, y)));
  }

  double angle_;
  std::vector<double> dashes_;
  QTransform toWorld_;
  double distance_ = 0;
  double shift_ = 0;
  double period_ = 0;
  QList<QPolygonF> loops_;
};

// Curves as straight pieces that are small for the area, whatever its size.
QList<QPolygonF> FlattenedLoops(const QPainterPath& area) {
  constexpr double kFineness = 5000;
  const QRectF box = area.boundingRect();
  const double size = std::max({box.width(), box.height(), 1e-12});
  QTransform larger;
  larger.scale(kFineness / size, kFineness / size);
  larger.translate(-box.left(), -box.top());
  QList<QPolygonF> loops;
  for (const QPolygonF& loop : area.toSubpathPolygons(larger)) {
    loops.append(larger.inverted().map(loop));
  }
  return loops;
}

QColor ColorOfStop(const QJsonObject& stop) {
  const QJsonObject color = stop["color"].toObject();
  return {std::clamp(color["r"].toInt(), 0, 255), std::clamp(color["g"].toInt(), 0, 255),
          std::clamp(color["b"].toInt(), 0, 255)};
}

// Colours from a gradient's middle outwards, or from one side to the other.
void SetStops(QGradient& gradient, const QColor& from, const QColor& to, bool thereAndBack) {
  gradient.setColorAt(0, from);
  gradient.setColorAt(1, thereAndBack ? from : to);
  if (thereAndBack) {
    gradient.setColorAt(0.5, to);
  }
}

}  // namespace

QPainterPath HatchPath(const QJsonObject& record) {
  const QJsonArray boundaries = record["boundary"].toArray();
  if (boundaries.isEmpty()) {
    return PathOfLoops(record["loops"].toArray());
  }
  const bool anyOutermost = std::any_of(
      boundaries.begin(), boundaries.end(),
      [](const auto& boundary) { return (boundary.toObject()["flags"].toInt() & kExternal) != 0; });
  QPainterPath path;
  for (const auto& value : boundaries) {
    if (IsFilled(value.toObject(), record["islandStyle"].toInt(), anyOutermost)) {
      path.addPath(PathOfBoundary(value.toObject()));
    }
  }
  return path;
}

std::optional<PatternLines> LinesOfPattern(const QPainterPath& area, const QJsonObject& pattern) {
  const QList<QPolygonF> loops = FlattenedLoops(area);
  PatternLines lines;
  int pieces = 0;
  for (const auto& value : pattern["lines"].toArray()) {
    Family family(value.toObject(), loops);
    if (!(family.Distance() > 0) || !family.AddTo(lines.path, pieces)) {
      return std::nullopt;
    }
    lines.spacing =
        lines.spacing > 0 ? std::min(lines.spacing, family.Distance()) : family.Distance();
  }
  return lines.spacing > 0 ? std::optional(lines) : std::nullopt;
}

std::shared_ptr<const QGradient> GradientOf(const QRectF& box, const QJsonObject& gradient) {
  const QJsonArray colors = gradient["colors"].toArray();
  if (colors.isEmpty()) {
    return nullptr;
  }
  QColor from = ColorOfStop(colors.first().toObject());
  QColor to = ColorOfStop(colors.last().toObject());
  if (gradient["oneColor"].toBool() && colors.size() < 2) {
    to = QColor::fromHslF(from.hslHueF(), from.hslSaturationF(),
                          static_cast<float>(std::clamp(NumberOf(gradient, "tint"), 0.0, 1.0)));
  }
  QString name = gradient["name"].toString().toUpper();
  if (name.startsWith(QLatin1String("INV"))) {
    std::swap(from, to);
  }
  const double half = Length(QPointF(box.width(), box.height())) / 2;
  if (name.contains(QLatin1String("SPHERICAL")) || name.contains(QLatin1String("CURVED"))) {
    auto radial = std::make_shared<QRadialGradient>(box.center(), std::max(half, 1e-9));
    SetStops(*radial, to, from, false);
    return radial;
  }
  const QPointF way = DirectionOf(NumberOf(gradient, "angle")) * half;
  auto linear = std::make_shared<QLinearGradient>(box.center() - way, box.center() + way);
  SetStops(*linear, from, to, name.contains(QLatin1String("CYLINDER")));
  return linear;
}

}  // namespace preview
