// Evaluation of non-uniform rational B-splines by the Cox-de Boor recurrence
// (L. Piegl, W. Tiller, The NURBS Book, algorithms A2.1 and A2.2).
//
// Knots may be unordered, too few or not finite: a knot index outside the
// array takes the nearest end, and every search ends.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

struct CurvePoint {
  double x;
  double y;
};

struct ControlPoint {
  double x;
  double y;
  double weight;  // 1 for a curve without weights
};

class NurbsCurve {
 public:
  // `knots` must not be empty and must outlive the curve. `weighted` says
  // whether the control points' weights are applied.
  NurbsCurve(std::size_t degree, std::span<const double> knots,
             std::vector<ControlPoint> controlPoints, bool weighted);

  // The point at parameter `t`: the blend of the control points of its knot
  // span, divided by the sum of their basis values unless that sum is 0.
  CurvePoint At(double t);

  // The same points, to the bit, as At() gives one after the other. Faster
  // where the degree is low, the knots are in order and neighbours among the
  // parameters share a span. `points` must be as long as `parameters`.
  void PointsAt(std::span<const double> parameters, std::span<CurvePoint> points);

 private:
  // Evaluates parameters of one span; `knots` points at the span's first knot,
  // `controlPoints` at the first that it blends.
  using RunEvaluator = void (*)(const double* knots, const ControlPoint* controlPoints,
                                std::span<const double> parameters, std::span<CurvePoint> points);

  double Knot(std::int64_t index) const;
  bool HoldsInOrder(std::int64_t span, double t) const;
  std::int64_t FindSpan(double t) const;
  std::size_t RunLength(std::int64_t span, std::span<const double> parameters) const;
  std::size_t MakeRun(std::span<const double> parameters, std::span<CurvePoint> points);
  template <typename KnotAt>
  void EvaluateBasis(std::int64_t span, double t, KnotAt knotAt);

  std::int64_t degree_;
  std::span<const double> knots_;
  std::vector<ControlPoint> controlPoints_;  // of weight 1 unless weighted
  bool isOrdered_;                           // knots that never decrease, enough points
  RunEvaluator evaluateRun_ = nullptr;       // null for a curve out of order or of high degree
  std::int64_t lastSpan_ = -1;               // of the point before
  std::vector<double> basis_;
  std::vector<double> left_;
  std::vector<double> right_;
};

// Into how many points a curve is sampled.
inline std::size_t SampleCount(std::size_t controlPoints) {
  constexpr std::size_t kSamplesPerControlPoint = 4;
  constexpr std::size_t kMinSamples = 20;
  return std::max(controlPoints * kSamplesPerControlPoint, kMinSamples);
}

// Calls `each` with `samples` points at equal distances of the parameter, from the start
// of the range to its end, both included. There are at least two.
template <typename Each>
void ForEachSample(NurbsCurve& curve, double start, double range, std::size_t samples, Each each) {
  constexpr std::size_t kSamplesAtOnce = 64;
  std::array<double, kSamplesAtOnce> parameters;
  std::array<CurvePoint, kSamplesAtOnce> points;
  for (std::size_t first = 0; first < samples; first += kSamplesAtOnce) {
    const std::size_t count = std::min(samples - first, kSamplesAtOnce);
    for (std::size_t i = 0; i < count; ++i) {
      const double share = static_cast<double>(first + i) / static_cast<double>(samples - 1);
      parameters[i] = start + share * range;
    }
    curve.PointsAt(std::span(parameters).first(count), points);
    for (const CurvePoint& point : std::span(points).first(count)) {
      each(point);
    }
  }
}
