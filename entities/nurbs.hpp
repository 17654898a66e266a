// Evaluation of non-uniform rational B-splines by the Cox-de Boor recurrence
// (L. Piegl, W. Tiller, The NURBS Book, algorithms A2.1 and A2.2).
//
// Knots may be unordered, too few or not finite: a knot index outside the
// array takes the nearest end, and every search ends.
#pragma once

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
