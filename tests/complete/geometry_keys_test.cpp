// Further keys of curves, polylines, splines, hatches, images and viewports.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/complete_drawing.hpp"

namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class GeometryKeysTest : public testing::Test {
 protected:
  CompleteDrawing drawing_;
};

TEST_F(GeometryKeysTest, ALineHasItsHeightsAndThickness) {
  Dwg_Entity_LINE line{};
  line.start = {1, 2, 3};
  line.end = {4, 5, 0};
  line.thickness = 6;
  line.extrusion = {0, 0, 1};
  EXPECT_EQ(drawing_.RecordOf(DWG_TYPE_LINE, &EntityTio::LINE, line, 0xAB),
            R"({"type":"LINE","layer":"0","startX":1,"startY":2,"endX":4,"endY":5,)"
            R"("color":"K","lw":0,"handle":"AB","linetype":"L","linetypeScale":0,)"
            R"("startZ":3,"thickness":6})");
}

TEST_F(GeometryKeysTest, AFlatLineHasNone) {
  const std::string record = drawing_.RecordOf(DWG_TYPE_LINE, &EntityTio::LINE, Dwg_Entity_LINE{});
  EXPECT_THAT(record, Not(HasSubstr("Z")));
  EXPECT_THAT(record, Not(HasSubstr("extrusion")));
}

// The plane downward mirrors x: (-1, 2, -3).
TEST_F(GeometryKeysTest, AnExtrudedCircleSaysWhereItIsSeen) {
  Dwg_Entity_CIRCLE circle{};
  circle.center = {1, 2, 3};
  circle.radius = 4;
  circle.extrusion = {0, 0, -1};
  EXPECT_THAT(drawing_.RecordOf(DWG_TYPE_CIRCLE, &EntityTio::CIRCLE, circle),
              AllOf(HasSubstr(R"("cx":1,"cy":2,"radius":4,)"),
                    EndsWith(R"("elevation":3,"extrusion":[0,0,-1],)"
                             R"("world":{"xAxis":[-1,0,0],"yAxis":[0,1,0],"center":[-1,2,-3]}})")));
}

TEST_F(GeometryKeysTest, ATriangleHasThreeCornersInTheWorldToo) {
  Dwg_Entity_SOLID solid{};
  solid.corner1 = {1, 0};
  solid.corner2 = {2, 0};
  solid.corner3 = {2, 5};
  solid.corner4 = {2, 5};
  solid.elevation = 7;
  solid.extrusion = {1, 0, 0};
  // World is (z, x, y) of the plane.
  EXPECT_THAT(drawing_.RecordOf(DWG_TYPE_SOLID, &EntityTio::SOLID, solid),
              HasSubstr(R"("pts":[[7,1,0],[7,2,0],[7,2,5]])"));
}

TEST_F(GeometryKeysTest, APolylineHasWidthsOrOneWidth) {
  Dwg_Entity_LWPOLYLINE polyline{};
  polyline.num_points = 2;
  polyline.points = drawing_.Array<BITCODE_2RD>({{0, 0}, {1, 0}});
  polyline.num_widths = 1;
  polyline.widths = drawing_.Array<Dwg_LWPOLYLINE_width>({{0.5, 0.25}});
  polyline.flag = 32 | 256;
  EXPECT_THAT(drawing_.RecordOf(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, polyline),
              AllOf(HasSubstr(R"("widths":[[0.5,0.25],[0,0]],"linetypeGeneration":true)"),
                    Not(HasSubstr("constWidth"))));
  polyline.flag = 4;
  polyline.const_width = 2;
  EXPECT_THAT(drawing_.RecordOf(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, polyline),
              AllOf(HasSubstr(R"("constWidth":2)"), Not(HasSubstr("widths"))));
}

TEST_F(GeometryKeysTest, WidthsWithoutAnArrayAreNone) {
  Dwg_Entity_LWPOLYLINE polyline{};
  polyline.num_points = 1;
  polyline.points = drawing_.Array<BITCODE_2RD>({{0, 0}});
  polyline.num_widths = 1000000;
  polyline.num_vertexids = 1000000;
  EXPECT_THAT(drawing_.RecordOf(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, polyline),
              AllOf(Not(HasSubstr("widths")), Not(HasSubstr("vertexIds"))));
}

class PolylineVerticesTest : public GeometryKeysTest {
 protected:
  void AddVertex(Handle handle, double x, unsigned flag = 0, Handle owner = 0) {
    auto& vertex = drawing_.AddEntity(DWG_TYPE_VERTEX_3D, &EntityTio::VERTEX_3D, handle, owner);
    vertex.point = {x, 0, x};
    vertex.flag = static_cast<BITCODE_RC>(flag);
  }
  Dwg_Entity_POLYLINE_3D& AddPolyline(Handle handle) {
    return drawing_.AddEntity(DWG_TYPE_POLYLINE_3D, &EntityTio::POLYLINE_3D, handle);
  }
};

