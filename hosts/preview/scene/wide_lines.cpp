#include "scene/wide_lines.hpp"

#include <algorithm>
#include <cmath>

#include "scene/curves.hpp"
#include "scene/vectors.hpp"

namespace preview {
namespace {

// An arc becomes straight pieces of about five degrees, so many at most.
constexpr double kPieceTurn = 0.09;
constexpr int kMostPieces = 72;

// A straight piece of a segment: its ends and half of the widths there.
struct Piece {
  QPointF from, to;
  double halfFrom = 0, halfTo = 0;
};

QPointF UnitOf(const Piece& piece) {
  const QPointF way = piece.to - piece.from;
  return way / Length(way);
}

// Points along a segment, both ends included.
std::vector<QPointF> PointsAlong(QPointF from, QPointF to, double bulge) {
  if (bulge == 0 || !std::isfinite(bulge)) {
    return {from, to};
  }
  const double turn = 4 * std::atan(bulge);
  const int pieces =
      std::clamp(static_cast<int>(std::ceil(std::abs(turn) / kPieceTurn)), 1, kMostPieces);
  const QPointF chord = to - from;
  const QPointF center = (from + to) / 2 + LeftOf(chord) * ((1 - bulge * bulge) / (4 * bulge));
  std::vector<QPointF> points;
  for (int i = 0; i < pieces; ++i) {
    const double angle = turn * i / pieces;
    const QPointF arm = from - center;
    points.push_back(center + arm * std::cos(angle) + LeftOf(arm) * std::sin(angle));
  }
  points.push_back(to);
  return points;
}

void AddPieces(std::vector<Piece>& pieces, const std::vector<QPointF>& points,
               const SegmentWidth& width) {
  const auto count = static_cast<double>(points.size() - 1);
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const auto at = [&](double index) {
      return (width.first + (width.second - width.first) * index / count) / 2;
    };
    if (points[i] != points[i + 1]) {
      pieces.push_back(
          {points[i], points[i + 1], at(static_cast<double>(i)), at(static_cast<double>(i) + 1)});
    }
  }
}

// All loops counter-clockwise, so that none takes another away.
void AddLoop(QPainterPath& path, QPolygonF loop) {
  double area = 0;
  for (qsizetype i = 0; i < loop.size(); ++i) {
    const QPointF& a = loop[i];
    const QPointF& b = loop[(i + 1) % loop.size()];
    area += a.x() * b.y() - b.x() * a.y();
  }
  if (area < 0) {
    std::reverse(loop.begin(), loop.end());
  }
  path.addPolygon(loop);
  path.closeSubpath();
}

void AddPiece(QPainterPath& path, const Piece& piece) {
  const QPointF left = LeftOf(UnitOf(piece));
  AddLoop(path, QPolygonF({piece.from + left * piece.halfFrom, piece.to + left * piece.halfTo,
                           piece.to - left * piece.halfTo, piece.from - left * piece.halfFrom}));
}

// The wedge on the outer side of a corner.
void AddCorner(QPainterPath& path, const Piece& before, const Piece& after) {
  const QPointF in = UnitOf(before);
  const QPointF out = UnitOf(after);
  const double turn = in.x() * out.y() - in.y() * out.x();
  const double half = before.halfTo;
  if (std::abs(turn) < 1e-6 || half <= 0) {
    return;
  }
  const double side = turn > 0 ? -1 : 1;
  const QPointF a = before.to + LeftOf(in) * (side * half);
  const QPointF b = before.to + LeftOf(out) * (side * half);
  QPolygonF wedge({before.to, a});
  // Half of the turn's cosine: the tip lies that much farther out.
  const double cosine = std::sqrt(std::max(0.0, (1 + Dot(in, out)) / 2));
  if (cosine > 0.25) {
    const QPointF middle = LeftOf(in) + LeftOf(out);
    wedge.append(before.to + middle / Length(middle) * (side * half / cosine));
  }
  wedge.append(b);
  AddLoop(path, wedge);
}

}  // namespace

QPainterPath WidePath(std::span<const QPointF> points, std::span<const double> bulges,
                      std::span<const SegmentWidth> widths, bool closed) {
  std::vector<Piece> pieces;
  const std::size_t segments = points.size() < 2 ? 0 : points.size() - (closed ? 0 : 1);
  for (std::size_t i = 0; i < segments; ++i) {
    AddPieces(
        pieces,
        PointsAlong(points[i], points[(i + 1) % points.size()], i < bulges.size() ? bulges[i] : 0),
        i < widths.size() ? widths[i] : SegmentWidth{});
  }
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    AddPiece(path, pieces[i]);
    if (i + 1 < pieces.size()) {
      AddCorner(path, pieces[i], pieces[i + 1]);
    } else if (closed && pieces.size() > 1) {
      AddCorner(path, pieces[i], pieces.front());
    }
  }
  return path;
}

}  // namespace preview
