#include "scene/curves.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace preview {
namespace {

constexpr double kPi = std::numbers::pi;

void ExpectNear(QPointF a, QPointF b, double tolerance = 1e-9) {
  EXPECT_NEAR(a.x(), b.x(), tolerance);
  EXPECT_NEAR(a.y(), b.y(), tolerance);
}

double DistanceTo(QPointF a, QPointF b) {
  return std::hypot(a.x() - b.x(), a.y() - b.y());
}

void ExpectOnCircle(const QPainterPath& path, QPointF center, double radius) {
  for (int i = 0; i <= 20; ++i) {
    EXPECT_NEAR(DistanceTo(path.pointAtPercent(i / 20.0), center), radius, radius * 3e-4);
  }
}

TEST(ArcPath, RunsCounterClockwise) {
  const QPainterPath path = ArcPath({1, 2}, 3, 0, kPi / 2);
  ExpectNear(path.elementAt(0), {4, 2});
  ExpectNear(path.currentPosition(), {1, 5});
  ExpectOnCircle(path, {1, 2}, 3);
  ExpectNear(path.pointAtPercent(0.5), {1 + 3 * std::sqrt(0.5), 2 + 3 * std::sqrt(0.5)}, 1e-3);
}

TEST(ArcPath, CrossesAngleZeroWhenTheEndIsSmaller) {
  const QPainterPath path = ArcPath({0, 0}, 1, 1.5 * kPi, 0.5 * kPi);
  ExpectNear(path.pointAtPercent(0.5), {1, 0}, 1e-3);
}

TEST(ArcPath, IsAWholeCircleBetweenEqualAngles) {
  EXPECT_NEAR(ArcPath({0, 0}, 1, 0, 2 * kPi).length(), 2 * kPi, 0.05);
}

TEST(ArcPath, IsAWholeCircleForAWholeTurnWithEightDigits) {
  EXPECT_NEAR(ArcPath({0, 0}, 1, 0, 6.28318531).length(), 2 * kPi, 0.05);
}

TEST(EllipsePath, TakesParametersNotAngles) {
  const EllipseShape ellipse{.center = {1, 1}, .majorLength = 4, .majorAngle = 0, .ratio = 0.5};
  const QPainterPath path = EllipsePath(ellipse, 0, kPi / 4);
  ExpectNear(path.currentPosition(), {1 + 4 * std::sqrt(0.5), 1 + 2 * std::sqrt(0.5)});
}

TEST(EllipsePath, TurnsWithItsMajorAxis) {
  const EllipseShape ellipse{
      .center = {0, 0}, .majorLength = 2, .majorAngle = kPi / 2, .ratio = 0.5};
  const QPainterPath path = EllipsePath(ellipse, 0, kPi / 2);
  ExpectNear(path.elementAt(0), {0, 2});
  ExpectNear(path.currentPosition(), {-1, 0});
}

TEST(BulgedPath, BulgesToTheRightOfTheChordCounterClockwise) {
  const QPointF points[] = {{-1, 0}, {1, 0}};
  const double bulges[] = {1, 0};
  const QPainterPath path = BulgedPath(points, bulges, false);
  ExpectOnCircle(path, {0, 0}, 1);
  ExpectNear(path.pointAtPercent(0.5), {0, -1}, 1e-3);
  ExpectNear(path.currentPosition(), {1, 0});
}

TEST(BulgedPath, BulgesToTheLeftWhenNegative) {
  const QPointF points[] = {{-1, 0}, {1, 0}};
  const double bulges[] = {-0.5};
  const QPainterPath path = BulgedPath(points, bulges, false);
  // Sagitta is the bulge times half the chord; the radius is 1.25.
  ExpectNear(path.pointAtPercent(0.5), {0, 0.5}, 1e-3);
  ExpectOnCircle(path, {0, -0.75}, 1.25);
}

TEST(BulgedPath, CountsMissingBulgesAsStraight) {
  const QPointF points[] = {{0, 0}, {3, 0}, {3, 4}};
  EXPECT_NEAR(BulgedPath(points, {}, true).length(), 12, 1e-9);
}

TEST(BulgedPath, BulgesTheClosingSegmentToo) {
  const QPointF points[] = {{-1, 0}, {1, 0}};
  const double bulges[] = {1, 1};
  EXPECT_NEAR(BulgedPath(points, bulges, true).length(), 2 * kPi, 0.05);
}

TEST(InterpolatedPath, RunsThroughItsPoints) {
  const QPointF points[] = {{0, 0}, {1, 2}, {3, 1}, {4, 4}};
  const QPainterPath path = InterpolatedPath(points, false, {});
  for (int i = 0; i < 4; ++i) {
    ExpectNear(path.elementAt(3 * i), points[i]);
  }
}

TEST(InterpolatedPath, LeavesAndArrivesAlongItsTangents) {
  const QPointF points[] = {{0, 0}, {1, 0}};
  const QPainterPath path =
      InterpolatedPath(points, false, {.begin = QPointF(0, 5), .end = QPointF(0, -5)});
  ExpectNear(path.elementAt(1), {0, 1.0 / 3});
  ExpectNear(path.elementAt(2), {1, 1.0 / 3});
}

TEST(InterpolatedPath, IsStraightThroughPointsOnALine) {
  const QPointF points[] = {{0, 0}, {1, 1}, {5, 5}};
  EXPECT_NEAR(InterpolatedPath(points, false, {}).length(), std::sqrt(50), 1e-6);
}

TEST(InterpolatedPath, ClosesSmoothly) {
  const QPointF points[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  const QPainterPath path = InterpolatedPath(points, true, {});
  EXPECT_NEAR(path.length(), 2 * kPi, 0.05);
  ExpectNear(path.elementAt(path.elementCount() - 1), {1, 0});
}

TEST(SmoothedPath, KeepsCorners) {
  const QPointF points[] = {{0, 0}, {1, 0}, {2, 0}, {2, 1}, {2, 2}};
  const QPainterPath path = SmoothedPath(points);
  EXPECT_NEAR(path.length(), 4, 1e-6);
}

TEST(ArrowPath, HasItsTipWhereItPoints) {
  const QPainterPath path = ArrowPath({5, 5}, {10, 0}, 3);
  ExpectNear(path.elementAt(0), {5, 5});
  EXPECT_EQ(path.boundingRect(), QRectF(2, 4.5, 3, 1));
}

}  // namespace
}  // namespace preview
