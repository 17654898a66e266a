#include "entities/convert_entity.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "tests/support/test_drawing.hpp"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class ConvertEntity : public testing::Test {
 protected:
  std::string Convert(const Dwg_Object& object) {
    EntityContext context = drawing_.Context();
    return convertEntity(object, context);
  }

  Dwg_Entity_POINT& AddPoint(Handle handle = 0, Handle owner = 0) {
    return drawing_.AddEntity(DWG_TYPE_POINT, &EntityTio::POINT, handle, owner);
  }

  TestDrawing drawing_;
};

// The types that have a writer.
constexpr std::array<DWG_OBJECT_TYPE, 28> kHandledTypes = {
    DWG_TYPE_TEXT,
    DWG_TYPE_ATTRIB,
    DWG_TYPE_ATTDEF,
    DWG_TYPE_INSERT,
    DWG_TYPE_MINSERT,
    DWG_TYPE_POLYLINE_2D,
    DWG_TYPE_POLYLINE_3D,
    DWG_TYPE_ARC,
    DWG_TYPE_CIRCLE,
    DWG_TYPE_LINE,
    DWG_TYPE_DIMENSION_LINEAR,
    DWG_TYPE_DIMENSION_ALIGNED,
    DWG_TYPE_DIMENSION_RADIUS,
    DWG_TYPE_POINT,
    DWG_TYPE_SOLID,
    DWG_TYPE_VIEWPORT,
    DWG_TYPE_ELLIPSE,
    DWG_TYPE_SPLINE,
    DWG_TYPE_RAY,
    DWG_TYPE_XLINE,
    DWG_TYPE_MTEXT,
    DWG_TYPE_LEADER,
    DWG_TYPE_LWPOLYLINE,
    DWG_TYPE_HATCH,
    DWG_TYPE_IMAGE,
    DWG_TYPE_MULTILEADER,
    DWG_TYPE_PDFUNDERLAY,
    DWG_TYPE_WIPEOUT,
};

constexpr const char* kOrigin = R"({"type":"POINT","layer":"0","x":0,"y":0})";

}  // namespace

TEST_F(ConvertEntity, EntityWithoutDataGivesNothing) {
  Dwg_Object& object = drawing_.AddBareEntity(DWG_TYPE__3DFACE);
  object.name = drawing_.Text("3DFACE");
  object.tio.entity = nullptr;
  EXPECT_EQ(Convert(object), "");
  EXPECT_THAT(drawing_.counts, IsEmpty());
}

TEST_F(ConvertEntity, HandledTypeWithoutItsDataGivesNothingAndIsNotCounted) {
  for (const DWG_OBJECT_TYPE type : kHandledTypes) {
    Dwg_Object& object = drawing_.AddBareEntity(type);
    object.name = drawing_.Text("NAMED");
    EXPECT_EQ(Convert(object), "") << type;
  }
  EXPECT_THAT(drawing_.counts, IsEmpty());
  EXPECT_THAT(drawing_.warnings, IsEmpty());
}

TEST_F(ConvertEntity, SimpleCurvesReachTheirWriters) {
  drawing_.AddEntity(DWG_TYPE_LINE, &EntityTio::LINE);
  EXPECT_EQ(Convert(drawing_.last()).find(R"({"type":"LINE",)"), 0U);
  drawing_.AddEntity(DWG_TYPE_RAY, &EntityTio::RAY);
  EXPECT_EQ(Convert(drawing_.last()).find(R"({"type":"RAY",)"), 0U);
  drawing_.AddEntity(DWG_TYPE_XLINE, &EntityTio::XLINE);
  EXPECT_EQ(Convert(drawing_.last()).find(R"({"type":"XLINE",)"), 0U);
  drawing_.AddEntity(DWG_TYPE_CIRCLE, &EntityTio::CIRCLE);
  EXPECT_EQ(Convert(drawing_.last()).find(R"({"type":"CIRCLE",)"), 0U);
  drawing_.AddEntity(DWG_TYPE_ARC, &EntityTio::ARC);
  EXPECT_EQ(Convert(drawing_.last()).find(R"({"type":"ARC",)"), 0U);
  drawing_.AddEntity(DWG_TYPE_ELLIPSE, &EntityTio::ELLIPSE);
  EXPECT_EQ(Convert(drawing_.last()).find(R"({"type":"ELLIPSE",)"), 0U);
  AddPoint();
  EXPECT_EQ(Convert(drawing_.last()), kOrigin);
}

