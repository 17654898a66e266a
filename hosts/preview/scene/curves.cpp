#include "scene/curves.hpp"

#include <QLineF>
#include <QPolygonF>
#include <QTransform>

#include <cmath>
#include <numbers>

#include "scene/vectors.hpp"

namespace preview {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

// The angle from start to end counter-clockwise, in (0, one turn]. Drawings
// write whole turns with as few as eight digits.
double SweepOf(double start, double end) {
  const double sweep = std::fmod(end - start, kTurn);
  if (std::abs(end - start) > 1 && (std::abs(sweep) < 1e-6 || std::abs(sweep) > kTurn - 1e-6)) {
    return kTurn;
  }
  return sweep > 0 ? sweep : sweep + kTurn;
}

// A Bézier curve for at most a quarter of the unit circle, mapped.
void AppendUnitArc(QPainterPath& path, const QTransform& place, double from, double to) {
  const double handle = 4.0 / 3.0 * std::tan((to - from) / 4);
  const QPointF a = DirectionOf(from);
  const QPointF b = DirectionOf(to);
  const QPointF control1 = a + handle * LeftOf(a);
  const QPointF control2 = b - handle * LeftOf(b);
  path.cubicTo(place.map(control1), place.map(control2), place.map(b));
}

// Goes on from the path's position, which is the arc's start.
void AppendArc(QPainterPath& path, const QTransform& place, double start, double sweep) {
  const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / (kTurn / 4) - 1e-9)));
  for (int i = 0; i < pieces; ++i) {
    AppendUnitArc(path, place, start + sweep * i / pieces, start + sweep * (i + 1) / pieces);
  }
}

QPainterPath MappedArc(const QTransform& place, double start, double sweep) {
  QPainterPath path(place.map(DirectionOf(start)));
  AppendArc(path, place, start, sweep);
  if (sweep >= kTurn) {
    path.closeSubpath();
  }
  return path;
}

void AppendBulge(QPainterPath& path, QPointF from, QPointF to, double bulge) {
  const QPointF chord = to - from;
  const double length = Length(chord);
  if (std::abs(bulge) < 1e-9 || length < 1e-12 || !std::isfinite(bulge)) {
    path.lineTo(to);
    return;
  }
  const double sweep = 4 * std::atan(bulge);
  const double radius = length / 2 / std::sin(sweep / 2);
  // From the chord's middle to the left, by the distance to the centre.
  const double offset = radius * std::cos(sweep / 2);
  const QPointF left = LeftOf(chord) / length;
  const QPointF center = (from + to) / 2 + left * offset;
  const QPointF spoke = from - center;
  const QTransform place(std::abs(radius), 0, 0, std::abs(radius), center.x(), center.y());
  AppendArc(path, place, std::atan2(spoke.y(), spoke.x()), sweep);
}

std::vector<QPointF> WithoutRepeats(std::span<const QPointF> points) {
  std::vector<QPointF> kept;
  for (const QPointF& point : points) {
    if (kept.empty() || Length(point - kept.back()) > 1e-12) {
      kept.push_back(point);
    }
  }
  return kept;
}

// A row of the tridiagonal system for the derivatives at the points.
struct Row {
  double below = 0;
  double diagonal = 1;
  double above = 0;
  QPointF right;
};

std::vector<QPointF> SolveTridiagonal(std::vector<Row> rows) {
  const std::size_t n = rows.size();
  for (std::size_t i = 1; i < n; ++i) {
    const double factor = rows[i].below / rows[i - 1].diagonal;
    rows[i].diagonal -= factor * rows[i - 1].above;
    rows[i].right -= factor * rows[i - 1].right;
  }
  std::vector<QPointF> solution(n);
  for (std::size_t i = n; i-- > 0;) {
    const QPointF next = i + 1 < n ? rows[i].above * solution[i + 1] : QPointF();
    solution[i] = (rows[i].right - next) / rows[i].diagonal;
  }
  return solution;
}

// Parameter steps: the chords.
std::vector<double> Steps(const std::vector<QPointF>& points) {
  std::vector<double> steps;
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    steps.push_back(Length(points[i + 1] - points[i]));
  }
  return steps;
}

QPointF UnitOf(QPointF v) {
  return v / std::max(Length(v), 1e-300);
}

Row EndRow(const std::optional<QPointF>& tangent, QPointF chord, double step, bool first) {
  if (tangent) {
    return {.right = UnitOf(*tangent)};
  }
  Row row{.diagonal = 2, .right = 3 * chord / step};
  (first ? row.above : row.below) = 1;
  return row;
}

Row InnerRow(const std::vector<QPointF>& p, const std::vector<double>& h, std::size_t i) {
  return {
      .below = h[i],
      .diagonal = 2 * (h[i - 1] + h[i]),
      .above = h[i - 1],
      .right = 3 * ((p[i] - p[i - 1]) * (h[i] / h[i - 1]) + (p[i + 1] - p[i]) * (h[i - 1] / h[i]))};
}

std::vector<QPointF> Derivatives(const std::vector<QPointF>& p, const std::vector<double>& h,
                                 const EndTangents& tangents) {
  std::vector<Row> rows;
  rows.push_back(EndRow(tangents.begin, p[1] - p[0], h[0], true));
  for (std::size_t i = 1; i + 1 < p.size(); ++i) {
    rows.push_back(InnerRow(p, h, i));
  }
  rows.push_back(EndRow(tangents.end, p.back() - p[p.size() - 2], h.back(), false));
  return SolveTridiagonal(std::move(rows));
}

