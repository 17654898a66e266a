#include "entities/nurbs.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace {

// False as soon as one is no number.
bool NeverDecrease(std::span<const double> knots) {
  return std::ranges::adjacent_find(knots, [](double a, double b) { return !(a <= b); }) ==
         knots.end();
}

// A value at two parameters, so that their divisions overlap or share an
// instruction.
struct Pair {
  double a;
  double b;
};

Pair operator+(Pair u, Pair v) {
  return {u.a + v.a, u.b + v.b};
}
Pair operator-(Pair u, Pair v) {
  return {u.a - v.a, u.b - v.b};
}
Pair operator*(Pair u, Pair v) {
  return {u.a * v.a, u.b * v.b};
}
Pair operator/(Pair u, Pair v) {
  return {u.a / v.a, u.b / v.b};
}
Pair Both(double value) {
  return {value, value};
}

struct PairOfPoints {
  Pair x;
  Pair y;
};

// The same operations in the same order as in EvaluateBasis(). Of parameters
// that their span holds no denominator is 0: it is the distance between two
// knots around the span.
template <std::size_t kDegree>
std::array<Pair, kDegree + 1> BasisOf(const double* knots, Pair t) {
  std::array<Pair, kDegree + 1> basis;
  std::array<Pair, kDegree + 1> left;
  std::array<Pair, kDegree + 1> right;
  basis[0] = Both(1);
  for (std::size_t j = 1; j <= kDegree; ++j) {
    left[j] = t - Both(*(knots + 1 - j));
    right[j] = Both(knots[j]) - t;
    Pair saved = Both(0);
    for (std::size_t r = 0; r < j; ++r) {
      const Pair term = basis[r] / (right[r + 1] + left[j - r]);
      basis[r] = saved + right[r + 1] * term;
      saved = left[j - r] * term;
    }
    basis[j] = saved;
  }
  return basis;
}

template <std::size_t kDegree>
PairOfPoints Blend(const std::array<Pair, kDegree + 1>& basis, const ControlPoint* controlPoints) {
  Pair x = Both(0);
  Pair y = Both(0);
  Pair sum = Both(0);
  for (std::size_t j = 0; j <= kDegree; ++j) {
    const Pair blend = basis[j] * Both(controlPoints[j].weight);
    x = x + blend * Both(controlPoints[j].x);
    y = y + blend * Both(controlPoints[j].y);
    sum = sum + blend;
  }
  const Pair divisor = {sum.a == 0 ? 1 : sum.a, sum.b == 0 ? 1 : sum.b};
  return {x / divisor, y / divisor};
}

template <std::size_t kDegree>
void EvaluateRun(const double* knots, const ControlPoint* controlPoints,
                 std::span<const double> parameters, std::span<CurvePoint> points) {
  for (std::size_t i = 0; i < parameters.size(); i += 2) {
    const std::size_t next = std::min(i + 1, parameters.size() - 1);
    const auto basis = BasisOf<kDegree>(knots, {parameters[i], parameters[next]});
    const PairOfPoints pair = Blend<kDegree>(basis, controlPoints);
    points[i] = {pair.x.a, pair.y.a};
    points[next] = {pair.x.b, pair.y.b};
  }
}

constexpr std::array kRunEvaluators = {EvaluateRun<1>, EvaluateRun<2>, EvaluateRun<3>,
                                       EvaluateRun<4>, EvaluateRun<5>};

}  // namespace

NurbsCurve::NurbsCurve(std::size_t degree, std::span<const double> knots,
                       std::vector<ControlPoint> controlPoints, bool weighted)
    : degree_(static_cast<std::int64_t>(degree)),
      knots_(knots),
      controlPoints_(std::move(controlPoints)),
      isOrdered_(degree < controlPoints_.size() && NeverDecrease(knots)),
      basis_(degree + 1),
      left_(degree + 1),
      right_(degree + 1) {
  if (!weighted) {
    for (ControlPoint& point : controlPoints_) {
      point.weight = 1;
    }
  }
  const bool hasAllKnots = knots.size() > controlPoints_.size() + degree;
  if (isOrdered_ && hasAllKnots && degree >= 1 && degree <= kRunEvaluators.size()) {
    evaluateRun_ = kRunEvaluators[degree - 1];
  }
}

double NurbsCurve::Knot(std::int64_t index) const {
  const auto last = static_cast<std::int64_t>(knots_.size()) - 1;
  return knots_[static_cast<std::size_t>(std::clamp<std::int64_t>(index, 0, last))];
}

// Among knots in order no other span can hold the parameter, so that a search
// would end at the same one.
bool NurbsCurve::HoldsInOrder(std::int64_t span, double t) const {
  return isOrdered_ && span >= 0 && Knot(span) <= t && t < Knot(span + 1);
}

