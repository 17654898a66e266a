#include "entities/simple_curves.hpp"

#include <gtest/gtest.h>

#include <limits>

TEST(SimpleCurves, LineIsWrittenWithItsEndPoints) {
  Dwg_Entity_LINE line{};
  line.end = {10, 5, 7};
  EXPECT_EQ(LineRecord(line, "0"),
            R"({"type":"LINE","layer":"0","startX":0,"startY":0,"endX":10,"endY":5})");
}

TEST(SimpleCurves, NonFiniteCoordinateIsWrittenAsZero) {
  Dwg_Entity_POINT point{};
  point.x = std::numeric_limits<double>::quiet_NaN();
  point.y = -std::numeric_limits<double>::infinity();
  EXPECT_EQ(PointRecord(point, "0"), R"({"type":"POINT","layer":"0","x":0,"y":0})");
}
