#include "entities/wipeout.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "tests/support/test_drawing.hpp"

namespace {

// A shown wipeout whose unit frame is 4 wide and 2 high at (10, 20).
Dwg_Entity_WIPEOUT Framed(std::vector<BITCODE_2RD>& vertices) {
  Dwg_Entity_WIPEOUT wipeout{};
  wipeout.pt0 = {10, 20, 0};
  wipeout.uvec = {4, 0, 0};
  wipeout.vvec = {0, 2, 0};
  wipeout.display_props = 7;
  wipeout.num_clip_verts = static_cast<BITCODE_BL>(vertices.size());
  wipeout.clip_verts = vertices.data();
  return wipeout;
}

TEST(Wipeout, FrameIsCentredWithItsVAxisDownward) {
  std::vector<BITCODE_2RD> vertices = {{-0.5, 0.5}, {0.5, 0.5}, {0.5, -0.5}, {0, 0}};
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_WIPEOUT, &EntityTio::WIPEOUT, Framed(vertices)),
            R"({"type":"WIPEOUT","layer":"0","verts":[[10,20],[14,20],[14,22],[12,21]]})");
}

TEST(Wipeout, SlantedFrameMixesBothVectors) {
  std::vector<BITCODE_2RD> vertices = {{0, 0}};
  Dwg_Entity_WIPEOUT wipeout = Framed(vertices);
  wipeout.uvec = {1, 3, 0};
  wipeout.vvec = {-2, 1, 0};
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_WIPEOUT, &EntityTio::WIPEOUT, wipeout),
            R"({"type":"WIPEOUT","layer":"0","verts":[[9.5,22]]})");
}

TEST(Wipeout, ImageSizePlaysNoPart) {
  std::vector<BITCODE_2RD> vertices = {{0.5, -0.5}};
  Dwg_Entity_WIPEOUT wipeout = Framed(vertices);
  wipeout.image_size = {640, 480};
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_WIPEOUT, &EntityTio::WIPEOUT, wipeout),
            R"({"type":"WIPEOUT","layer":"0","verts":[[14,22]]})");
}

TEST(Wipeout, RectangleOfTwoCornersStaysTwoPoints) {
  std::vector<BITCODE_2RD> vertices = {{-0.5, -0.5}, {0.5, 0.5}};
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_WIPEOUT, &EntityTio::WIPEOUT, Framed(vertices)),
            R"({"type":"WIPEOUT","layer":"0","verts":[[10,22],[14,20]]})");
}

TEST(Wipeout, HiddenOneIsNotWritten) {
  std::vector<BITCODE_2RD> vertices = {{0, 0}};
  Dwg_Entity_WIPEOUT wipeout = Framed(vertices);
  wipeout.display_props = 6;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_WIPEOUT, &EntityTio::WIPEOUT, wipeout), "");
}

TEST(Wipeout, OneWithoutClipVerticesIsNotWritten) {
  std::vector<BITCODE_2RD> vertices;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_WIPEOUT, &EntityTio::WIPEOUT, Framed(vertices)), "");
}

TEST(Wipeout, CountWithoutAnArrayIsNoVertices) {
  std::vector<BITCODE_2RD> vertices;
  Dwg_Entity_WIPEOUT wipeout = Framed(vertices);
  wipeout.clip_verts = nullptr;
  wipeout.num_clip_verts = 1'000'000'000;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_WIPEOUT, &EntityTio::WIPEOUT, wipeout), "");
}

TEST(Wipeout, NonFiniteVertexIsWrittenAsZero) {
  std::vector<BITCODE_2RD> vertices = {{std::numeric_limits<double>::infinity(), 0.5}};
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_WIPEOUT, &EntityTio::WIPEOUT, Framed(vertices)),
            R"({"type":"WIPEOUT","layer":"0","verts":[[0,0]]})");
}

}  // namespace