std::int64_t NurbsCurve::FindSpan(double t) const {
  const auto count = static_cast<std::int64_t>(controlPoints_.size());
  if (t >= Knot(count)) {
    return count - 1;
  }
  if (t <= Knot(degree_)) {
    return degree_;
  }
  if (HoldsInOrder(lastSpan_, t)) {
    return lastSpan_;
  }
  if (HoldsInOrder(lastSpan_ + 1, t)) {
    return lastSpan_ + 1;
  }
  std::int64_t low = degree_;
  std::int64_t high = count;
  std::int64_t mid = (low + high) / 2;
  while (!(Knot(mid) <= t && t < Knot(mid + 1))) {
    if (high - low <= 1 && mid == low) {
      break;
    }
    std::int64_t& bound = t < Knot(mid) ? high : low;
    if (bound == mid) {
      break;  // bounds that cross, as with fewer control points than degrees
    }
    bound = mid;
    mid = (low + high) / 2;
  }
  return mid;
}

template <typename KnotAt>
void NurbsCurve::EvaluateBasis(std::int64_t span, double t, KnotAt knotAt) {
  const auto degree = static_cast<std::size_t>(degree_);
  basis_[0] = 1;
  for (std::size_t j = 1; j <= degree; ++j) {
    const auto offset = static_cast<std::int64_t>(j);
    left_[j] = t - knotAt(span + 1 - offset);
    right_[j] = knotAt(span + offset) - t;
    double saved = 0;
    for (std::size_t r = 0; r < j; ++r) {
      const double denominator = right_[r + 1] + left_[j - r];
      const double term = denominator == 0 ? 0 : basis_[r] / denominator;
      basis_[r] = saved + right_[r + 1] * term;
      saved = left_[j - r] * term;
    }
    basis_[j] = saved;
  }
}

CurvePoint NurbsCurve::At(double t) {
  const std::int64_t span = FindSpan(t);
  lastSpan_ = span;
  const bool isInside =
      span + 1 >= degree_ && span + degree_ < static_cast<std::int64_t>(knots_.size());
  if (isInside) {
    EvaluateBasis(span, t, [knots = knots_.data()](std::int64_t index) { return knots[index]; });
  } else {
    EvaluateBasis(span, t, [this](std::int64_t index) { return Knot(index); });
  }
  double x = 0;
  double y = 0;
  double sum = 0;
  const auto count = static_cast<std::int64_t>(controlPoints_.size());
  for (std::int64_t j = 0; j <= degree_; ++j) {
    const std::int64_t index = span - degree_ + j;
    if (index < 0 || index >= count) {
      continue;
    }
    const ControlPoint& point = controlPoints_[static_cast<std::size_t>(index)];
    const double basis = basis_[static_cast<std::size_t>(j)];
    const double blend = basis * point.weight;
    x += blend * point.x;
    y += blend * point.y;
    sum += blend;
  }
  return sum == 0 ? CurvePoint{x, y} : CurvePoint{x / sum, y / sum};
}

// How many of the first parameters lie in the span, which holds its end only
// if it is the last.
std::size_t NurbsCurve::RunLength(std::int64_t span, std::span<const double> parameters) const {
  const double start = Knot(span);
  const double end = Knot(span + 1);
  if (!(start < end)) {
    return 0;
  }
  const bool isLast = span + 1 == static_cast<std::int64_t>(controlPoints_.size());
  const auto isInside = [=](double t) { return start <= t && (t < end || (isLast && t == end)); };
  const auto runEnd = std::ranges::find_if_not(parameters, isInside);
  return static_cast<std::size_t>(runEnd - parameters.begin());
}

// The number of points made: those of the first parameters, as far as they
// share a span of a curve that can be evaluated in runs.
std::size_t NurbsCurve::MakeRun(std::span<const double> parameters, std::span<CurvePoint> points) {
  if (evaluateRun_ == nullptr) {
    return 0;
  }
  const std::int64_t span = FindSpan(parameters.front());
  const std::size_t length = RunLength(span, parameters);
  if (length != 0) {
    evaluateRun_(knots_.data() + span, controlPoints_.data() + (span - degree_),
                 parameters.first(length), points);
    lastSpan_ = span;
  }
  return length;
}

void NurbsCurve::PointsAt(std::span<const double> parameters, std::span<CurvePoint> points) {
  while (!parameters.empty()) {
    std::size_t made = MakeRun(parameters, points);
    if (made == 0) {
      points.front() = At(parameters.front());
      made = 1;
    }
    parameters = parameters.subspan(made);
    points = points.subspan(made);
  }
}
