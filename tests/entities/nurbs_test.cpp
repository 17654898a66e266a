#include "entities/nurbs.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Nurbs, DegreeOneRunsAlongItsControlPolygon) {
  const std::vector<double> knots = {0, 0, 1, 2, 2};
  NurbsCurve curve(1, knots, {{0, 0, 1}, {4, 2, 1}, {4, 8, 1}}, false);
  EXPECT_DOUBLE_EQ(curve.At(0.5).x, 2);
  EXPECT_DOUBLE_EQ(curve.At(0.5).y, 1);
  EXPECT_DOUBLE_EQ(curve.At(1).x, 4);
  EXPECT_DOUBLE_EQ(curve.At(1.5).y, 5);
  EXPECT_DOUBLE_EQ(curve.At(2).y, 8);
}

TEST(Nurbs, CubicSegmentIsItsBezierCurve) {
  const std::vector<double> knots = {0, 0, 0, 0, 1, 1, 1, 1};
  NurbsCurve curve(3, knots, {{0, 0, 1}, {1, 3, 1}, {4, 3, 1}, {5, 0, 1}}, false);
  for (const double t : {0.0, 0.125, 0.5, 0.9, 1.0}) {
    const double u = 1 - t;
    const CurvePoint point = curve.At(t);
    EXPECT_NEAR(point.x, 3 * u * u * t * 1 + 3 * u * t * t * 4 + t * t * t * 5, 1e-14);
    EXPECT_NEAR(point.y, 3 * u * u * t * 3 + 3 * u * t * t * 3, 1e-14);
  }
}

TEST(Nurbs, WeightsMakeAQuarterCircle) {
  const std::vector<double> knots = {0, 0, 0, 1, 1, 1};
  NurbsCurve curve(2, knots, {{1, 0, 1}, {1, 1, std::sqrt(0.5)}, {0, 1, 1}}, true);
  for (const double t : {0.0, 0.2, 0.5, 0.75, 1.0}) {
    const CurvePoint point = curve.At(t);
    EXPECT_NEAR(std::sqrt(point.x * point.x + point.y * point.y), 1, 1e-14);
  }
}

TEST(Nurbs, WeightsAreNotAppliedToACurveWithout) {
  const std::vector<double> knots = {0, 0, 1, 1};
  NurbsCurve curve(1, knots, {{0, 0, 100}, {2, 0, 1}}, false);
  EXPECT_DOUBLE_EQ(curve.At(0.5).x, 1);
}

TEST(Nurbs, WeightsThatCancelLeaveTheSumAsItIs) {
  const std::vector<double> knots = {0, 0, 1, 1};
  NurbsCurve curve(1, knots, {{3, 5, 1}, {1, 1, -1}}, true);
  EXPECT_DOUBLE_EQ(curve.At(0.5).x, 1);
  EXPECT_DOUBLE_EQ(curve.At(0.5).y, 2);
}

TEST(Nurbs, InnerMultipleKnotDividesByNothing) {
  const std::vector<double> knots = {0, 0, 0, 1, 1, 2, 2, 2};
  NurbsCurve curve(2, knots, {{0, 0, 1}, {1, 0, 1}, {2, 2, 1}, {3, 0, 1}, {4, 0, 1}}, false);
  EXPECT_DOUBLE_EQ(curve.At(1).x, 2);
  EXPECT_DOUBLE_EQ(curve.At(1).y, 2);
}

TEST(Nurbs, ParametersBeyondTheRangeTakeItsEndSpans) {
  const std::vector<double> knots = {0, 0, 1, 2, 2};
  NurbsCurve curve(1, knots, {{0, 0, 1}, {1, 0, 1}, {2, 0, 1}}, false);
  EXPECT_DOUBLE_EQ(curve.At(-1).x, -1);
  EXPECT_DOUBLE_EQ(curve.At(3).x, 3);
}

// Only that these end, and without touching memory outside the arrays (which
// the sanitizer builds watch), can be said of them.
void ExpectToEnd(std::size_t degree, const std::vector<double>& knots, std::size_t count) {
  NurbsCurve curve(degree, knots, std::vector<ControlPoint>(count, {1, 2, 1}), true);
  for (const double t : {-1e300, -1.0, 0.0, 0.3, 1.0, 2.5, 7.0, 1e300, kNaN, kInfinity}) {
    const CurvePoint point = curve.At(t);
    EXPECT_TRUE(std::isnan(point.x) || std::fabs(point.x) >= 0);
  }
}

TEST(Nurbs, UnorderedKnotsEndEverySearch) {
  ExpectToEnd(2, {5, 1, 4, 0, 3, 2, 7, 1}, 5);
  ExpectToEnd(3, {9, 8, 7, 6, 5, 4, 3, 2, 1, 0}, 6);
}

TEST(Nurbs, FewerControlPointsThanDegreesEndEverySearch) {
  ExpectToEnd(5, {0, 1, 2, 3, 4, 5, 6, 7}, 2);
  ExpectToEnd(5, {7, 6, 5, 4, 3, 2, 1, 0}, 2);
  ExpectToEnd(7, {0, 0, 0, 0, 0, 0, 0, 0, 0}, 1);
}

TEST(Nurbs, ShortOrNonFiniteKnotsEndEverySearch) {
  ExpectToEnd(3, {0.5}, 4);
  ExpectToEnd(2, {kNaN, 0, kNaN, 1, kInfinity, 2, 3, kNaN}, 5);
}

