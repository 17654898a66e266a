#include "entities/simple_curves.hpp"

#include <gtest/gtest.h>

#include "tests/support/test_drawing.hpp"

#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(SimpleCurves, LineIsWrittenWithItsEndPoints) {
  Dwg_Entity_LINE line{};
  line.end = {10, 5, 7};
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_LINE, &EntityTio::LINE, line),
            R"({"type":"LINE","layer":"0","startX":0,"startY":0,"endX":10,"endY":5})");
}

TEST(SimpleCurves, LayerNameIsEscaped) {
  Dwg_Entity_LINE line{};
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_LINE, &EntityTio::LINE, line, "a\"b\\c\x01"),
            "{\"type\":\"LINE\",\"layer\":\"a\\\"b\\\\c\\u0001\","
            "\"startX\":0,\"startY\":0,\"endX\":0,\"endY\":0}");
}

TEST(SimpleCurves, PointIsWrittenWithoutItsHeight) {
  Dwg_Entity_POINT point{};
  point.x = 1.5;
  point.y = -2.25;
  point.z = 9;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_POINT, &EntityTio::POINT, point, "P"),
            R"({"type":"POINT","layer":"P","x":1.5,"y":-2.25})");
}

TEST(SimpleCurves, NonFiniteCoordinateIsWrittenAsZero) {
  Dwg_Entity_POINT point{};
  point.x = kNaN;
  point.y = -kInfinity;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_POINT, &EntityTio::POINT, point),
            R"({"type":"POINT","layer":"0","x":0,"y":0})");
}

TEST(SimpleCurves, CoordinatesKeepTenSignificantDigits) {
  Dwg_Entity_POINT point{};
  point.x = 12345678901.25;
  point.y = 1.0 / 3;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_POINT, &EntityTio::POINT, point),
            R"({"type":"POINT","layer":"0","x":1.23456789e+10,"y":0.3333333333})");
}

TEST(SimpleCurves, RayAndXlineDifferOnlyInTheirType) {
  Dwg_Entity_RAY ray{};
  ray.point = {1, 2, 3};
  ray.vector = {0.6, 0.8, 0};
  Dwg_Entity_XLINE xline{};
  xline.point = ray.point;
  xline.vector = ray.vector;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_RAY, &EntityTio::RAY, ray),
            R"({"type":"RAY","layer":"0","x":1,"y":2,"dx":0.6,"dy":0.8})");
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_XLINE, &EntityTio::XLINE, xline),
            R"({"type":"XLINE","layer":"0","x":1,"y":2,"dx":0.6,"dy":0.8})");
}

TEST(SimpleCurves, CircleOfRadiusZeroIsWritten) {
  Dwg_Entity_CIRCLE circle{};
  circle.center = {3, 4, 5};
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_CIRCLE, &EntityTio::CIRCLE, circle),
            R"({"type":"CIRCLE","layer":"0","cx":3,"cy":4,"radius":0})");
}

TEST(SimpleCurves, NegativeRadiusIsWrittenAsStored) {
  Dwg_Entity_CIRCLE circle{};
  circle.radius = -2;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_CIRCLE, &EntityTio::CIRCLE, circle),
            R"({"type":"CIRCLE","layer":"0","cx":0,"cy":0,"radius":-2})");
}

TEST(SimpleCurves, ArcAcrossAngleZeroKeepsItsStoredAngles) {
  Dwg_Entity_ARC arc{};
  arc.radius = 2;
  arc.start_angle = 5.5;
  arc.end_angle = 0.5;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_ARC, &EntityTio::ARC, arc),
            R"({"type":"ARC","layer":"0","cx":0,"cy":0,"radius":2,)"
            R"("startAngleRad":5.5,"endAngleRad":0.5})");
}

TEST(SimpleCurves, ExtrusionMirrorsNothing) {
  Dwg_Entity_ARC arc{};
  arc.center = {7, 8, 0};
  arc.extrusion = {0, 0, -1};
  arc.radius = 1;
  arc.end_angle = 1;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_ARC, &EntityTio::ARC, arc),
            R"({"type":"ARC","layer":"0","cx":7,"cy":8,"radius":1,)"
            R"("startAngleRad":0,"endAngleRad":1})");
}

TEST(SimpleCurves, EllipseIsWrittenWithItsParameters) {
  Dwg_Entity_ELLIPSE ellipse{};
  ellipse.center = {1, 2, 0};
  ellipse.sm_axis = {3, 4, 0};
  ellipse.axis_ratio = 0.5;
  ellipse.start_angle = 0.25;
  ellipse.end_angle = 3;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_ELLIPSE, &EntityTio::ELLIPSE, ellipse),
            R"({"type":"ELLIPSE","layer":"0","cx":1,"cy":2,"smAxisX":3,"smAxisY":4,)"
            R"("semiMajor":5,"axisRatio":0.5,"startAngleRad":0.25,"endAngleRad":3})");
}

TEST(SimpleCurves, EllipseOutOfThePlaneHasALongerAxisThanItsXAndYSay) {
  Dwg_Entity_ELLIPSE ellipse{};
  ellipse.sm_axis = {2, 3, 6};
  EXPECT_NE(TestDrawing()
                .RecordOf(DWG_TYPE_ELLIPSE, &EntityTio::ELLIPSE, ellipse)
                .find(R"("smAxisX":2,"smAxisY":3,"semiMajor":7,)"),
            std::string::npos);
}

}  // namespace
