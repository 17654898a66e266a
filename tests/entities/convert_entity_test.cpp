#include "entities/convert_entity.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/test_drawing.hpp"
#include "tests/support/written.hpp"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using testing::StartsWith;

class ConvertEntityTest : public testing::Test {
 protected:
  std::string Convert(const Dwg_Object& object) {
    EntityContext context = drawing_.Context();
    return Written(convertEntity, object, context);
  }

  TestDrawing drawing_;
};

TEST_F(ConvertEntityTest, ObjectWithoutEntityDataIsNeitherWrittenNorCounted) {
  Dwg_Object& object = drawing_.AddBareEntity(DWG_TYPE_LINE);
  object.tio.entity = nullptr;
  EXPECT_EQ(Convert(object), "");
  object.fixedtype = DWG_TYPE__3DFACE;
  EXPECT_EQ(Convert(object), "");
  EXPECT_THAT(drawing_.counts, IsEmpty());
}

TEST_F(ConvertEntityTest, ObjectOfTheWrongSupertypeIsNeitherWrittenNorCounted) {
  Dwg_Object& object = drawing_.AddBareObject(DWG_TYPE_LINE);
  EXPECT_EQ(Convert(object), "");
  object.fixedtype = DWG_TYPE__3DFACE;
  EXPECT_EQ(Convert(object), "");
  EXPECT_THAT(drawing_.counts, IsEmpty());
}

constexpr DWG_OBJECT_TYPE kHandledTypes[] = {DWG_TYPE_TEXT,
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
                                             DWG_TYPE_WIPEOUT};

class HandledTypeTest : public ConvertEntityTest,
                        public testing::WithParamInterface<DWG_OBJECT_TYPE> {};

