#include "entities/polyline.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

#include "encode/json_text.hpp"
#include "entities/convert_entity.hpp"
#include "tests/support/test_drawing.hpp"
#include "tests/support/written.hpp"

namespace {

using testing::HasSubstr;

Dwg_Entity_LWPOLYLINE Through(std::vector<BITCODE_2RD>& points, std::vector<double>& bulges) {
  Dwg_Entity_LWPOLYLINE polyline{};
  polyline.num_points = static_cast<BITCODE_BL>(points.size());
  polyline.points = points.data();
  polyline.num_bulges = static_cast<BITCODE_BL>(bulges.size());
  polyline.bulges = bulges.empty() ? nullptr : bulges.data();
  return polyline;
}

TEST(LwPolyline, MissingBulgesAreZero) {
  std::vector<BITCODE_2RD> points = {{0, 0}, {1, 0}, {1, 1}};
  std::vector<double> bulges = {0.5};
  EXPECT_EQ(
      TestDrawing().RecordOf(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, Through(points, bulges)),
      R"({"type":"LWPOLYLINE","layer":"0","closed":false,)"
      R"("points":[[0,0],[1,0],[1,1]],"bulges":[0.5,0,0]})");
}

TEST(LwPolyline, BulgesAreAllZeroWithoutAnArray) {
  std::vector<BITCODE_2RD> points = {{0, 0}, {1, 0}};
  std::vector<double> bulges;
  Dwg_Entity_LWPOLYLINE polyline = Through(points, bulges);
  polyline.num_bulges = 2;
  EXPECT_THAT(TestDrawing().RecordOf(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, polyline),
              HasSubstr(R"("bulges":[0,0]})"));
}

TEST(LwPolyline, BulgesBeyondThePointsAreLeftOut) {
  std::vector<BITCODE_2RD> points = {{0, 0}};
  std::vector<double> bulges = {0.25, 0.5, 0.75};
  EXPECT_THAT(
      TestDrawing().RecordOf(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, Through(points, bulges)),
      HasSubstr(R"("bulges":[0.25]})"));
}

TEST(LwPolyline, ClosedOneDoesNotRepeatItsFirstPoint) {
  std::vector<BITCODE_2RD> points = {{0, 0}, {1, 0}, {1, 1}};
  std::vector<double> bulges;
  Dwg_Entity_LWPOLYLINE polyline = Through(points, bulges);
  polyline.flag = 512;
  EXPECT_THAT(TestDrawing().RecordOf(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, polyline),
              HasSubstr(R"("closed":true,"points":[[0,0],[1,0],[1,1]],)"));
}

TEST(LwPolyline, OtherFlagsDoNotCloseIt) {
  std::vector<BITCODE_2RD> points = {{0, 0}};
  std::vector<double> bulges;
  Dwg_Entity_LWPOLYLINE polyline = Through(points, bulges);
  polyline.flag = static_cast<BITCODE_BS>(0xFFFF & ~512);
  EXPECT_THAT(TestDrawing().RecordOf(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, polyline),
              HasSubstr(R"("closed":false)"));
}

TEST(LwPolyline, OneWithoutPointsIsNotWritten) {
  EXPECT_EQ(
      TestDrawing().RecordOf(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, Dwg_Entity_LWPOLYLINE{}),
      "");
}

TEST(LwPolyline, CountWithoutAnArrayIsNoPoints) {
  Dwg_Entity_LWPOLYLINE polyline{};
  polyline.num_points = 4'000'000'000;
  EXPECT_EQ(TestDrawing().RecordOf(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, polyline), "");
}

TEST(LwPolyline, NonFiniteValuesAreWrittenAsZero) {
  std::vector<BITCODE_2RD> points = {{std::numeric_limits<double>::infinity(), 1}};
  std::vector<double> bulges = {std::numeric_limits<double>::quiet_NaN()};
  EXPECT_THAT(
      TestDrawing().RecordOf(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, Through(points, bulges)),
      HasSubstr(R"("points":[[0,1]],"bulges":[0]})"));
}

class VertexWalkTest : public testing::Test {
 protected:
  std::size_t AddPolyline2d(unsigned flag = 0) {
    drawing_.AddEntity(DWG_TYPE_POLYLINE_2D, &EntityTio::POLYLINE_2D).flag =
        static_cast<BITCODE_BS>(flag);
    return drawing_.last().index;
  }