// The end marker comes first, as in drawings of 2004 and later.
TEST_F(PolylineVerticesTest, AreThoseThatThePolylineNames) {
  auto& polyline = AddPolyline(0x10);
  drawing_.AddBareEntity(DWG_TYPE_SEQEND, 0x11);
  AddVertex(0x12, 1);
  AddVertex(0x13, 2);
  polyline.num_owned = 3;
  polyline.vertex = drawing_.Array<BITCODE_H>({drawing_.Ref(0x13), nullptr, drawing_.Ref(0x12)});
  EXPECT_THAT(drawing_.Record(drawing_.objects()[0]), HasSubstr(R"("points":[[2,0,2],[1,0,1]])"));
}

TEST_F(PolylineVerticesTest, ElseThoseThatNameThePolyline) {
  AddPolyline(0x10);
  drawing_.AddBareEntity(DWG_TYPE_SEQEND, 0x11);
  AddVertex(0x12, 1, 0, 0x10);
  AddVertex(0x13, 2, 0, 0x77);
  EXPECT_THAT(drawing_.Record(drawing_.objects()[0]), HasSubstr(R"("points":[[1,0,1]])"));
}

TEST_F(PolylineVerticesTest, ElseThoseThatFollow) {
  AddPolyline(0x10);
  AddVertex(0x12, 1);
  drawing_.AddBareEntity(DWG_TYPE_SEQEND, 0x14);
  AddVertex(0x15, 2);
  EXPECT_THAT(drawing_.Record(drawing_.objects()[0]), HasSubstr(R"("points":[[1,0,1]])"));
}

TEST_F(PolylineVerticesTest, OfASplineFrameStandApart) {
  AddPolyline(0x10).curve_type = 2;  // cubic in a DWG
  AddVertex(0x12, 1, 16);
  AddVertex(0x13, 2, 8);
  EXPECT_THAT(drawing_.Record(drawing_.objects()[0]),
              AllOf(HasSubstr(R"("points":[[2,0,2]])"),
                    HasSubstr(R"("splineFit":true,"curveType":6,"frame":[[1,0,1]])")));
}

TEST_F(GeometryKeysTest, ASplineHasItsCurve) {
  Dwg_Entity_SPLINE spline{};
  spline.degree = 1;
  spline.num_knots = 4;
  spline.knots = drawing_.Array<double>({0, 0, 1, 1});
  spline.num_ctrl_pts = 2;
  spline.ctrl_pts =
      drawing_.Array<Dwg_SPLINE_control_point>({{nullptr, 0, 0, 5, 0}, {nullptr, 1, 1, 6, 2}});
  spline.end_tan_vec = {0, 0, 1};
  EXPECT_THAT(drawing_.RecordOf(DWG_TYPE_SPLINE, &EntityTio::SPLINE, spline),
              EndsWith(R"("degree":1,"knots":[0,0,1,1],"weights":[1,2],)"
                       R"("controlPoints":[[0,0,5],[1,1,6]],"endTangent":[0,0,1]})"));
}

class HatchKeysTest : public GeometryKeysTest {
 protected:
  std::string RecordOf(const Dwg_HATCH_Path& path) {
    hatch_.num_paths = 1;
    hatch_.paths = drawing_.Array<Dwg_HATCH_Path>({path});
    return drawing_.RecordOf(DWG_TYPE_HATCH, &EntityTio::HATCH, hatch_);
  }

  Dwg_HATCH_Path Polyline(std::vector<Dwg_HATCH_PolylinePath> vertices) {
    Dwg_HATCH_Path path{};
    path.flag = 2;
    path.closed = 1;
    path.bulges_present = 1;
    path.num_segs_or_paths = static_cast<BITCODE_BL>(vertices.size());
    path.polyline_paths = drawing_.Array(std::move(vertices));
    return path;
  }
  Dwg_HATCH_Path Edge(const Dwg_HATCH_PathSeg& segment) {
    Dwg_HATCH_Path path{};
    path.flag = 1;
    path.num_segs_or_paths = 1;
    path.segs = drawing_.Array<Dwg_HATCH_PathSeg>({segment});
    return path;
  }

  Dwg_Entity_HATCH hatch_{};
};

