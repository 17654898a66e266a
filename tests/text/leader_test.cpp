#include "text/leader.hpp"

#include <gtest/gtest.h>

#include "tests/support/test_drawing.hpp"

#include <vector>

TEST(LeaderRecords, PointsArrowAndSize) {
  std::vector<BITCODE_3BD> points = {{1, 2, 9}, {3, 4, 9}, {5.5, -6, 9}};
  Dwg_Entity_LEADER leader{};
  leader.num_points = 3;
  leader.points = points.data();
  leader.arrowhead_on = 1;
  leader.dimasz = 0.18;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_LEADER, &EntityTio::LEADER, leader),
            R"({"type":"LEADER","layer":"0","points":[[1,2],[3,4],[5.5,-6]],"arrowOn":true,)"
            R"("arrowSize":0.18})");
}

TEST(LeaderRecords, ArrowMayBeOff) {
  std::vector<BITCODE_3BD> points(2);
  Dwg_Entity_LEADER leader{};
  leader.num_points = 2;
  leader.points = points.data();
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_LEADER, &EntityTio::LEADER, leader, "L"),
            R"({"type":"LEADER","layer":"L","points":[[0,0],[0,0]],"arrowOn":false,)"
            R"("arrowSize":0})");
}

TEST(LeaderRecords, FewerThanTwoPointsAreNoRecord) {
  std::vector<BITCODE_3BD> points(2);
  Dwg_Entity_LEADER leader{};
  leader.points = points.data();
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_LEADER, &EntityTio::LEADER, leader), "");
  leader.num_points = 1;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_LEADER, &EntityTio::LEADER, leader), "");
}

TEST(LeaderRecords, MissingPointArrayIsNoRecord) {
  Dwg_Entity_LEADER leader{};
  leader.num_points = 2;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_LEADER, &EntityTio::LEADER, leader), "");
}
