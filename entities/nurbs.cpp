#include "entities/nurbs.hpp"

#include <algorithm>
#include <utility>

namespace {

// False as soon as one is no number.
bool NeverDecrease(std::span<const double> knots) {
  return std::ranges::adjacent_find(knots, [](double a, double b) { return !(a <= b); }) ==
         knots.end();
}

}  // namespace

NurbsCurve::NurbsCurve(std::size_t degree, std::span<const double> knots,
                       std::vector<ControlPoint> controlPoints, bool weighted)
    : degree_(static_cast<std::int64_t>(degree)),
      knots_(knots),
      controlPoints_(std::move(controlPoints)),
      weighted_(weighted),
      isOrdered_(degree < controlPoints_.size() && NeverDecrease(knots)),
      basis_(degree + 1),
      left_(degree + 1),
      right_(degree + 1) {}

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
    const double blend = weighted_ ? basis * point.weight : basis;
    x += blend * point.x;
    y += blend * point.y;
    sum += blend;
  }
  return sum == 0 ? CurvePoint{x, y} : CurvePoint{x / sum, y / sum};
}