// An arc of the unit circle about the origin, from 0 to 95 degrees: ten steps of 9.5
// degrees. The bulge is the tangent of a quarter of the angle.
class ArcInHatchTest : public HatchKeysTest {
 protected:
  static constexpr double kDegree = 3.141592653589793 / 180;

  const double bulge_ = std::tan(95.0 / 4 * kDegree);
  const BITCODE_2RD start_{1, 0};
  const BITCODE_2RD end_{std::cos(95 * kDegree), std::sin(95 * kDegree)};
};

TEST_F(ArcInHatchTest, BulgedEdgesRunToTheNextVertex) {
  const std::string record =
      RecordOf(Polyline({{nullptr, start_, bulge_}, {nullptr, end_, 0}, {nullptr, {0, 0}, 0}}));
  EXPECT_THAT(record, HasSubstr(R"("loops":[[1,0,0.9862856015,0.1650476059,)"));
  EXPECT_THAT(record,
              HasSubstr(R"(,0.07845909573,0.9969173337,-0.08715574275,0.9961946981,0,0]])"));
  EXPECT_THAT(record, HasSubstr(R"("bulges":[0.4400105309,0,0]}])"));
}

TEST_F(ArcInHatchTest, NegativeBulgesRunClockwise) {
  EXPECT_THAT(
      RecordOf(Polyline({{nullptr, end_, -bulge_}, {nullptr, start_, 0}, {nullptr, {0, 0}, 0}})),
      AllOf(HasSubstr(R"("loops":[[-0.08715574275,0.9961946981,0.07845909573,0.9969173337,)"),
            HasSubstr(R"(,0.9862856015,0.1650476059,1,0,0,0]])")));
}

TEST_F(HatchKeysTest, BulgesThatAreNoNumbersAreStraight) {
  EXPECT_THAT(
      RecordOf(Polyline({{nullptr, {0, 1}, kNaN}, {nullptr, {1, 0}, 0}, {nullptr, {0, 0}, 0}})),
      HasSubstr(R"("loops":[[0,1,1,0,0,0]])"));
}

// Degree 1 through three points: 20 samples at equal steps, so that sample 0 is the
// first and sample 19 the last control point.
TEST_F(HatchKeysTest, SplinesAreSampledOnTheCurve) {
  Dwg_HATCH_PathSeg spline{};
  spline.curve_type = 4;
  spline.degree = 1;
  spline.num_knots = 5;
  spline.knots = drawing_.Array<double>({0, 0, 1, 2, 2});
  spline.num_control_points = 3;
  spline.control_points = drawing_.Array<Dwg_HATCH_ControlPoint>(
      {{nullptr, {0, 0}, 1}, {nullptr, {19, 0}, 1}, {nullptr, {19, 19}, 1}});
  const std::string record = RecordOf(Edge(spline));
  // 2 x 19 / 19 = 2 drawing units a step, along the first leg.
  EXPECT_THAT(record, HasSubstr(R"("loops":[[0,0,2,0,4,0,)"));
  EXPECT_THAT(record, HasSubstr(R"(,19,17,19,19]])"));
  EXPECT_THAT(record, HasSubstr(R"("edges":[{"type":"spline","degree":1,"periodic":false,)"
                                R"("knots":[0,0,1,2,2],"controlPoints":[[0,0],[19,0],[19,19]]}])"));
}

TEST_F(HatchKeysTest, WeightsThatWereNotStoredAreLeftOut) {
  Dwg_HATCH_PathSeg spline{};
  spline.curve_type = 4;
  spline.degree = 1;
  spline.is_rational = 1;
  spline.num_control_points = 3;
  spline.control_points = drawing_.Array<Dwg_HATCH_ControlPoint>(
      {{nullptr, {0, 0}, 0}, {nullptr, {1, 0}, 0}, {nullptr, {1, 1}, 0}});
  EXPECT_THAT(RecordOf(Edge(spline)), HasSubstr(R"("controlPoints":[[0,0],[1,0],[1,1]]}])"));
  spline.control_points = drawing_.Array<Dwg_HATCH_ControlPoint>(
      {{nullptr, {0, 0}, 1}, {nullptr, {1, 0}, 2}, {nullptr, {1, 1}, 1}});
  EXPECT_THAT(RecordOf(Edge(spline)),
              HasSubstr(R"("controlPoints":[[0,0],[1,0],[1,1]],"weights":[1,2,1]}])"));
}

TEST_F(HatchKeysTest, SplinesWithTooFewKnotsAreTheirControlPoints) {
  Dwg_HATCH_PathSeg spline{};
  spline.curve_type = 4;
  spline.degree = 3;
  spline.num_control_points = 3;
  spline.control_points = drawing_.Array<Dwg_HATCH_ControlPoint>(
      {{nullptr, {0, 0}, 1}, {nullptr, {1, 0}, 1}, {nullptr, {1, 1}, 1}});
  EXPECT_THAT(RecordOf(Edge(spline)), HasSubstr(R"("loops":[[0,0,1,0,1,1]])"));
}

