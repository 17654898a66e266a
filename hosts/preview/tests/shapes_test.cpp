#include "scene/shapes.hpp"

#include <gtest/gtest.h>
#include <QJsonArray>

#include <cmath>
#include <numbers>

#include "document.hpp"
#include "scene/vectors.hpp"

namespace preview {
namespace {

QJsonObject Spline(const std::vector<QPointF>& points, bool closed) {
  QJsonArray pairs;
  for (const QPointF& point : points) {
    pairs.append(QJsonArray{point.x(), point.y()});
  }
  return {{"type", "SPLINE"}, {"closed", closed}, {"fit_pts", pairs}};
}

QPainterPath PathOf(const QJsonObject& record) {
  return MakeShape(record, {})->parts[0].path;
}

// So many points on the unit circle, from angle 0 over `turn`, the end left out.
std::vector<QPointF> OnCircle(int count, double turn = 2 * std::numbers::pi) {
  std::vector<QPointF> points;
  points.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    points.push_back(DirectionOf(turn * i / count));
  }
  return points;
}

// Along the X axis and then up, so that the curve has a corner at (count / 2, 0).
std::vector<QPointF> WithCorner(int count) {
  const int half = count / 2;
  std::vector<QPointF> points;
  points.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    points.emplace_back(std::min(i, half), std::max(0, i - half));
  }
  return points;
}

TEST(SplineShape, KeepsCornersOfPointsThatMayBeSamples) {
  EXPECT_NEAR(PathOf(Spline(WithCorner(20), false)).length(), 19, 1e-6);
}

TEST(SplineShape, IsSmoothThroughAnotherNumberOfPoints) {
  EXPECT_GT(PathOf(Spline(WithCorner(21), false)).length(), 20.01);
  EXPECT_GT(PathOf(Spline(WithCorner(16), false)).length(), 15.01);
}

TEST(SplineShape, IsSmoothWhenItHasATangent) {
  QJsonObject spline = Spline(WithCorner(20), false);
  spline["end_tan"] = QJsonArray{0, 1};
  EXPECT_GT(PathOf(spline).length(), 19.01);
}

TEST(SplineShape, RunsFromTheLastFitPointToTheFirstWhenClosed) {
  EXPECT_NEAR(PathOf(Spline(OnCircle(20), true)).length(), 2 * std::numbers::pi, 0.05);
  EXPECT_NEAR(PathOf(Spline(OnCircle(20), false)).length(), 2 * std::numbers::pi * 19 / 20, 0.05);
}

// Samples of a closed curve end where they began.
TEST(SplineShape, KeepsCornersOfAClosedCurveWhoseEndsMeet) {
  std::vector<QPointF> square;
  for (const QPointF& corner : {QPointF(0, 0), QPointF(6, 0), QPointF(6, 6), QPointF(0, 6)}) {
    const QPointF way = LeftOf(corner - QPointF(3, 3)) - (corner - QPointF(3, 3));
    for (int i = 0; i < 6; ++i) {
      square.push_back(corner + way * i / 6);
    }
  }
  square.erase(square.begin() + 1);
  square.push_back(square.front());
  ASSERT_EQ(square.size(), 24U);
  EXPECT_NEAR(PathOf(Spline(square, true)).length(), 24, 1e-6);
}

}  // namespace
}  // namespace preview