QPainterPath HermitePath(const std::vector<QPointF>& p, const std::vector<double>& h,
                         const std::vector<QPointF>& derivatives, std::size_t from,
                         std::size_t to) {
  QPainterPath path(p[from]);
  for (std::size_t i = from; i < to; ++i) {
    path.cubicTo(p[i] + derivatives[i] * h[i] / 3, p[i + 1] - derivatives[i + 1] * h[i] / 3,
                 p[i + 1]);
  }
  return path;
}

bool IsCorner(QPointF before, QPointF at, QPointF after) {
  const QPointF in = UnitOf(at - before);
  const QPointF out = UnitOf(after - at);
  return Dot(in, out) < std::cos(40 * kTurn / 360);
}

// The points three times around: in the middle turn the ends have no influence
// that could be seen, which spares a solver for periodic systems.
QPainterPath PeriodicPath(std::vector<QPointF> ring) {
  if (Length(ring.front() - ring.back()) < 1e-9) {
    ring.pop_back();
  }
  std::vector<QPointF> around;
  for (int turn = 0; turn < 3; ++turn) {
    around.insert(around.end(), ring.begin(), ring.end());
  }
  around.push_back(ring.front());
  const std::vector<double> steps = Steps(around);
  QPainterPath path =
      HermitePath(around, steps, Derivatives(around, steps, {}), ring.size(), 2 * ring.size());
  path.closeSubpath();
  return path;
}

}  // namespace

QPainterPath StraightPath(std::span<const QPointF> points, bool closed) {
  QPainterPath path;
  for (std::size_t i = 0; i < points.size(); ++i) {
    i == 0 ? path.moveTo(points[i]) : path.lineTo(points[i]);
  }
  if (closed && points.size() > 1) {
    path.closeSubpath();
  }
  return path;
}

QPainterPath ArcPath(QPointF center, double radius, double start, double end) {
  return RoundPath(RoundOf(center, radius, start, end));
}

Round RoundOf(QPointF center, double radius, double start, double end) {
  return {center, radius, start, SweepOf(start, end)};
}

QPainterPath RoundPath(const Round& round) {
  return MappedArc(QTransform(round.radius, 0, 0, round.radius, round.center.x(), round.center.y()),
                   round.start, round.sweep);
}

// A transform makes an ellipse of a circle, which turns where its two axes say.
QRectF BoundsOfRound(const Round& round, const QTransform& place) {
  const QPointF center = place.map(round.center);
  const QPointF a = QPointF(place.m11(), place.m12()) * round.radius;
  const QPointF b = QPointF(place.m21(), place.m22()) * round.radius;
  const auto at = [&](double angle) { return center + a * std::cos(angle) + b * std::sin(angle); };
  const auto point = [](QPointF p) { return QRectF(p, QSizeF(0, 0)); };
  QRectF box = Around(point(at(round.start)), point(at(round.start + round.sweep)));
  const double turns[] = {std::atan2(b.x(), a.x()), std::atan2(b.y(), a.y())};
  for (const double turn : turns) {
    for (const double angle : {turn, turn + kTurn / 2}) {
      const double along = std::fmod(std::fmod(angle - round.start, kTurn) + kTurn, kTurn);
      if (along <= round.sweep) {
        box = Around(box, point(at(angle)));
      }
    }
  }
  return box;
}

QPainterPath EllipsePath(const EllipseShape& ellipse, double start, double end) {
  const QPointF major = DirectionOf(ellipse.majorAngle) * ellipse.majorLength;
  const QPointF minor = LeftOf(major) * ellipse.ratio;
  const QTransform place(major.x(), major.y(), minor.x(), minor.y(), ellipse.center.x(),
                         ellipse.center.y());
  return MappedArc(place, start, SweepOf(start, end));
}

QPainterPath BulgedPath(std::span<const QPointF> points, std::span<const double> bulges,
                        bool closed) {
  QPainterPath path;
  if (points.empty()) {
    return path;
  }
  path.moveTo(points[0]);
  const std::size_t segments = closed ? points.size() : points.size() - 1;
  for (std::size_t i = 0; i < segments; ++i) {
    AppendBulge(path, points[i], points[(i + 1) % points.size()],
                i < bulges.size() ? bulges[i] : 0);
  }
  if (closed) {
    path.closeSubpath();
  }
  return path;
}

QPainterPath InterpolatedPath(std::span<const QPointF> points, bool closed,
                              const EndTangents& tangents) {
  const std::vector<QPointF> kept = WithoutRepeats(points);
  if (kept.size() < 2) {
    return StraightPath(kept, false);
  }
  if (closed && kept.size() > 3) {
    return PeriodicPath(kept);
  }
  const std::vector<double> steps = Steps(kept);
  return HermitePath(kept, steps, Derivatives(kept, steps, tangents), 0, kept.size() - 1);
}

QPainterPath SmoothedPath(std::span<const QPointF> points) {
  const std::vector<QPointF> kept = WithoutRepeats(points);
  QPainterPath path;
  std::size_t from = 0;
  for (std::size_t i = 1; i < kept.size(); ++i) {
    if (i + 1 == kept.size() || IsCorner(kept[i - 1], kept[i], kept[i + 1])) {
      const auto piece = std::span(kept).subspan(from, i - from + 1);
      path.connectPath(InterpolatedPath(piece, false, {}));
      from = i;
    }
  }
  return path;
}

QPainterPath ArrowPath(QPointF tip, QPointF direction, double size) {
  const QPointF along = UnitOf(direction) * size;
  const QPointF across = LeftOf(along) / 6;
  const QPointF corners[] = {tip, tip - along + across, tip - along - across};
  return StraightPath(corners, true);
}

}  // namespace preview
