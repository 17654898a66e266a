#include "scene/spline.hpp"

#include <QJsonArray>

#include <algorithm>
#include <array>
#include <cmath>

#include "scene/plane.hpp"

namespace preview {
namespace {

constexpr int kHighestDegree = 15;
constexpr std::size_t kMostPoints = 50000;
// Pieces of a span that is no polynomial of degree 3.
constexpr int kPieces = 8;

// A point before it is divided by its weight.
struct Weighted {
  double x = 0;
  double y = 0;
  double w = 0;
};

Weighted Mix(const Weighted& a, const Weighted& b, double share) {
  return {a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share, a.w + (b.w - a.w) * share};
}

class Curve {
 public:
  explicit Curve(const Nurbs& shape) : shape_(shape) {}

  bool IsGood() const {
    const std::size_t points = shape_.controlPoints.size();
    const auto degree = static_cast<std::size_t>(std::max(shape_.degree, 0));
    return shape_.degree >= 1 && shape_.degree <= kHighestDegree && points > degree &&
           points <= kMostPoints && shape_.knots.size() >= points + degree + 1 &&
           std::is_sorted(shape_.knots.begin(), shape_.knots.end());
  }

  QPainterPath Path() const {
    QPainterPath path;
    const auto degree = static_cast<std::size_t>(shape_.degree);
    const bool isExact = shape_.degree <= 3 && shape_.weights.empty();
    for (std::size_t span = degree; span < shape_.controlPoints.size(); ++span) {
      const double from = shape_.knots[span];
      const double to = shape_.knots[span + 1];
      if (to > from) {
        AddSpan(path, span, from, to, isExact ? 1 : kPieces);
      }
    }
    return path;
  }

 private:
  struct Sample {
    QPointF point;
    QPointF derivative;
  };

  void AddSpan(QPainterPath& path, std::size_t span, double from, double to, int pieces) const {
    for (int i = 0; i < pieces; ++i) {
      const double step = (to - from) / pieces;
      const Sample a = At(span, from + step * i);
      const Sample b = At(span, from + step * (i + 1));
      if (path.elementCount() == 0) {
        path.moveTo(a.point);
      }
      path.cubicTo(a.point + a.derivative * (step / 3), b.point - b.derivative * (step / 3),
                   b.point);
    }
  }

  Weighted ControlPoint(std::size_t index) const {
    const QPointF point = shape_.controlPoints[index];
    const double weight = index < shape_.weights.size() ? shape_.weights[index] : 1;
    return {point.x() * weight, point.y() * weight, weight};
  }

  // De Boor's algorithm; the last step but one gives the derivative.
  Sample At(std::size_t span, double at) const {
    const auto degree = static_cast<std::size_t>(shape_.degree);
    std::array<Weighted, kHighestDegree + 1> points;
    for (std::size_t i = 0; i <= degree; ++i) {
      points[i] = ControlPoint(span - degree + i);
    }
    for (std::size_t level = 1; level < degree; ++level) {
      for (std::size_t i = degree; i >= level; --i) {
        points[i] =
            Mix(points[i - 1], points[i], Share(span - degree + i, span + 1 + i - level, at));
      }
    }
    const double width = shape_.knots[span + 1] - shape_.knots[span];
    const Weighted a = points[degree - 1];
    const Weighted b = points[degree];
    const double rate = shape_.degree / width;
    return Divided(Mix(a, b, Share(span, span + 1, at)),
                   {(b.x - a.x) * rate, (b.y - a.y) * rate, (b.w - a.w) * rate});
  }

  double Share(std::size_t from, std::size_t to, double at) const {
    const double width = shape_.knots[to] - shape_.knots[from];
    return width > 0 ? (at - shape_.knots[from]) / width : 0;
  }

  static Sample Divided(const Weighted& point, const Weighted& derivative) {
    const double w = point.w != 0 ? point.w : 1;
    const QPointF at(point.x / w, point.y / w);
    return {at, (QPointF(derivative.x, derivative.y) - at * derivative.w) / w};
  }

  const Nurbs& shape_;
};

}  // namespace

QPainterPath SplinePath(const Nurbs& spline) {
  const Curve curve(spline);
  return curve.IsGood() ? curve.Path() : QPainterPath();
}

Nurbs SplineOf(const QJsonObject& record) {
  return {.degree = record["degree"].toInt(3),
          .knots = NumbersOf(record["knots"]),
          .controlPoints = PointsFromAbove(record["controlPoints"]),
          .weights = NumbersOf(record["weights"])};
}

}  // namespace preview
