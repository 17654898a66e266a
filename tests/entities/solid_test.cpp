#include "entities/solid.hpp"

#include <gtest/gtest.h>

#include "tests/support/test_drawing.hpp"

#include <limits>

namespace {

Dwg_Entity_SOLID Corners(BITCODE_2RD third, BITCODE_2RD fourth) {
  Dwg_Entity_SOLID solid{};
  solid.corner1 = {0, 0};
  solid.corner2 = {4, 0};
  solid.corner3 = third;
  solid.corner4 = fourth;
  return solid;
}

TEST(Solid, ZigzagCornersAreWrittenInOutlineOrder) {
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_SOLID, &EntityTio::SOLID, Corners({0, 3}, {4, 3})),
            R"({"type":"SOLID","layer":"0","pts":[[0,0],[4,0],[4,3],[0,3]]})");
}

TEST(Solid, EqualThirdAndFourthCornerMakeATriangle) {
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_SOLID, &EntityTio::SOLID, Corners({2, 3}, {2, 3})),
            R"({"type":"SOLID","layer":"0","pts":[[0,0],[4,0],[2,3]]})");
}

TEST(Solid, CornersCloserThanTheLimitMakeATriangle) {
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_SOLID, &EntityTio::SOLID, Corners({0, 3}, {9e-11, 3})),
            R"({"type":"SOLID","layer":"0","pts":[[0,0],[4,0],[0,3]]})");
}

TEST(Solid, CornersAtTheLimitStayApart) {
  EXPECT_EQ(
      TestDrawing().RecordOf(DWG_TYPE_SOLID, &EntityTio::SOLID, Corners({0, 3}, {1.5e-10, 3})),
      R"({"type":"SOLID","layer":"0","pts":[[0,0],[4,0],[1.5e-10,3],[0,3]]})");
}

TEST(Solid, OtherCoincidingCornersAreKept) {
  Dwg_Entity_SOLID solid = Corners({0, 3}, {4, 3});
  solid.corner2 = {0, 0};
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_SOLID, &EntityTio::SOLID, solid),
            R"({"type":"SOLID","layer":"0","pts":[[0,0],[0,0],[4,3],[0,3]]})");
}

TEST(Solid, NonFiniteCornersNeverCoincide) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(
      TestDrawing().RecordOf(DWG_TYPE_SOLID, &EntityTio::SOLID, Corners({kNaN, 3}, {kNaN, 3})),
      R"({"type":"SOLID","layer":"0","pts":[[0,0],[4,0],[0,3],[0,3]]})");
}

}  // namespace
