#include "entities/hatch.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "tests/support/record_reader.hpp"
#include "tests/support/test_drawing.hpp"
#include "tests/support/written.hpp"

namespace {

using testing::HasSubstr;

constexpr double kPi = 3.141592653589793;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kTenDigits = 1e-8;

Dwg_HATCH_PolylinePath Vertex(double x, double y, double bulge = 0) {
  Dwg_HATCH_PolylinePath vertex{};
  vertex.point = {x, y};
  vertex.bulge = bulge;
  return vertex;
}

Dwg_HATCH_PathSeg Line(BITCODE_2RD from, BITCODE_2RD to) {
  Dwg_HATCH_PathSeg segment{};
  segment.curve_type = 1;
  segment.first_endpoint = from;
  segment.second_endpoint = to;
  return segment;
}

Dwg_HATCH_PathSeg Arc(double start, double end, bool ccw) {
  Dwg_HATCH_PathSeg segment{};
  segment.curve_type = 2;
  segment.radius = 1;
  segment.start_angle = start;
  segment.end_angle = end;
  segment.is_ccw = ccw ? 1 : 0;
  return segment;
}

class HatchTest : public testing::Test {
 protected:
  Dwg_HATCH_Path& AddPath(unsigned flag) {
    paths_.emplace_back();
    paths_.back().flag = flag;
    return paths_.back();
  }

  Dwg_HATCH_Path& AddPolyline(const std::vector<Dwg_HATCH_PolylinePath>& vertices,
                              bool closed = true) {
    Dwg_HATCH_Path& path = AddPath(2);
    path.num_segs_or_paths = static_cast<BITCODE_BL>(vertices.size());
    path.polyline_paths = drawing_.Array(vertices);
    path.closed = closed ? 1 : 0;
    path.bulges_present = 1;
    return path;
  }

  Dwg_HATCH_Path& AddEdges(const std::vector<Dwg_HATCH_PathSeg>& segments) {
    Dwg_HATCH_Path& path = AddPath(1);
    path.num_segs_or_paths = static_cast<BITCODE_BL>(segments.size());
    path.segs = drawing_.Array(segments);
    return path;
  }

  std::string Record() {
    hatch_.num_paths = static_cast<BITCODE_BL>(paths_.size());
    hatch_.paths = paths_.data();
    return drawing_.RecordOf(DWG_TYPE_HATCH, &EntityTio::HATCH, hatch_);
  }

  std::vector<double> Loops() { return NumbersOf(Record(), "loops"); }

  void ExpectLoop(const std::vector<double>& expected) {
    const std::vector<double> loop = Loops();
    ASSERT_EQ(loop.size(), expected.size());
    for (std::size_t i = 0; i < loop.size(); ++i) {
      EXPECT_NEAR(loop[i], expected[i], kTenDigits) << "number " << i;
    }
  }

