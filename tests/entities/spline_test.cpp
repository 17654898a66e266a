#include "entities/spline.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "tests/support/record_reader.hpp"
#include "tests/support/test_drawing.hpp"
#include "tests/support/written.hpp"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr const char* kMalformed =
    "Skipped malformed SPLINE on layer L1 (num_knots < num_ctrl_pts + degree + 1)";
constexpr const char* kDegenerate =
    "Skipped degenerate SPLINE on layer L1 (no fit_pts and no ctrl_pts)";

class SplineTest : public testing::Test {
 protected:
  std::string Record() {
    return drawing_.RecordOf(DWG_TYPE_SPLINE, &EntityTio::SPLINE, spline_, "L1");
  }

  void SetFitPoints(const std::vector<BITCODE_3DPOINT>& points) {
    spline_.num_fit_pts = static_cast<BITCODE_BS>(points.size());
    spline_.fit_pts = drawing_.Array(points);
  }

  void SetControlPoints(const std::vector<Dwg_SPLINE_control_point>& points) {
    spline_.num_ctrl_pts = static_cast<BITCODE_BL>(points.size());
    spline_.ctrl_pts = drawing_.Array(points);
  }

  void SetKnots(const std::vector<double>& knots) {
    spline_.num_knots = static_cast<BITCODE_BL>(knots.size());
    spline_.knots = drawing_.Array(knots);
  }

  // `count` control points along the x axis with a clamped uniform knot vector.
  void SetClamped(unsigned degree, std::size_t count) {
    spline_.degree = static_cast<BITCODE_BS>(degree);
    std::vector<Dwg_SPLINE_control_point> points(count);
    for (std::size_t i = 0; i < count; ++i) {
      points[i].x = static_cast<double>(i);
    }
    SetControlPoints(points);
    std::vector<double> knots;
    for (std::size_t i = 0; i < count + degree + 1; ++i) {
      const double inner = static_cast<double>(i) - degree;
      knots.push_back(std::fmin(std::fmax(inner, 0), static_cast<double>(count - degree)));
    }
    SetKnots(knots);
  }

  TestDrawing drawing_;
  Dwg_Entity_SPLINE spline_{};
};

TEST_F(SplineTest, FitPointsAreWrittenWithTheirTangents) {
  SetFitPoints({{1, 2, 3}, {4, 5, 6}});
  spline_.closed_b = 1;
  spline_.beg_tan_vec = {0.5, 0.25, 7};
  spline_.end_tan_vec = {-1, 0, 0};
  EXPECT_EQ(Record(), R"({"type":"SPLINE","layer":"L1","closed":true,"fit_pts":[[1,2],[4,5]],)"
                      R"("beg_tan":[0.5,0.25],"end_tan":[-1,0]})");
}

TEST_F(SplineTest, ZeroTangentsAreLeftOut) {
  SetFitPoints({{1, 2, 0}, {4, 5, 0}});
  EXPECT_EQ(Record(), R"({"type":"SPLINE","layer":"L1","closed":false,"fit_pts":[[1,2],[4,5]]})");
}

TEST_F(SplineTest, TangentsWithoutLengthInThePlaneAreLeftOut) {
  SetFitPoints({{1, 2, 0}});
  spline_.beg_tan_vec = {0, 0, 1};
  spline_.end_tan_vec = {1e-10, 0, 0};
  EXPECT_THAT(Record(), Not(HasSubstr("tan")));
}

TEST_F(SplineTest, TangentsJustLongEnoughAreWritten) {
  SetFitPoints({{1, 2, 0}});
  spline_.end_tan_vec = {0, 1.1e-10, 0};
  EXPECT_THAT(Record(), HasSubstr(R"(,"end_tan":[0,1.1e-10]})"));
}

TEST_F(SplineTest, TangentThatIsNotANumberIsLeftOut) {
  SetFitPoints({{1, 2, 0}});
  spline_.beg_tan_vec = {kNaN, 1, 0};
  EXPECT_THAT(Record(), Not(HasSubstr("tan")));
}

TEST_F(SplineTest, FitPointsGoBeforeControlPoints) {
  SetClamped(3, 4);
  SetFitPoints({{7, 8, 0}});
  EXPECT_THAT(Record(), HasSubstr(R"("fit_pts":[[7,8]]})"));
}

TEST_F(SplineTest, FitPointCountWithoutAnArrayFallsBackToControlPoints) {
  SetClamped(3, 4);
  spline_.num_fit_pts = 65535;
  EXPECT_EQ(NumbersOf(Record(), "fit_pts").size(), 40U);
}

TEST_F(SplineTest, WithNeitherKindOfPointsIsSkippedWithAWarning) {
  EXPECT_EQ(Record(), "");
  EXPECT_THAT(drawing_.warnings, ElementsAre(kDegenerate));
}

TEST_F(SplineTest, WithoutKnotsIsDegenerate) {
  SetClamped(3, 4);
  spline_.num_knots = 0;
  EXPECT_EQ(Record(), "");
  EXPECT_THAT(drawing_.warnings, ElementsAre(kDegenerate));
}

TEST_F(SplineTest, CountsWithoutArraysAreDegenerate) {
  spline_.degree = 3;
  spline_.num_ctrl_pts = 4'000'000'000;
  spline_.num_knots = 4'000'000'000;
  EXPECT_EQ(Record(), "");
  EXPECT_THAT(drawing_.warnings, ElementsAre(kDegenerate));
}

TEST_F(SplineTest, WithOneKnotTooFewIsMalformed) {
  SetClamped(3, 4);
  spline_.num_knots = 7;
  EXPECT_EQ(Record(), "");
  EXPECT_THAT(drawing_.warnings, ElementsAre(kMalformed));
}