TEST_F(ConvertEntity, DispatchGoesByTheFixedTypeOnly) {
  AddPoint();
  drawing_.last().type = 501;
  drawing_.last().name = drawing_.Text("SOMETHING");
  EXPECT_EQ(Convert(drawing_.last()), kOrigin);
}

TEST_F(ConvertEntity, LayerIsZeroWithoutALayerReference) {
  AddPoint();
  EXPECT_EQ(Convert(drawing_.last()), kOrigin);
}

TEST_F(ConvertEntity, LayerIsZeroForAnUnknownLayer) {
  drawing_.tables.layerNames[0x10] = "Walls";
  AddPoint();
  drawing_.lastEntity().layer = drawing_.Ref(0x11);
  EXPECT_EQ(Convert(drawing_.last()), kOrigin);
}

TEST_F(ConvertEntity, LayerNameComesFromTheTable) {
  drawing_.tables.layerNames[0x10] = "W \"1\"";
  AddPoint();
  drawing_.lastEntity().layer = drawing_.Ref(0x10);
  EXPECT_EQ(Convert(drawing_.last()), R"({"type":"POINT","layer":"W \"1\"","x":0,"y":0})");
}

TEST_F(ConvertEntity, UnsupportedTypesAreCountedByName) {
  Dwg_Object& face = drawing_.AddBareEntity(DWG_TYPE__3DFACE);
  face.name = drawing_.Text("3DFACE");
  EXPECT_EQ(Convert(face), "");
  EXPECT_EQ(Convert(face), "");
  EXPECT_EQ(Convert(face), "");
  Dwg_Object& frame = drawing_.AddBareEntity(DWG_TYPE_OLE2FRAME);
  frame.name = drawing_.Text("OLE2FRAME");
  EXPECT_EQ(Convert(frame), "");
  EXPECT_THAT(drawing_.counts, ElementsAre(Pair("3DFACE", 3U), Pair("OLE2FRAME", 1U)));
  EXPECT_THAT(drawing_.warnings, IsEmpty());
}

TEST_F(ConvertEntity, UnsupportedTypeWithoutANameIsUnknown) {
  EXPECT_EQ(Convert(drawing_.AddBareEntity(DWG_TYPE_UNUSED)), "");
  EXPECT_THAT(drawing_.counts, ElementsAre(Pair("UNKNOWN", 1U)));
}

TEST_F(ConvertEntity, BlockMarkersAreDroppedSilently) {
  Dwg_Object& begin = drawing_.AddBareEntity(DWG_TYPE_BLOCK);
  begin.name = drawing_.Text("BLOCK");
  EXPECT_EQ(Convert(begin), "");
  Dwg_Object& end = drawing_.AddBareEntity(DWG_TYPE_ENDBLK);
  end.name = drawing_.Text("ENDBLK");
  EXPECT_EQ(Convert(end), "");
  EXPECT_THAT(drawing_.counts, IsEmpty());
}

TEST_F(ConvertEntity, BlockMarkersGoByTheirNameNotTheirType) {
  Dwg_Object& renamed = drawing_.AddBareEntity(DWG_TYPE_BLOCK);
  renamed.name = drawing_.Text("BLOCK2");
  EXPECT_EQ(Convert(renamed), "");
  EXPECT_THAT(drawing_.counts, ElementsAre(Pair("BLOCK2", 1U)));
}

