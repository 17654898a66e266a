// Dashes, widths, exact splines and the lines of hatches.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "document.hpp"
#include "scene/dashes.hpp"
#include "scene/hatch.hpp"
#include "scene/spline.hpp"
#include "scene/vectors.hpp"
#include "scene/wide_lines.hpp"

namespace preview {
namespace {

using testing::ElementsAre;

QPainterPath Straight(std::initializer_list<QPointF> points) {
  QPainterPath path;
  path.addPolygon(QPolygonF(QList<QPointF>(points)));
  return path;
}

DashOptions Everywhere() {
  return {.area = QRectF(-1e6, -1e6, 2e6, 2e6)};
}

LineType TypeOf(std::initializer_list<double> lengths) {
  LineType type{.name = "T", .dashes = {}};
  for (const double length : lengths) {
    type.dashes.push_back({.length = length});
  }
  return type;
}

TEST(PatternOf, AlternatesDashesAndGaps) {
  EXPECT_THAT(PatternOf(TypeOf({2, -1, 0, -1})), ElementsAre(2, 1, 0, 1));
  EXPECT_THAT(PatternOf(TypeOf({2, -1, -1})), ElementsAre(2, 2));
  EXPECT_THAT(PatternOf(TypeOf({1, 1, -1})), ElementsAre(2, 1));
}

TEST(PatternOf, IsEmptyForWhatIsContinuousOrNoNumber) {
  EXPECT_THAT(PatternOf(TypeOf({})), ElementsAre());
  EXPECT_THAT(PatternOf(TypeOf({1})), ElementsAre());
  EXPECT_THAT(PatternOf(TypeOf({0, -0.0})), ElementsAre());
  EXPECT_THAT(PatternOf(TypeOf({1, -std::nan("")})), ElementsAre());
}

TEST(DashesOf, CutsALineIntoDashes) {
  const auto dashes = DashesOf(Straight({{0, 0}, {7, 0}}), {2, 1}, Everywhere());
  EXPECT_THAT(dashes.value(),
              ElementsAre(QLineF(0, 0, 2, 0), QLineF(3, 0, 5, 0), QLineF(6, 0, 7, 0)));
}

TEST(DashesOf, RunsOnThroughCornersUnlessItBeginsAnew) {
  const QPainterPath path = Straight({{0, 0}, {4, 0}, {4, 4}});
  DashOptions options = Everywhere();
  EXPECT_EQ(DashesOf(path, {2, 1}, options)->at(2), QLineF(4, 0, 4, 1));
  options.restarts = true;
  EXPECT_EQ(DashesOf(path, {2, 1}, options)->at(2), QLineF(4, 0, 4, 2));
}

TEST(DashesOf, LeavesALineWithoutRoomForThePatternWhole) {
  const auto dashes = DashesOf(Straight({{0, 0}, {2.5, 0}}), {2, 1}, Everywhere());
  EXPECT_THAT(dashes.value(), ElementsAre(QLineF(0, 0, 2.5, 0)));
}

TEST(DashesOf, KeepsItsPlaceWhereTheLineIsCut) {
  DashOptions options = Everywhere();
  options.area = QRectF(30000.5, -1, 4, 2);
  const auto dashes = DashesOf(Straight({{0, 0}, {1e5, 0}}), {2, 1}, options);
  ASSERT_FALSE(dashes->isEmpty());
  EXPECT_NEAR(dashes->at(0).x2(), 30002, 1e-6);
}

TEST(DashesOf, GivesNothingForPatternsThatAreTooDenseOrTooMany) {
  DashOptions options = Everywhere();
  EXPECT_EQ(DashesOf(Straight({{0, 0}, {9, 0}}), {}, options), std::nullopt);
  EXPECT_EQ(DashesOf(Straight({{0, 0}, {1e6, 0}}), {1e-3, 1e-3}, options), std::nullopt);
  options.shortest = 3.5;
  EXPECT_EQ(DashesOf(Straight({{0, 0}, {9, 0}}), {2, 1}, options), std::nullopt);
}

bool Covers(const QPainterPath& path, double x, double y) {
  return path.contains(QPointF(x, y));
}

TEST(WidePath, CoversTheWidthOnBothSides) {
  const QPointF points[] = {{0, 0}, {10, 0}};
  const SegmentWidth widths[] = {{2, 2}};
  EXPECT_EQ(WidePath(points, {}, widths, false).boundingRect(), QRectF(0, -1, 10, 2));
}

TEST(WidePath, TapersFromOneWidthToTheOther) {
  const QPointF points[] = {{0, 0}, {10, 0}};
  const SegmentWidth widths[] = {{4, 0}};
  const QPainterPath path = WidePath(points, {}, widths, false);
  EXPECT_TRUE(Covers(path, 1, 1.5));
  EXPECT_FALSE(Covers(path, 9, 1.5));
  EXPECT_FALSE(Covers(path, 5, 1.2));
}

TEST(WidePath, FillsTheCornersOfAClosedOneAndLeavesItsMiddleOpen) {
  const QPointF points[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  const std::vector<SegmentWidth> widths(4, {2, 2});
  const QPainterPath path = WidePath(points, {}, widths, true);
  for (const QPointF corner : {QPointF(-0.9, -0.9), QPointF(10.9, -0.9), QPointF(10.9, 10.9)}) {
    EXPECT_TRUE(path.contains(corner)) << corner.x() << " " << corner.y();
  }
  EXPECT_FALSE(Covers(path, 5, 5));
}

TEST(WidePath, FollowsArcs) {
  const QPointF points[] = {{1, 0}, {-1, 0}};
  const double bulges[] = {1, 0};
  const SegmentWidth widths[] = {{0.2, 0.2}};
  const QPainterPath path = WidePath(points, bulges, widths, false);
  EXPECT_TRUE(Covers(path, 0, 1));
  EXPECT_FALSE(Covers(path, 0, 0.8));
  EXPECT_FALSE(Covers(path, 0, -1));
}

TEST(SplinePath, IsABezierCurveForItsKnots) {
  const QPainterPath path = SplinePath({.degree = 3,
                                        .knots = {0, 0, 0, 0, 1, 1, 1, 1},
                                        .controlPoints = {{0, 0}, {1, 2}, {3, 2}, {4, 0}},
                                        .weights = {}});
  ASSERT_EQ(path.elementCount(), 4);
  EXPECT_LT(Length(QPointF(path.elementAt(1)) - QPointF(1, 2)), 1e-9);
  EXPECT_LT(Length(QPointF(path.elementAt(2)) - QPointF(3, 2)), 1e-9);
  EXPECT_LT(Length(path.currentPosition() - QPointF(4, 0)), 1e-9);
}

// A rational spline of degree 2 is a quarter of a circle.
TEST(SplinePath, TakesWeights) {
  const QPainterPath path = SplinePath({.degree = 2,
                                        .knots = {0, 0, 0, 1, 1, 1},
                                        .controlPoints = {{1, 0}, {1, 1}, {0, 1}},
                                        .weights = {1, std::numbers::sqrt2 / 2, 1}});
  for (int i = 0; i <= 20; ++i) {
    EXPECT_NEAR(Length(path.pointAtPercent(i / 20.0)), 1, 1e-4);
  }
}

TEST(SplinePath, IsEmptyForNumbersThatMakeNone) {
  EXPECT_TRUE(SplinePath({.degree = 3, .knots = {0, 1}, .controlPoints = {{0, 0}}, .weights = {}})
                  .isEmpty());
  EXPECT_TRUE(
      SplinePath(
          {.degree = 1, .knots = {0, 2, 1, 0}, .controlPoints = {{0, 0}, {1, 1}}, .weights = {}})
          .isEmpty());
  EXPECT_TRUE(
      SplinePath({.degree = 1000000, .knots = {}, .controlPoints = {}, .weights = {}}).isEmpty());
}

QPainterPath Square(double side) {
  QPainterPath path;
  path.addRect(0, 0, side, side);
  return path;
}

double LengthOfLines(const QPainterPath& path) {
  double length = 0;
  for (const QPolygonF& line : path.toSubpathPolygons()) {
    length += Length(line.last() - line.first());
  }
  return length;
}

TEST(LinesOfPattern, FillTheAreaAtTheirDistance) {
  const auto lines = LinesOfPattern(
      Square(10), Json("{'lines':[{'angle':0,'base':[0,0.5],'offset':[0,1],'dashes':[]}]}"));
  ASSERT_TRUE(lines);
  EXPECT_EQ(lines->spacing, 1);
  EXPECT_NEAR(LengthOfLines(lines->path), 100, 1e-6);
}

TEST(LinesOfPattern, LeaveHolesOpen) {
  QPainterPath area = Square(10);
  area.addRect(2, 2, 6, 6);
  const auto lines = LinesOfPattern(
      area, Json("{'lines':[{'angle':0,'base':[0,0.5],'offset':[0,1],'dashes':[]}]}"));
  EXPECT_NEAR(LengthOfLines(lines->path), 100 - 36, 1e-6);
}

TEST(LinesOfPattern, HaveDashesThatShiftFromLineToLine) {
  const auto lines = LinesOfPattern(
      Square(2), Json("{'lines':[{'angle':0,'base':[0,0.5],'offset':[1,1],'dashes':[1,-1]}]}"));
  const auto dashes = lines->path.toSubpathPolygons();
  const auto covers = [&](double x, double y) {
    return std::any_of(dashes.begin(), dashes.end(), [&](const QPolygonF& dash) {
      return std::abs(dash.first().y() - y) < 1e-6 && dash.first().x() < x && x < dash.last().x();
    });
  };
  EXPECT_TRUE(covers(0.5, 0.5));
  EXPECT_FALSE(covers(1.5, 0.5));
  EXPECT_FALSE(covers(0.5, 1.5));
  EXPECT_TRUE(covers(1.5, 1.5));
}

TEST(LinesOfPattern, GiveWayToATintWhenThereAreTooManyOrNone) {
  for (const char* pattern :
       {"{}", "{'lines':[{'angle':0,'base':[0,0],'offset':[0,0.0001],'dashes':[]}]}",
        "{'lines':[{'angle':0,'base':[0,0],'offset':[1,0],'dashes':[]}]}",
        "{'lines':[{'angle':0,'base':[0,0],'offset':[0,1],'dashes':[1e-9,-1e-9]}]}"}) {
    EXPECT_FALSE(LinesOfPattern(Square(10), Json(pattern))) << pattern;
  }
}

TEST(HatchPath, FollowsTheEdgesOfItsBoundary) {
  const QPainterPath path =
      HatchPath(Json("{'loops':[[0,0,1,0,1,1]],'boundary':[{'flags':1,'edges':["
                     "{'type':'line','start':[-1,0],'end':[1,0]},"
                     "{'type':'arc','center':[0,0],'radius':1,'startAngleRad':0,"
                     "'endAngleRad':3.141592653589793,'ccw':true}]}]}"));
  EXPECT_TRUE(path.contains(QPointF(0, 0.9)));
  EXPECT_FALSE(path.contains(QPointF(0, -0.1)));
  EXPECT_FALSE(path.contains(QPointF(0.9, 0.9)));
}

TEST(HatchPath, TurnsClockwiseEdgesRound) {
  const QPainterPath path =
      HatchPath(Json("{'boundary':[{'flags':1,'edges':[{'type':'line','start':[1,0],'end':[-1,0]},"
                     "{'type':'arc','center':[0,0],'radius':1,'startAngleRad':3.141592653589793,"
                     "'endAngleRad':6.283185307179586,'ccw':false}]}]}"));
  EXPECT_TRUE(path.contains(QPointF(0, 0.9)));
  EXPECT_FALSE(path.contains(QPointF(0, -0.5)));
}

}  // namespace
}  // namespace preview