  std::size_t AddPolyline3d(unsigned flag = 0) {
    drawing_.AddEntity(DWG_TYPE_POLYLINE_3D, &EntityTio::POLYLINE_3D).flag =
        static_cast<BITCODE_RC>(flag);
    return drawing_.last().index;
  }

  void AddVertex2d(double x, double y, double bulge = 0, unsigned flag = 0) {
    auto& vertex = drawing_.AddEntity(DWG_TYPE_VERTEX_2D, &EntityTio::VERTEX_2D);
    vertex.point = {x, y, 9};
    vertex.bulge = bulge;
    vertex.flag = static_cast<BITCODE_RC>(flag);
  }

  void AddVertex3d(double x, double y, double z, unsigned flag = 0) {
    auto& vertex = drawing_.AddEntity(DWG_TYPE_VERTEX_3D, &EntityTio::VERTEX_3D);
    vertex.point = {x, y, z};
    vertex.flag = static_cast<BITCODE_RC>(flag);
  }

  void AddEnd() { drawing_.AddBareEntity(DWG_TYPE_SEQEND); }

  std::string RecordOf(std::size_t index) {
    EntityContext context = drawing_.Context();
    return Written(convertEntity, drawing_.data().object[index], context);
  }

  TestDrawing drawing_;
};

TEST_F(VertexWalkTest, TwoDimensionalPolylineIsWrittenThroughTheObjectsThatFollow) {
  const auto polyline = AddPolyline2d(1);
  AddVertex2d(1, 2, 0.5);
  AddVertex2d(3, 4);
  AddEnd();
  AddVertex2d(5, 6);
  EXPECT_EQ(RecordOf(polyline), R"({"type":"POLYLINE_2D","layer":"0","closed":true,)"
                                R"("points":[[1,2],[3,4]],"bulges":[0.5,0]})");
}

TEST_F(VertexWalkTest, EndMarkerDirectlyBehindLeavesNothing) {
  const auto polyline = AddPolyline2d();
  AddEnd();
  AddVertex2d(1, 2);
  EXPECT_EQ(RecordOf(polyline), "");
}

TEST_F(VertexWalkTest, ObjectThatIsNoEntityEndsTheWalk) {
  const auto polyline = AddPolyline2d();
  drawing_.AddBareObject(DWG_TYPE_DICTIONARY);
  AddVertex2d(1, 2);
  EXPECT_EQ(RecordOf(polyline), "");
}

TEST_F(VertexWalkTest, VertexOfTheWrongSupertypeEndsTheWalk) {
  const auto polyline = AddPolyline2d();
  AddVertex2d(1, 2);
  AddVertex2d(3, 4);
  drawing_.last().supertype = DWG_SUPERTYPE_OBJECT;
  AddVertex2d(5, 6);
  EXPECT_THAT(RecordOf(polyline), HasSubstr(R"("points":[[1,2]],)"));
}

TEST_F(VertexWalkTest, OtherEntitiesBetweenTheVerticesAreSteppedOver) {
  const auto polyline = AddPolyline2d();
  AddVertex2d(1, 2);
  drawing_.AddEntity(DWG_TYPE_LINE, &EntityTio::LINE);
  drawing_.AddBareEntity(DWG_TYPE_VERTEX_2D);
  AddVertex3d(7, 8, 9);
  AddVertex2d(3, 4);
  EXPECT_THAT(RecordOf(polyline), HasSubstr(R"("points":[[1,2],[3,4]],"bulges":[0,0]})"));
}

TEST_F(VertexWalkTest, PolylineWithoutAnEndMarkerTakesTheVerticesOfTheNextOne) {
  const auto first = AddPolyline2d();
  AddVertex2d(1, 2);
  AddPolyline2d();
  AddVertex2d(3, 4);
  AddEnd();
  EXPECT_THAT(RecordOf(first), HasSubstr(R"("points":[[1,2],[3,4]])"));
}

TEST_F(VertexWalkTest, FrameControlPointsAreLeftOut) {
  const auto polyline = AddPolyline2d();
  AddVertex2d(1, 2, 0, 16);
  AddVertex2d(3, 4, 0.25, 8);
  AddVertex2d(5, 6, 0, 16 | 1);
  EXPECT_THAT(RecordOf(polyline), HasSubstr(R"("points":[[3,4]],"bulges":[0.25]})"));
}

TEST_F(VertexWalkTest, PolylineOfFrameControlPointsOnlyIsDrawnThroughThem) {
  const auto polyline = AddPolyline2d();
  AddVertex2d(1, 2, 0.5, 16);
  AddVertex2d(5, 6, 0, 16);
  EXPECT_THAT(RecordOf(polyline), HasSubstr(R"("points":[[1,2],[5,6]],"bulges":[0.5,0]})"));
}

TEST_F(VertexWalkTest, ThreeDimensionalPolylineKeepsEveryVertexWithItsHeight) {
  const auto polyline = AddPolyline3d(1);
  AddVertex3d(1, 2, 3);
  AddVertex3d(4, 5, 6, 16);
  AddVertex2d(7, 8);
  EXPECT_EQ(RecordOf(polyline),
            R"({"type":"POLYLINE_3D","layer":"0","closed":true,"points":[[1,2,3],[4,5,6]]})");
}

TEST_F(VertexWalkTest, OnlyTheLowestFlagBitClosesAPolyline) {
  const auto flat = AddPolyline2d(0xFFFE);
  AddVertex2d(1, 2);
  AddEnd();
  const auto spatial = AddPolyline3d(0xFE);
  AddVertex3d(1, 2, 3);
  EXPECT_THAT(RecordOf(flat), HasSubstr(R"("closed":false)"));
  EXPECT_THAT(RecordOf(spatial), HasSubstr(R"("closed":false)"));
}

TEST_F(VertexWalkTest, LastObjectOfTheDrawingHasNoVertices) {
  AddVertex2d(1, 2);
  const auto flat = AddPolyline2d();
  EXPECT_EQ(RecordOf(flat), "");
  const auto spatial = AddPolyline3d();
  EXPECT_EQ(RecordOf(spatial), "");
}

TEST_F(VertexWalkTest, PolylineWhoseIndexLiesOutsideTheDrawingHasNoVertices) {
  const auto polyline = AddPolyline2d();
  AddVertex2d(1, 2);
  drawing_.data().object[polyline].index = 0xFFFFFFFF;
  EXPECT_EQ(RecordOf(polyline), "");
  drawing_.data().object[polyline].index = 1000;
  EXPECT_EQ(RecordOf(polyline), "");
}

// What the walk must give, stepping from object to object with no memory.
std::string NaiveRecord(const Dwg_Data& dwg, const Dwg_Object& polyline) {
  std::string points;
  std::string bulges;
  std::string framePoints;
  std::string frameBulges;
  const bool isFlat = polyline.fixedtype == DWG_TYPE_POLYLINE_2D;
  for (std::size_t i = polyline.index + 1; i < dwg.num_objects; ++i) {
    const Dwg_Object& object = dwg.object[i];
    if (object.supertype != DWG_SUPERTYPE_ENTITY || object.fixedtype == DWG_TYPE_SEQEND) {
      break;
    }
    if (isFlat && object.fixedtype == DWG_TYPE_VERTEX_2D &&
        object.tio.entity->tio.VERTEX_2D != nullptr) {
      const Dwg_Entity_VERTEX_2D& vertex = *object.tio.entity->tio.VERTEX_2D;
      const bool isFrame = (vertex.flag & 16) != 0;
      (isFrame ? framePoints : points) += ",[" + Written(AppendNumber, vertex.point.x) + "," +
                                          Written(AppendNumber, vertex.point.y) + "]";
      (isFrame ? frameBulges : bulges) += "," + Written(AppendNumber, vertex.bulge);
    } else if (!isFlat && object.fixedtype == DWG_TYPE_VERTEX_3D &&
               object.tio.entity->tio.VERTEX_3D != nullptr) {
      const BITCODE_3BD& point = object.tio.entity->tio.VERTEX_3D->point;
      points += ",[" + Written(AppendNumber, point.x) + "," + Written(AppendNumber, point.y) + "," +
                Written(AppendNumber, point.z) + "]";
    }
  }
  if (points.empty()) {
    points = framePoints;
    bulges = frameBulges;
  }
  if (points.empty()) {
    return {};
  }
  return isFlat ? R"({"type":"POLYLINE_2D","layer":"0","closed":false,"points":[)" +
                      points.substr(1) + R"(],"bulges":[)" + bulges.substr(1) + "]}"
                : R"({"type":"POLYLINE_3D","layer":"0","closed":false,"points":[)" +
                      points.substr(1) + "]}";
}

// The walks share an index; no order of calls may show it.
TEST_F(VertexWalkTest, SharedIndexNeverChangesARecord) {
  std::mt19937 random(20240607);
  std::size_t written = 0;
  for (int round = 0; round < 60; ++round) {
    TestDrawing drawing;
    std::vector<std::size_t> polylines;
    // Some drawings end hardly any walk, others nearly every one.
    const std::size_t enders = 1 + random() % 6;
    for (int i = 0; i < 120; ++i) {
      const std::size_t kind = random() % (14 + enders);
      if (kind < 3) {
        drawing.AddEntity(DWG_TYPE_POLYLINE_2D, &EntityTio::POLYLINE_2D);
        polylines.push_back(drawing.last().index);
      } else if (kind < 5) {
        drawing.AddEntity(DWG_TYPE_POLYLINE_3D, &EntityTio::POLYLINE_3D);
        polylines.push_back(drawing.last().index);
      } else if (kind < 9) {
        auto& vertex = drawing.AddEntity(DWG_TYPE_VERTEX_2D, &EntityTio::VERTEX_2D);
        vertex.point = {static_cast<double>(i), static_cast<double>(random() % 100), 0};
        vertex.flag = static_cast<BITCODE_RC>(random() % 3 == 0 ? 16 : 0);
      } else if (kind < 12) {
        drawing.AddEntity(DWG_TYPE_VERTEX_3D, &EntityTio::VERTEX_3D).point = {
            static_cast<double>(i), 1, 2};
      } else if (kind == 12) {
        drawing.AddBareEntity(DWG_TYPE_VERTEX_2D);
      } else if (kind == 13) {
        drawing.AddEntity(DWG_TYPE_LINE, &EntityTio::LINE);
      } else if (kind % 2 == 0) {
        drawing.AddBareEntity(DWG_TYPE_SEQEND);
      } else {
        drawing.AddBareObject(DWG_TYPE_DICTIONARY);
      }
    }
    // One context for all calls, which come in any order and repeat.
    EntityContext context = drawing.Context();
    for (std::size_t call = 0; call < polylines.size() * 2; ++call) {
      const auto& object = drawing.data().object[polylines[random() % polylines.size()]];
      const std::string expected = NaiveRecord(drawing.data(), object);
      ASSERT_EQ(Written(convertEntity, object, context), expected)
          << "round " << round << ", object " << object.index;
      written += expected.empty() ? 0U : 1U;
    }
  }
  EXPECT_GT(written, 1000U);
}

}  // namespace