TEST_P(HandledTypeTest, WithoutItsDataIsNeitherWrittenNorReported) {
  EXPECT_EQ(Convert(drawing_.AddBareEntity(GetParam())), "");
  EXPECT_THAT(drawing_.counts, IsEmpty());
  EXPECT_THAT(drawing_.warnings, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(EveryType, HandledTypeTest, testing::ValuesIn(kHandledTypes));

TEST_F(ConvertEntityTest, LayerIsTakenFromTheTable) {
  drawing_.tables.layers.Add(0x10, LayerEntry("WALLS"));
  drawing_.AddEntity(DWG_TYPE_LINE, &EntityTio::LINE);
  drawing_.lastEntity().layer = drawing_.Ref(0x10);
  EXPECT_THAT(Convert(drawing_.last()), StartsWith(R"({"type":"LINE","layer":"WALLS",)"));
}

TEST_F(ConvertEntityTest, UnknownOrMissingLayerIsZero) {
  drawing_.AddEntity(DWG_TYPE_LINE, &EntityTio::LINE);
  EXPECT_THAT(Convert(drawing_.last()), HasSubstr(R"("layer":"0",)"));
  drawing_.lastEntity().layer = drawing_.Ref(0x10);
  EXPECT_THAT(Convert(drawing_.last()), HasSubstr(R"("layer":"0",)"));
}

TEST_F(ConvertEntityTest, LayerNameIsEscapedInTheRecordAndRawInAWarning) {
  drawing_.tables.layers.Add(0x10, LayerEntry("a\"b\tc"));
  drawing_.AddEntity(DWG_TYPE_LINE, &EntityTio::LINE);
  drawing_.lastEntity().layer = drawing_.Ref(0x10);
  EXPECT_THAT(Convert(drawing_.last()), HasSubstr(R"("layer":"a\"b\tc",)"));
  drawing_.AddEntity(DWG_TYPE_SPLINE, &EntityTio::SPLINE);
  drawing_.lastEntity().layer = drawing_.Ref(0x10);
  EXPECT_EQ(Convert(drawing_.last()), "");
  EXPECT_THAT(drawing_.warnings, ElementsAre(HasSubstr("on layer a\"b\tc (no")));
}

TEST_F(ConvertEntityTest, UnsupportedTypesAreCountedByName) {
  Dwg_Object& face = drawing_.AddBareEntity(DWG_TYPE__3DFACE);
  face.name = drawing_.Text("3DFACE");
  Dwg_Object& unknown = drawing_.AddBareEntity(DWG_TYPE_UNUSED);
  unknown.name = drawing_.Text("ACME_PIPE");
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Convert(face), "");
  }
  EXPECT_EQ(Convert(unknown), "");
  EXPECT_THAT(drawing_.counts, ElementsAre(Pair("3DFACE", 3U), Pair("ACME_PIPE", 1U)));
}

TEST_F(ConvertEntityTest, TypeWithoutANameIsCountedAsUnknown) {
  EXPECT_EQ(Convert(drawing_.AddBareEntity(DWG_TYPE_TOLERANCE)), "");
  EXPECT_THAT(drawing_.counts, ElementsAre(Pair("UNKNOWN", 1U)));
}

TEST_F(ConvertEntityTest, BlockBracketsAreDroppedSilently) {
  drawing_.AddBareEntity(DWG_TYPE_BLOCK).name = drawing_.Text("BLOCK");
  EXPECT_EQ(Convert(drawing_.last()), "");
  drawing_.AddBareEntity(DWG_TYPE_ENDBLK).name = drawing_.Text("ENDBLK");
  EXPECT_EQ(Convert(drawing_.last()), "");
  EXPECT_THAT(drawing_.counts, IsEmpty());
}

TEST_F(ConvertEntityTest, InvisibleEntityIsWritten) {
  drawing_.AddEntity(DWG_TYPE_LINE, &EntityTio::LINE);
  drawing_.lastEntity().invisible = 1;
  EXPECT_THAT(Convert(drawing_.last()), StartsWith(R"({"type":"LINE")"));
}

class EntityListTest : public testing::Test {
 protected:
  Dwg_Object& AddPoint(double x, Handle owner = 0, Handle handle = 0) {
    drawing_.AddEntity(DWG_TYPE_POINT, &EntityTio::POINT, handle, owner).x = x;
    drawing_.lastEntity().color.index = 256;
    drawing_.lastEntity().linewt = 29;
    return drawing_.last();
  }

  static std::string Point(int x, const std::string& more = {}) {
    return R"({"type":"POINT","layer":"0","x":)" + std::to_string(x) +
           R"(,"y":0,"color":"L","lw":"L")" + more + "}";
  }

  TestDrawing drawing_;
  JsonOut out_;
};

TEST_F(EntityListTest, RecordsAreJoinedByCommasOverSeveralCalls) {
  EntityContext context = drawing_.Context();
  JsonList list(out_, "");
  AppendEntity(list, AddPoint(1), context);
  AppendEntity(list, drawing_.AddBareEntity(DWG_TYPE_SEQEND), context);
  AppendEntity(list, AddPoint(2), context);
  EXPECT_EQ(out_, Point(1) + "," + Point(2));
}

TEST_F(EntityListTest, DroppedFirstRecordLeavesNoComma) {
  EntityContext context = drawing_.Context();
  JsonList list(out_, "");
  AppendEntity(list, drawing_.AddBareEntity(DWG_TYPE_LINE), context);
  EXPECT_TRUE(list.IsEmpty());
  AppendEntity(list, AddPoint(2), context);
  EXPECT_EQ(out_, Point(2));
}

TEST_F(EntityListTest, DebugSwitchAddsTheColourKeys) {
  EntityContext context = drawing_.Context(true);
  JsonList list(out_, "");
  AppendEntity(list, AddPoint(1), context);
  EXPECT_EQ(out_, Point(1, R"(,"_dbg":{"color_index":256,"color_alpha_type":0,)"
                           R"("color_alpha":0,"color_alpha_raw":0})"));
}

class OwnedEntitiesTest : public EntityListTest {
 protected:
  // A block reference with that handle, of a block without a name, which is not
  // written itself, and what it owns.
  std::string Attributes(Handle handle) {
    drawing_.AddEntity(DWG_TYPE_INSERT, &EntityTio::INSERT, handle, 0x90);
    drawing_.Prepass();
    JsonList list(out_, "");
    AppendEntityWithAttributes(list, drawing_.last(), drawing_.Context());
    return out_.Text();
  }
};

TEST_F(OwnedEntitiesTest, ComeInObjectOrder) {
  AddPoint(1, 0x20);
  AddPoint(2, 0x21);
  AddPoint(3, 0x20);
  EXPECT_EQ(Attributes(0x20), Point(1) + "," + Point(3));
}

TEST_F(OwnedEntitiesTest, OwnerWithoutAHandleOwnsNothing) {
  AddPoint(1);
  EXPECT_EQ(Attributes(0), "");
}

TEST_F(OwnedEntitiesTest, UnknownOwnerOwnsNothing) {
  EXPECT_EQ(Attributes(0x99), "");
}

TEST_F(OwnedEntitiesTest, EntityThatIsNoReferenceIsWrittenAlone) {
  AddPoint(1, 0x20);
  drawing_.Prepass();
  JsonList list(out_, "");
  AppendEntityWithAttributes(list, AddPoint(2, 0, 0x20), drawing_.Context());
  EXPECT_EQ(out_, Point(2));
}

}  // namespace