TEST_F(HatchKeysTest, HasItsPatternLines) {
  hatch_.name = drawing_.Text("ANSI31");
  hatch_.pattern_type = 1;
  hatch_.angle = 0.5;
  hatch_.scale_spacing = 2;
  hatch_.style = 1;
  hatch_.is_associative = 1;
  Dwg_HATCH_DefLine line{};
  line.angle = 0.75;
  line.offset = {-1, 1};
  line.num_dashes = 2;
  line.dashes = drawing_.Array<double>({3, -1});
  hatch_.num_deflines = 1;
  hatch_.deflines = drawing_.Array<Dwg_HATCH_DefLine>({line});
  EXPECT_THAT(
      RecordOf(Polyline({{nullptr, {0, 0}, 0}, {nullptr, {1, 0}, 0}, {nullptr, {1, 1}, 0}})),
      HasSubstr(R"("pattern":{"name":"ANSI31","type":1,"angle":0.5,"scale":2,"double":false,)"
                R"("lines":[{"angle":0.75,"base":[0,0],"offset":[-1,1],"dashes":[3,-1]}]},)"
                R"("islandStyle":1,"associative":true,)"));
}

TEST_F(HatchKeysTest, HasTheColoursOfItsGradient) {
  hatch_.is_gradient_fill = 1;
  hatch_.gradient_name = drawing_.Text("LINEAR");
  hatch_.gradient_angle = 1.5;
  Dwg_HATCH_Color ofDwg{};
  ofDwg.color.rgb = 0xC2010203;
  Dwg_HATCH_Color ofText{};
  ofText.shift_value = 1;
  ofText.color.index = 5;
  ofText.color.rgb = 0x040506;
  hatch_.num_colors = 2;
  hatch_.colors = drawing_.Array<Dwg_HATCH_Color>({ofDwg, ofText});
  EXPECT_THAT(
      RecordOf(Polyline({{nullptr, {0, 0}, 0}, {nullptr, {1, 0}, 0}, {nullptr, {1, 1}, 0}})),
      HasSubstr(R"("gradient":{"name":"LINEAR","angle":1.5,"shift":0,"oneColor":false,"tint":0,)"
                R"("colors":[{"at":0,"color":{"r":1,"g":2,"b":3}},)"
                R"({"at":1,"color":{"r":4,"g":5,"b":6}}]})"));
}

// The reader of texts gives an index the word of a colour.
TEST_F(HatchKeysTest, OfAnMpolygonHaveTheColourOfItsFilling) {
  Dwg_HATCH_Color fill{};
  fill.color.rgb = 0xC3000005;
  hatch_.num_colors = 1;
  hatch_.colors = drawing_.Array<Dwg_HATCH_Color>({fill});
  hatch_.num_paths = 1;
  hatch_.paths = drawing_.Array<Dwg_HATCH_Path>(
      {Polyline({{nullptr, {0, 0}, 0}, {nullptr, {1, 0}, 0}, {nullptr, {1, 1}, 0}})});
  const std::string record = drawing_.RecordOf(DWG_TYPE_MPOLYGON, &EntityTio::HATCH, hatch_);
  EXPECT_THAT(record, HasSubstr(R"({"type":"MPOLYGON",)"));
  EXPECT_THAT(record, HasSubstr(R"("loops":[[0,0,1,0,1,1]])"));
  EXPECT_THAT(record, EndsWith(R"("fillColor":{"r":0,"g":0,"b":255}})"));
  hatch_.is_gradient_fill = 1;
  EXPECT_THAT(drawing_.RecordOf(DWG_TYPE_MPOLYGON, &EntityTio::HATCH, hatch_),
              Not(HasSubstr("fillColor")));
}

TEST_F(GeometryKeysTest, ReleasesBefore2000HaveNoLineweights) {
  drawing_.data().header.from_version = R_14;
  EXPECT_THAT(drawing_.RecordOf(DWG_TYPE_LINE, &EntityTio::LINE, Dwg_Entity_LINE{}),
              HasSubstr(R"("lw":"L")"));
}

class ImageKeysTest : public GeometryKeysTest {
 protected:
  ImageKeysTest() {
    drawing_.AddObject(DWG_TYPE_IMAGEDEF, &ObjectTio::IMAGEDEF, 0x20).file_path =
        drawing_.Text("a.png");
    image_.imagedef = drawing_.Ref(0x20);
    image_.pt0 = {100, 200, 0};
    image_.uvec = {2, 0, 0};
    image_.vvec = {0, 2, 0};
    image_.image_size = {10, 20};
  }