TEST_F(SplineTest, WithADegreeBeyondItsKnotsIsMalformed) {
  SetClamped(3, 4);
  spline_.degree = 65535;
  EXPECT_EQ(Record(), "");
  EXPECT_THAT(drawing_.warnings, ElementsAre(kMalformed));
}

TEST_F(SplineTest, FewControlPointsAreSampledTwentyTimes) {
  SetClamped(3, 4);
  EXPECT_EQ(NumbersOf(Record(), "fit_pts").size(), 2 * 20U);
  EXPECT_THAT(drawing_.warnings, IsEmpty());
}

TEST_F(SplineTest, ManyControlPointsAreSampledFourTimesEach) {
  SetClamped(3, 10);
  EXPECT_EQ(NumbersOf(Record(), "fit_pts").size(), 2 * 40U);
}

TEST_F(SplineTest, SamplesReachBothEndsAndCarryNoTangents) {
  SetClamped(3, 5);
  spline_.beg_tan_vec = {1, 0, 0};
  spline_.closed_b = 1;
  const std::string record = Record();
  EXPECT_THAT(record,
              HasSubstr(R"({"type":"SPLINE","layer":"L1","closed":true,"fit_pts":[[0,0],)"));
  EXPECT_THAT(record, testing::EndsWith(",[4,0]]}"));
}

TEST_F(SplineTest, SamplesAreEquallySpacedInTheParameter) {
  SetClamped(1, 2);
  const std::vector<double> numbers = NumbersOf(Record(), "fit_pts");
  ASSERT_EQ(numbers.size(), 40U);
  for (std::size_t i = 0; i < 20; ++i) {
    EXPECT_NEAR(numbers[2 * i], static_cast<double>(i) / 19, 1e-10);
  }
}

TEST_F(SplineTest, ManySamplesAreEquallySpacedToo) {
  SetClamped(1, 101);
  const std::vector<double> numbers = NumbersOf(Record(), "fit_pts");
  ASSERT_EQ(numbers.size(), 2 * 404U);
  for (std::size_t i = 0; i < 404; ++i) {
    EXPECT_NEAR(numbers[2 * i], 100 * static_cast<double>(i) / 403, 1e-8);
  }
}

TEST_F(SplineTest, EmptyParameterRangeIsDroppedSilently) {
  SetClamped(3, 4);
  SetKnots(std::vector<double>(8, 2.5));
  EXPECT_EQ(Record(), "");
  EXPECT_THAT(drawing_.warnings, IsEmpty());
}

TEST_F(SplineTest, BackwardParameterRangeIsDroppedSilently) {
  SetClamped(3, 4);
  SetKnots({1, 1, 1, 1, 0, 0, 0, 0});
  EXPECT_EQ(Record(), "");
  EXPECT_THAT(drawing_.warnings, IsEmpty());
}

class WeightFlagTest : public SplineTest {
 protected:
  // The middle of a parabola whose middle control point weighs `weight`.
  double MiddleHeight(double weight) {
    spline_.degree = 2;
    SetKnots({0, 0, 0, 1, 1, 1});
    std::vector<Dwg_SPLINE_control_point> points(3);
    points[0].w = points[2].w = 1;
    points[1].x = 1;
    points[1].y = 1;
    points[1].w = weight;
    points[2].x = 2;
    SetControlPoints(points);
    const std::vector<double> numbers = NumbersOf(Record(), "fit_pts");
    return (numbers[2 * 9 + 1] + numbers[2 * 10 + 1]) / 2;
  }
};

TEST_F(WeightFlagTest, WeightsCountOnlyWithAFlag) {
  const double plain = MiddleHeight(100);
  EXPECT_NEAR(plain, 0.5, 0.01);
}

TEST_F(WeightFlagTest, EitherFlagAppliesTheWeights) {
  spline_.rational = 1;
  const double rational = MiddleHeight(100);
  spline_.rational = 0;
  spline_.weighted = 1;
  EXPECT_EQ(MiddleHeight(100), rational);
  EXPECT_GT(rational, 0.98);
}

TEST_F(WeightFlagTest, WeightZeroCountsAsOne) {
  const double plain = MiddleHeight(0);
  spline_.rational = 1;
  EXPECT_EQ(MiddleHeight(0), plain);
}

TEST_F(SplineTest, NonFiniteKnotsGiveZeroPointsAndNoFailure) {
  SetClamped(3, 4);
  SetKnots({0, 0, 0, kNaN, 1, 1, 1, 1});
  const std::vector<double> numbers = NumbersOf(Record(), "fit_pts");
  EXPECT_EQ(numbers, std::vector<double>(40, 0));
}

TEST_F(SplineTest, UnorderedKnotsAreStillSampled) {
  SetClamped(2, 5);
  SetKnots({0, 9, 0, 5, 1, 4, 3, 2});
  EXPECT_EQ(NumbersOf(Record(), "fit_pts").size(), 40U);
}

TEST_F(SplineTest, DegreeAboveTheControlPointsIsStillSampled) {
  spline_.degree = 5;
  SetControlPoints(std::vector<Dwg_SPLINE_control_point>(2));
  SetKnots({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
  EXPECT_EQ(NumbersOf(Record(), "fit_pts").size(), 40U);
}

TEST_F(SplineTest, HostileDegreeIsRefused) {
  spline_.degree = 60000;
  SetControlPoints(std::vector<Dwg_SPLINE_control_point>(50000));
  std::vector<double> knots(120000);
  for (std::size_t i = 0; i < knots.size(); ++i) {
    knots[i] = static_cast<double>(i);
  }
  SetKnots(knots);
  EXPECT_EQ(Record(), "");
}

}  // namespace
