#include "entities/simple_curves.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

}  // namespace

TEST(SimpleCurves, LineIsWrittenWithItsEndPoints) {
  Dwg_Entity_LINE line{};
  line.start = {0, 0, 3};
  line.end = {10, 5, 7};
  line.thickness = 2;
  EXPECT_EQ(LineRecord(line, "0"),
            R"({"type":"LINE","layer":"0","startX":0,"startY":0,"endX":10,"endY":5})");
}

TEST(SimpleCurves, PointIsWrittenWithItsPosition) {
  Dwg_Entity_POINT point{};
  point.x = 1.5;
  point.y = -2;
  point.z = 3;
  EXPECT_EQ(PointRecord(point, "0"), R"({"type":"POINT","layer":"0","x":1.5,"y":-2})");
}

TEST(SimpleCurves, RayAndXlineDifferInTheTypeOnly) {
  Dwg_Entity_RAY ray{};
  ray.point = {1, 2, 3};
  ray.vector = {0.6, 0.8, 0};
  EXPECT_EQ(RayRecord(ray, "0"), R"({"type":"RAY","layer":"0","x":1,"y":2,"dx":0.6,"dy":0.8})");
  Dwg_Entity_XLINE xline{};
  xline.point = {1, 2, 3};
  xline.vector = {0.6, 0.8, 0};
  EXPECT_EQ(XlineRecord(xline, "0"),
            R"({"type":"XLINE","layer":"0","x":1,"y":2,"dx":0.6,"dy":0.8})");
}

TEST(SimpleCurves, CircleIsWrittenWithCenterAndRadius) {
  Dwg_Entity_CIRCLE circle{};
  circle.center = {1, 2, 3};
  circle.radius = 0.25;
  EXPECT_EQ(CircleRecord(circle, "0"),
            R"({"type":"CIRCLE","layer":"0","cx":1,"cy":2,"radius":0.25})");
}

TEST(SimpleCurves, CircleOfRadiusZeroOrLessIsWritten) {
  Dwg_Entity_CIRCLE circle{};
  EXPECT_EQ(CircleRecord(circle, "0"), R"({"type":"CIRCLE","layer":"0","cx":0,"cy":0,"radius":0})");
  circle.radius = -1;
  EXPECT_EQ(CircleRecord(circle, "0"),
            R"({"type":"CIRCLE","layer":"0","cx":0,"cy":0,"radius":-1})");
}

TEST(SimpleCurves, ArcKeepsItsAnglesAsStored) {
  Dwg_Entity_ARC arc{};
  arc.center = {1, 2, 3};
  arc.radius = 4;
  arc.start_angle = 5.5;
  arc.end_angle = -0.5;
  EXPECT_EQ(ArcRecord(arc, "0"), R"({"type":"ARC","layer":"0","cx":1,"cy":2,"radius":4,)"
                                 R"("startAngleRad":5.5,"endAngleRad":-0.5})");
}

TEST(SimpleCurves, EllipseIsWrittenWithAxisLengthAndParameters) {
  Dwg_Entity_ELLIPSE ellipse{};
  ellipse.center = {1, 2, 9};
  ellipse.sm_axis = {3, 4, 0};
  ellipse.axis_ratio = 0.5;
  ellipse.start_angle = 0;
  ellipse.end_angle = 6.25;
  EXPECT_EQ(EllipseRecord(ellipse, "0"),
            R"({"type":"ELLIPSE","layer":"0","cx":1,"cy":2,"smAxisX":3,"smAxisY":4,)"
            R"("semiMajor":5,"axisRatio":0.5,"startAngleRad":0,"endAngleRad":6.25})");
}

TEST(SimpleCurves, EllipseAxisOutOfThePlaneCountsIntoItsLength) {
  Dwg_Entity_ELLIPSE ellipse{};
  ellipse.sm_axis = {3, 4, 12};
  EXPECT_NE(EllipseRecord(ellipse, "0").find(R"("smAxisX":3,"smAxisY":4,"semiMajor":13,)"),
            std::string::npos);
}

TEST(SimpleCurves, ExtrusionIsIgnored) {
  Dwg_Entity_CIRCLE circle{};
  circle.center = {5, 6, 7};
  circle.radius = 1;
  circle.extrusion = {0, 0, -1};
  EXPECT_EQ(CircleRecord(circle, "0"), R"({"type":"CIRCLE","layer":"0","cx":5,"cy":6,"radius":1})");
  Dwg_Entity_ARC arc{};
  arc.center = {5, 6, 7};
  arc.extrusion = {0, 0, -1};
  EXPECT_NE(ArcRecord(arc, "0").find(R"("cx":5,"cy":6)"), std::string::npos);
}

TEST(SimpleCurves, NonFiniteCoordinateIsWrittenAsZero) {
  Dwg_Entity_POINT point{};
  point.x = kNan;
  point.y = -kInfinity;
  EXPECT_EQ(PointRecord(point, "0"), R"({"type":"POINT","layer":"0","x":0,"y":0})");
  Dwg_Entity_ELLIPSE ellipse{};
  ellipse.sm_axis = {1e200, 0, 0};
  EXPECT_NE(EllipseRecord(ellipse, "0").find(R"("smAxisX":1e+200,"smAxisY":0,"semiMajor":0,)"),
            std::string::npos);
}

TEST(SimpleCurves, LayerNameIsQuoted) {
  EXPECT_EQ(PointRecord(Dwg_Entity_POINT{}, "a\"b\n"),
            R"({"type":"POINT","layer":"a\"b\n","x":0,"y":0})");
}