  TestDrawing drawing_;
  std::vector<Dwg_HATCH_Path> paths_;
  Dwg_Entity_HATCH hatch_{};
};

TEST_F(HatchTest, WithoutPathsIsNotWritten) {
  EXPECT_EQ(drawing_.RecordOf(DWG_TYPE_HATCH, &EntityTio::HATCH, hatch_), "");
}

TEST_F(HatchTest, CountsWithoutArraysAreEmpty) {
  hatch_.num_paths = 4'000'000'000;
  EXPECT_EQ(drawing_.RecordOf(DWG_TYPE_HATCH, &EntityTio::HATCH, hatch_), "");
  AddPath(2).num_segs_or_paths = 4'000'000'000;
  AddPath(0).num_segs_or_paths = 4'000'000'000;
  EXPECT_EQ(Record(), "");
}

TEST_F(HatchTest, StraightPolylineIsItsVertices) {
  AddPolyline({Vertex(0, 0), Vertex(4, 0), Vertex(4, 3), Vertex(0, 3)});
  EXPECT_EQ(Record(), R"({"type":"HATCH","layer":"0","solid":false,"loops":[[0,0,4,0,4,3,0,3]]})");
}

TEST_F(HatchTest, StoredBulgesOfAPathWithoutBulgesDoNotCount) {
  AddPolyline({Vertex(0, 0, 1), Vertex(4, 0, 1), Vertex(4, 3, 1)}).bulges_present = 0;
  EXPECT_THAT(Record(), HasSubstr(R"("loops":[[0,0,4,0,4,3]])"));
}

TEST_F(HatchTest, PolylineOfTwoVerticesIsNoLoop) {
  AddPolyline({Vertex(0, 0), Vertex(4, 0)});
  EXPECT_EQ(Record(), "");
}

TEST_F(HatchTest, ShortLoopsAreDroppedAndTheOthersKept) {
  AddPolyline({Vertex(0, 0), Vertex(4, 0), Vertex(4, 3)});
  AddPolyline({Vertex(9, 9)});
  AddPolyline({Vertex(1, 1), Vertex(2, 1), Vertex(2, 2)});
  EXPECT_THAT(Record(), HasSubstr(R"("loops":[[0,0,4,0,4,3],[1,1,2,1,2,2]]})"));
}

TEST_F(HatchTest, SolidFillAndGradientAreSolid) {
  AddPolyline({Vertex(0, 0), Vertex(4, 0), Vertex(4, 3)});
  EXPECT_THAT(Record(), HasSubstr(R"("solid":false)"));
  hatch_.is_gradient_fill = 1;
  EXPECT_THAT(Record(), HasSubstr(R"("solid":true)"));
  hatch_.is_gradient_fill = 0;
  hatch_.is_solid_fill = 1;
  EXPECT_THAT(Record(), HasSubstr(R"("solid":true)"));
}

TEST_F(HatchTest, SemicircleTakesEighteenPointsBeforeTheNextVertex) {
  AddPolyline({Vertex(0, 0, 1), Vertex(2, 0), Vertex(2, 5)});
  std::vector<double> expected;
  for (int j = 0; j < 18; ++j) {
    const double a = kPi + j * kPi / 18;
    expected.insert(expected.end(), {1 + std::cos(a), std::sin(a)});
  }
  expected.insert(expected.end(), {2, 0, 2, 5});
  ExpectLoop(expected);
}

TEST_F(HatchTest, BulgeBelowOneHasItsCentreOnTheFarSideOfTheChord) {
  AddPolyline({Vertex(-1, 0, 0.5), Vertex(1, 0)}, false);
  const std::vector<double> loop = Loops();
  ASSERT_EQ(loop.size(), 2 * 12U);
  EXPECT_NEAR(loop[0], -1, kTenDigits);
  EXPECT_NEAR(loop[1], 0, kTenDigits);
  for (std::size_t i = 0; i < 22; i += 2) {
    EXPECT_NEAR(std::hypot(loop[i], loop[i + 1] + 0.75), 1.25, kTenDigits);
  }
  // Its last point runs away from the next vertex, towards (-0.44, -1.92).
  const double last = std::atan2(0.75, -1) + 10 * (4 * std::atan(0.5)) / 11;
  EXPECT_NEAR(loop[20], 1.25 * std::cos(last), kTenDigits);
  EXPECT_NEAR(loop[21], -0.75 + 1.25 * std::sin(last), kTenDigits);
  EXPECT_LT(loop[21], -1.7);
  EXPECT_NEAR(loop[22], 1, kTenDigits);
  EXPECT_NEAR(loop[23], 0, kTenDigits);
}

TEST_F(HatchTest, BulgeAboveOneRunsToTheNextVertex) {
  AddPolyline({Vertex(-1, 0, 2), Vertex(1, 0)}, false);
  const std::vector<double> loop = Loops();
  ASSERT_EQ(loop.size(), 2 * 27U);
  const double start = std::atan2(0.75, -1);
  const double sweep = 4 * std::atan(2.0);
  for (std::size_t j = 0; j < 26; ++j) {
    const double a = start + static_cast<double>(j) * sweep / 26;
    EXPECT_NEAR(loop[2 * j], 1.25 * std::cos(a), kTenDigits);
    EXPECT_NEAR(loop[2 * j + 1], -0.75 + 1.25 * std::sin(a), kTenDigits);
  }
  EXPECT_NEAR(1.25 * std::cos(start + sweep), 1, kTenDigits);
}

TEST_F(HatchTest, NegativeBulgeMirrorsTheCentreAndTheSweep) {
  AddPolyline({Vertex(-1, 0, -0.5), Vertex(1, 0)}, false);
  const std::vector<double> negative = Loops();
  paths_.clear();
  AddPolyline({Vertex(-1, 0, 0.5), Vertex(1, 0)}, false);
  const std::vector<double> positive = Loops();
  ASSERT_EQ(negative.size(), positive.size());
  for (std::size_t i = 0; i < negative.size(); i += 2) {
    EXPECT_NEAR(negative[i], positive[i], kTenDigits);
    EXPECT_NEAR(negative[i + 1], -positive[i + 1], kTenDigits);
  }
}

TEST_F(HatchTest, ClosedPolylineBulgesBackToItsFirstVertex) {
  AddPolyline({Vertex(0, 0), Vertex(4, 0), Vertex(4, 3, 1)});
  const std::vector<double> loop = Loops();
  ASSERT_EQ(loop.size(), 2 * (2 + 18U));
  for (std::size_t i = 4; i < loop.size(); i += 2) {
    EXPECT_NEAR(std::hypot(loop[i] - 2, loop[i + 1] - 1.5), 2.5, kTenDigits);
  }
}

TEST_F(HatchTest, OpenPolylineIgnoresTheLastBulge) {
  AddPolyline({Vertex(0, 0), Vertex(4, 0), Vertex(4, 3, 1)}, false);
  ExpectLoop({0, 0, 4, 0, 4, 3});
}

TEST_F(HatchTest, BulgeBetweenEqualVerticesIsAPoint) {
  AddPolyline({Vertex(0, 0, 1), Vertex(0, 0), Vertex(4, 3)});
  ExpectLoop({0, 0, 0, 0, 4, 3});
}

TEST_F(HatchTest, HardlyBentSegmentIsAPoint) {
  AddPolyline({Vertex(0, 0, 2e-10), Vertex(4, 0), Vertex(4, 3)});
  ExpectLoop({0, 0, 4, 0, 4, 3});
}

TEST_F(HatchTest, SmallBulgeTakesTwoSteps) {
  AddPolyline({Vertex(0, 0, 1e-3), Vertex(4, 0), Vertex(4, 3)});
  EXPECT_EQ(Loops().size(), 2 * 4U);
}

TEST_F(HatchTest, HugeAndInfiniteBulgesTakeThirtySixSteps) {
  AddPolyline({Vertex(0, 0, 1e300), Vertex(4, 0), Vertex(4, 3)});
  EXPECT_EQ(Loops().size(), 2 * 38U);
  paths_.clear();
  AddPolyline({Vertex(0, 0, kInfinity), Vertex(4, 0), Vertex(4, 3)});
  EXPECT_EQ(Loops().size(), 2 * 38U);
}

TEST_F(HatchTest, BulgeThatIsNotANumberTakesTwoSteps) {
  AddPolyline({Vertex(1, 1, kNaN), Vertex(4, 0), Vertex(4, 3)});
  ExpectLoop({0, 0, 0, 0, 4, 0, 4, 3});
}

TEST_F(HatchTest, LinesGiveTheirFirstPointsAndTheLastItsSecond) {
  AddEdges({Line({0, 0}, {4, 0}), Line({4, 0}, {4, 3}), Line({4, 3}, {1, 1})});
  ExpectLoop({0, 0, 4, 0, 4, 3, 1, 1});
}

TEST_F(HatchTest, LineThatIsNotLastGivesOnePoint) {
  AddEdges({Line({9, 9}, {8, 8}), Arc(0, kPi / 2, true)});
  EXPECT_EQ(Loops().size(), 2 * (1 + 10U));
}

TEST_F(HatchTest, FullCircleEndsWhereItBegan) {
  AddEdges({Arc(0, 2 * kPi, true)});
  const std::vector<double> loop = Loops();
  ASSERT_EQ(loop.size(), 2 * 37U);
  EXPECT_NEAR(loop[0], loop[72], kTenDigits);
  EXPECT_NEAR(loop[1], loop[73], kTenDigits);
}

TEST_F(HatchTest, ClockwiseArcRunsThroughNegatedAngles) {
  AddEdges({Arc(0, kPi / 2, false)});
  std::vector<double> expected;
  for (int j = 0; j <= 9; ++j) {
    expected.insert(expected.end(), {std::cos(-j * kPi / 18), std::sin(-j * kPi / 18)});
  }
  ExpectLoop(expected);
}

TEST_F(HatchTest, ClockwiseArcStartsAtTheNegatedStartAngle) {
  AddEdges({Arc(kPi / 4, kPi / 2, false)});
  const std::vector<double> loop = Loops();
  ASSERT_EQ(loop.size(), 2 * 6U);
  EXPECT_NEAR(loop[0], std::sqrt(0.5), kTenDigits);
  EXPECT_NEAR(loop[1], -std::sqrt(0.5), kTenDigits);
  EXPECT_NEAR(loop[10], 0, kTenDigits);
  EXPECT_NEAR(loop[11], -1, kTenDigits);
}

TEST_F(HatchTest, ArcAcrossAngleZeroTakesOneTurn) {
  AddEdges({Arc(1.5 * kPi, 0.5 * kPi, true)});
  const std::vector<double> loop = Loops();
  ASSERT_EQ(loop.size(), 2 * 19U);
  EXPECT_NEAR(loop[1], -1, kTenDigits);
  EXPECT_NEAR(loop[18], 1, kTenDigits);
  EXPECT_NEAR(loop[37], 1, kTenDigits);
}

TEST_F(HatchTest, TurnIsAddedOnlyOnce) {
  AddEdges({Arc(8 * kPi, 0, true)});
  // From 8 pi back to 2 pi: three turns backwards, in 36 steps of 30 degrees.
  const std::vector<double> loop = Loops();
  ASSERT_EQ(loop.size(), 2 * 37U);
  EXPECT_NEAR(loop[2], std::cos(-kPi / 6), kTenDigits);
  EXPECT_NEAR(loop[3], std::sin(-kPi / 6), kTenDigits);
}

TEST_F(HatchTest, StartedStepsCount) {
  AddEdges({Arc(0, 31 * kPi / 180, true)});
  EXPECT_EQ(Loops().size(), 2 * 5U);
}

TEST_F(HatchTest, SmallArcTakesTwoSteps) {
  AddEdges({Arc(0, 0.01, true)});
  EXPECT_EQ(Loops().size(), 2 * 3U);
}

TEST_F(HatchTest, SharedEndPointsOfSegmentsOccurTwice) {
  AddEdges({Arc(0, kPi / 2, true), Arc(kPi / 2, kPi, true)});
  const std::vector<double> loop = Loops();
  ASSERT_EQ(loop.size(), 2 * 20U);
  EXPECT_NEAR(loop[18], loop[20], kTenDigits);
  EXPECT_NEAR(loop[19], loop[21], kTenDigits);
}

TEST_F(HatchTest, ArcWithNonFiniteAnglesTakesTwoStepsOfZeros) {
  AddEdges({Arc(0, kInfinity, true)});
  EXPECT_EQ(Loops().size(), 2 * 3U);
  paths_.clear();
  AddEdges({Arc(kNaN, 1, true)});
  ExpectLoop({0, 0, 0, 0, 0, 0});
}

TEST_F(HatchTest, HugeSweepTakesThirtySixSteps) {
  AddEdges({Arc(-1e300, 1e300, true)});
  EXPECT_EQ(Loops().size(), 2 * 37U);
}

TEST_F(HatchTest, EllipticalArcTurnsItsAxisByTheParameter) {
  Dwg_HATCH_PathSeg segment = Arc(0, kPi, true);
  segment.curve_type = 3;
  segment.center = {10, 20};
  segment.endpoint = {3, 4};
  segment.minor_major_ratio = 0.5;
  AddEdges({segment});
  const std::vector<double> loop = Loops();
  ASSERT_EQ(loop.size(), 2 * 19U);
  for (std::size_t j = 0; j < 19; ++j) {
    const double a = static_cast<double>(j) * kPi / 18;
    EXPECT_NEAR(loop[2 * j], 10 + 3 * std::cos(a) - 2 * std::sin(a), 1e-7);
    EXPECT_NEAR(loop[2 * j + 1], 20 + 4 * std::cos(a) + 1.5 * std::sin(a), 1e-7);
  }
}

TEST_F(HatchTest, ClockwiseEllipticalArcRunsThroughNegatedParameters) {
  Dwg_HATCH_PathSeg segment = Arc(0, kPi / 2, false);
  segment.curve_type = 3;
  segment.endpoint = {2, 0};
  segment.minor_major_ratio = 0.5;
  AddEdges({segment});
  const std::vector<double> loop = Loops();
  ASSERT_EQ(loop.size(), 2 * 10U);
  EXPECT_NEAR(loop[18], 0, kTenDigits);
  EXPECT_NEAR(loop[19], -1, kTenDigits);
}

class HatchSplineTest : public HatchTest {
 protected:
  Dwg_HATCH_PathSeg Spline(const std::vector<BITCODE_2RD>& control,
                           const std::vector<BITCODE_2RD>& fit) {
    Dwg_HATCH_PathSeg segment{};
    segment.curve_type = 4;
    std::vector<Dwg_HATCH_ControlPoint> points;
    points.reserve(control.size());
    for (const BITCODE_2RD& point : control) {
      points.push_back({nullptr, point, 1});
    }
    segment.num_control_points = static_cast<BITCODE_BL>(points.size());
    segment.control_points = points.empty() ? nullptr : drawing_.Array(points);
    segment.num_fitpts = static_cast<BITCODE_BL>(fit.size());
    segment.fitpts = fit.empty() ? nullptr : drawing_.Array(fit);
    return segment;
  }
};

TEST_F(HatchSplineTest, FitPointsStandForTheCurve) {
  AddEdges({Spline({{9, 9}, {8, 8}, {7, 7}}, {{0, 0}, {1, 2}, {3, 0}})});
  ExpectLoop({0, 0, 1, 2, 3, 0});
}

TEST_F(HatchSplineTest, ControlPointsStandForACurveWithoutFitPoints) {
  AddEdges({Spline({{9, 9}, {8, 8}, {7, 7}}, {})});
  ExpectLoop({9, 9, 8, 8, 7, 7});
}

TEST_F(HatchSplineTest, FitPointCountWithoutAnArrayFallsBackToControlPoints) {
  Dwg_HATCH_PathSeg segment = Spline({{9, 9}, {8, 8}, {7, 7}}, {});
  segment.num_fitpts = 4'000'000'000;
  AddEdges({segment});
  ExpectLoop({9, 9, 8, 8, 7, 7});
}

TEST_F(HatchSplineTest, OneWithoutAnyPointsContributesNothing) {
  Dwg_HATCH_PathSeg segment = Spline({}, {});
  segment.num_control_points = 4'000'000'000;
  AddEdges({segment, Line({0, 0}, {1, 0}), Line({1, 0}, {1, 1})});
  ExpectLoop({0, 0, 1, 0, 1, 1});
}

TEST_F(HatchTest, UnknownSegmentTypesContributeNothing) {
  Dwg_HATCH_PathSeg unknown = Line({5, 5}, {6, 6});
  unknown.curve_type = 9;
  AddEdges({Line({0, 0}, {1, 0}), Line({1, 0}, {1, 1}), unknown});
  EXPECT_EQ(Record(), "");
  paths_.clear();
  AddEdges({unknown, Line({0, 0}, {1, 0}), Line({1, 0}, {1, 1})});
  ExpectLoop({0, 0, 1, 0, 1, 1});
}

TEST_F(HatchTest, PathFlagTellsPolylinesFromEdges) {
  Dwg_HATCH_Path& path = AddEdges({Line({0, 0}, {1, 0}), Line({1, 0}, {1, 1})});
  path.flag = 2 | 1;
  EXPECT_EQ(Record(), "");
  paths_.back().flag = 0xFFFFFFFD;
  ExpectLoop({0, 0, 1, 0, 1, 1});
}

TEST_F(HatchTest, NonFiniteCoordinatesAreWrittenAsZero) {
  AddPolyline({Vertex(kNaN, 1), Vertex(2, kInfinity), Vertex(3, 3)});
  ExpectLoop({0, 1, 2, 0, 3, 3});
}

}  // namespace