TEST_F(ConvertEntity, InvisibleEntityIsWritten) {
  AddPoint();
  drawing_.lastEntity().invisible = 1;
  EXPECT_EQ(Convert(drawing_.last()), kOrigin);
}

TEST_F(ConvertEntity, ListJoinsRecordsWithCommasAndAddsTheirColor) {
  std::string out;
  EntityList list{out};
  EntityContext context = drawing_.Context();
  AddPoint();
  drawing_.lastEntity().color.index = 256;
  drawing_.lastEntity().linewt = 29;
  AppendEntity(list, drawing_.last(), context);
  AppendEntity(list, drawing_.AddBareEntity(DWG_TYPE_LINE), context);
  AddPoint().x = 1;
  drawing_.lastEntity().linewt = 5;
  AppendEntity(list, drawing_.last(), context);
  EXPECT_EQ(out, R"({"type":"POINT","layer":"0","x":0,"y":0,"color":"L","lw":"L"},)"
                 R"({"type":"POINT","layer":"0","x":1,"y":0,"color":"K","lw":18})");
}

TEST_F(ConvertEntity, DroppedRecordLeavesTheListUnstarted) {
  std::string out;
  EntityList list{out};
  EntityContext context = drawing_.Context();
  AppendEntity(list, drawing_.AddBareEntity(DWG_TYPE_LINE), context);
  EXPECT_TRUE(list.first);
  EXPECT_EQ(out, "");
}

TEST_F(ConvertEntity, ListWithDebugColorsAddsThem) {
  std::string out;
  EntityList list{out, true};
  EntityContext context = drawing_.Context();
  AddPoint();
  AppendEntity(list, drawing_.last(), context);
  EXPECT_EQ(out, R"({"type":"POINT","layer":"0","x":0,"y":0,"color":"K","lw":0,)"
                 R"("_dbg":{"color_index":0,"color_alpha_type":0,"color_alpha":0,)"
                 R"("color_alpha_raw":0}})");
}

TEST_F(ConvertEntity, OwnedEntitiesAreAppendedInObjectOrder) {
  drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, 0x50);
  const Dwg_Object& block = drawing_.last();
  AddPoint(0x02, 0x50).x = 1;
  AddPoint(0x03, 0x51).x = 2;
  AddPoint(0x01, 0x50).x = 3;
  drawing_.Prepass();
  std::string out;
  EntityList list{out};
  EntityContext context = drawing_.Context();
  AppendOwnedEntities(list, block, context);
  EXPECT_EQ(out, R"({"type":"POINT","layer":"0","x":1,"y":0,"color":"K","lw":0},)"
                 R"({"type":"POINT","layer":"0","x":3,"y":0,"color":"K","lw":0})");
}

TEST_F(ConvertEntity, OwnerWithoutEntitiesAppendsNothing) {
  drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, 0x50);
  drawing_.Prepass();
  std::string out;
  EntityList list{out};
  EntityContext context = drawing_.Context();
  AppendOwnedEntities(list, drawing_.last(), context);
  EXPECT_EQ(out, "");
  EXPECT_TRUE(list.first);
}

TEST_F(ConvertEntity, OnlyBlockReferencesBringTheirAttributes) {
  for (const DWG_OBJECT_TYPE type : {DWG_TYPE_INSERT, DWG_TYPE_MINSERT, DWG_TYPE__3DFACE}) {
    TestDrawing drawing;
    drawing.AddBareEntity(type, 0x60);
    const Dwg_Object& owner = drawing.last();
    drawing.AddEntity(DWG_TYPE_POINT, &EntityTio::POINT, 0x61, 0x60);
    drawing.Prepass();
    std::string out;
    EntityList list{out};
    EntityContext context = drawing.Context();
    AppendEntityWithAttributes(list, owner, context);
    EXPECT_EQ(out.empty(), type == DWG_TYPE__3DFACE) << type;
  }
}