TEST(Nurbs, EveryShortKnotVectorOfSmallNumbersEndsItsSearch) {
  for (unsigned code = 0; code < 4096; ++code) {
    std::vector<double> knots(6);
    for (std::size_t i = 0; i < knots.size(); ++i) {
      knots[i] = code >> (2 * i) & 3U;
    }
    for (std::size_t degree = 1; degree <= 4; ++degree) {
      NurbsCurve curve(degree, knots, std::vector<ControlPoint>(5 - degree, {1, 1, 1}), false);
      for (const double t : {0.0, 0.5, 1.0, 1.5, 2.0, 2.5, 3.0}) {
        const CurvePoint point = curve.At(t);
        EXPECT_EQ(point.x, point.y);
      }
    }
  }
}

using Random = std::mt19937_64;

// From -4 to 4; every other one is a multiple of a quarter, so that some repeat.
double SmallNumber(Random& random) {
  const auto quarters = static_cast<double>(random() % 33) / 4 - 4;
  return random() % 2 == 0 ? quarters : quarters + static_cast<double>(random() % 1000) / 4001;
}

std::vector<double> OrderedKnots(Random& random, std::size_t degree, std::size_t count) {
  std::vector<double> knots(count + degree + 1 + random() % 2);
  std::ranges::generate(knots, [&random] { return SmallNumber(random); });
  std::ranges::sort(knots);
  const bool isClamped = random() % 2 == 0;
  for (std::size_t i = 0; isClamped && i < degree; ++i) {
    knots[i] = knots[degree];
    knots[count + degree - i] = knots[count];
  }
  return knots;
}

// Something that a curve must put up with.
void Disturb(Random& random, std::vector<double>& knots) {
  double& knot = knots[random() % knots.size()];
  switch (random() % 5) {
    case 0: knot = SmallNumber(random); break;
    case 1: knot = kNaN; break;
    case 2: knots.back() = kInfinity; break;
    case 3: knots.front() = -1e300; break;
    default: knots.resize(1 + random() % knots.size()); break;
  }
}

std::vector<ControlPoint> RandomPoints(Random& random, std::size_t count) {
  std::vector<ControlPoint> points(count);
  for (ControlPoint& point : points) {
    point = {SmallNumber(random) * 1e3, SmallNumber(random), SmallNumber(random)};
  }
  return points;
}

// Rising from before the first knot to behind the last, at knots and between
// them, and a few that do not rise.
std::vector<double> Parameters(Random& random, const std::vector<double>& knots) {
  std::vector<double> parameters = knots;
  for (std::size_t i = 0; i < 40; ++i) {
    parameters.push_back(SmallNumber(random) * 1.1);
  }
  std::erase_if(parameters, [](double t) { return std::isnan(t); });
  std::ranges::sort(parameters);
  parameters.insert(parameters.end(), {-9, 0.3, 0.2, kNaN, 0.1, kInfinity, -kInfinity, 1e300});
  return parameters;
}

void ExpectSameBits(double actual, double expected) {
  if (std::isnan(expected)) {
    EXPECT_TRUE(std::isnan(actual));
    return;
  }
  EXPECT_EQ(std::bit_cast<std::uint64_t>(actual), std::bit_cast<std::uint64_t>(expected))
      << actual << " instead of " << expected;
}

void ExpectSamePoints(Random& random, std::size_t degree, std::size_t count,
                      const std::vector<double>& knots) {
  const auto controlPoints = RandomPoints(random, count);
  const bool isWeighted = random() % 2 == 0;
  NurbsCurve reference(degree, knots, controlPoints, isWeighted);
  NurbsCurve curve(degree, knots, controlPoints, isWeighted);
  const auto parameters = Parameters(random, knots);
  std::vector<CurvePoint> points(parameters.size());
  curve.PointsAt(parameters, points);
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const CurvePoint expected = reference.At(parameters[i]);
    ExpectSameBits(points[i].x, expected.x);
    ExpectSameBits(points[i].y, expected.y);
  }
}

TEST(Nurbs, PointsAtOnceAreThoseOneByOneToTheBit) {
  Random random;
  for (std::size_t degree = 0; degree <= 7; ++degree) {
    for (int i = 0; i < 300; ++i) {
      const std::size_t count = degree + 1 + random() % 20;
      ExpectSamePoints(random, degree, count, OrderedKnots(random, degree, count));
    }
  }
}

TEST(Nurbs, PointsAtOnceOfBadCurvesAreThoseOneByOne) {
  Random random;
  for (std::size_t degree = 0; degree <= 7; ++degree) {
    for (int i = 0; i < 300; ++i) {
      const std::size_t count = random() % 3 == 0 ? 1 + random() % (degree + 1) : degree + 5;
      auto knots = OrderedKnots(random, degree, count);
      Disturb(random, knots);
      ExpectSamePoints(random, degree, count, knots);
    }
  }
}

TEST(Nurbs, NoParametersGiveNoPoints) {
  const std::vector<double> knots = {0, 0, 1, 1};
  NurbsCurve curve(1, knots, {{0, 0, 1}, {2, 0, 1}}, false);
  curve.PointsAt({}, {});
  EXPECT_DOUBLE_EQ(curve.At(0.5).x, 1);
}

}  // namespace