  Dwg_Entity_IMAGE image_{};
};

TEST_F(ImageKeysTest, HiddenImagesAreWrittenAndSayIt) {
  image_.brightness = 50;
  image_.contrast = 60;
  image_.fade = 10;
  EXPECT_THAT(drawing_.RecordOf(DWG_TYPE_IMAGE, &EntityTio::IMAGE, image_),
              AllOf(HasSubstr(R"("path":"a.png")"),
                    EndsWith(R"("shown":false,"brightness":50,"contrast":60,"fade":10})")));
}

// The corners of pixels (-0.5,-0.5) and (9.5,19.5) are those of the whole image: y counts
// downward from the top.
TEST_F(ImageKeysTest, AClipIsInPixelsAndInTheWorld) {
  image_.display_props = 1;
  image_.clipping = 1;
  image_.num_clip_verts = 2;
  image_.clip_verts = drawing_.Array<BITCODE_2RD>({{-0.5, -0.5}, {9.5, 19.5}});
  EXPECT_THAT(drawing_.RecordOf(DWG_TYPE_IMAGE, &EntityTio::IMAGE, image_),
              HasSubstr(R"("clip":{"on":true,"inverted":false,)"
                        R"("pixels":[[-0.5,-0.5],[9.5,-0.5],[9.5,19.5],[-0.5,19.5]],)"
                        R"("world":[[100,240,0],[120,240,0],[120,200,0],[100,200,0]]})"));
}

TEST_F(GeometryKeysTest, ARectangularWipeoutHasFourCorners) {
  Dwg_Entity_WIPEOUT wipeout{};
  wipeout.display_props = 1;
  wipeout.uvec = {4, 0, 0};
  wipeout.vvec = {0, 2, 0};
  wipeout.image_size = {1, 1};
  wipeout.num_clip_verts = 2;
  wipeout.clip_verts = drawing_.Array<BITCODE_2RD>({{-0.5, -0.5}, {0.5, 0.5}});
  EXPECT_THAT(drawing_.RecordOf(DWG_TYPE_WIPEOUT, &EntityTio::WIPEOUT, wipeout),
              HasSubstr(R"("verts":[[0,2],[4,2],[4,0],[0,0]])"));
}

class ViewportKeysTest : public GeometryKeysTest {
 protected:
  static constexpr Handle kSheet = 0x50;

  Dwg_Entity_VIEWPORT& AddViewport(Handle handle) {
    auto& viewport = drawing_.AddEntity(DWG_TYPE_VIEWPORT, &EntityTio::VIEWPORT, handle, kSheet);
    viewport.width = 10;
    viewport.height = 8;
    viewport.VIEWSIZE = 4;
    return viewport;
  }
};

TEST_F(ViewportKeysTest, AreNumberedInTheirOrderAndTheFirstIsTheSheets) {
  drawing_.AddBlock(kSheet, "*Paper_Space");
  AddViewport(0x51);
  AddViewport(0x52).status_flag = 0x20000 | 0x4000;
  EXPECT_THAT(drawing_.Record(drawing_.objects()[1]), IsEmpty());
  EXPECT_THAT(drawing_.Record(drawing_.objects()[2]),
              EndsWith(R"("id":2,"on":false,"scale":2,"lens":0,"locked":true,)"
                       R"("renderMode":0,"shadePlot":0})"));
}

TEST_F(ViewportKeysTest, TheFirstOfTheLayoutsListIsTheSheets) {
  drawing_.AddBlock(kSheet, "*Paper_Space");
  AddViewport(0x51);
  AddViewport(0x52);
  auto& layout = drawing_.AddObject(DWG_TYPE_LAYOUT, &ObjectTio::LAYOUT, 0x60);
  layout.block_header = drawing_.Ref(kSheet);
  layout.num_viewports = 1;
  layout.viewports = drawing_.Array<BITCODE_H>({drawing_.Ref(0x52)});
  EXPECT_THAT(drawing_.Record(drawing_.objects()[1]), HasSubstr(R"("id":2,)"));
  EXPECT_THAT(drawing_.Record(drawing_.objects()[2]), IsEmpty());
}

TEST_F(ViewportKeysTest, StoredNumbersCount) {
  drawing_.AddBlock(kSheet, "*Paper_Space");
  AddViewport(0x51).id = 7;
  EXPECT_THAT(drawing_.RecordOfLast(), HasSubstr(R"("id":7,)"));
}

}  // namespace
