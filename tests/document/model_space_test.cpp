#include "document/model_space.hpp"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/test_drawing.hpp"
#include "tests/support/written.hpp"

namespace {

class ModelSpaceTest : public testing::Test {
 protected:
  void AddBlock(Handle handle, const char* name) {
    drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, handle).name =
        drawing_.Text(name);
  }

  void AddPoint(double x, Handle owner) {
    drawing_.AddEntity(DWG_TYPE_POINT, &EntityTio::POINT, 0, owner).x = x;
    drawing_.lastEntity().color.index = 256;
    drawing_.lastEntity().linewt = 29;
  }

  void AddInsert(Handle handle, Handle owner, DWG_OBJECT_TYPE type = DWG_TYPE_INSERT) {
    if (type == DWG_TYPE_INSERT) {
      drawing_.AddEntity(type, &EntityTio::INSERT, handle, owner).block_header = drawing_.Ref(0x21);
    } else {
      drawing_.AddEntity(type, &EntityTio::MINSERT, handle, owner).block_header =
          drawing_.Ref(0x21);
    }
  }

  void AddAttribute(const char* tag, Handle insert) {
    drawing_.AddEntity(DWG_TYPE_ATTRIB, &EntityTio::ATTRIB, 0, insert).tag = drawing_.Text(tag);
  }

  static std::string Point(int x) {
    return R"({"type":"POINT","layer":"0","x":)" + std::to_string(x) +
           R"(,"y":0,"color":"L","lw":"L"})";
  }

  std::string Entities(bool verbose = false) {
    drawing_.Prepass();
    return Inside(Written(AppendModelSpace, drawing_.Context(verbose)));
  }

  // The types and tags of the records, in order.
  std::string Order() {
    const std::string entities = Entities();
    std::string order;
    for (std::size_t at = entities.find("{\"type\":\""); at != std::string::npos;
         at = entities.find("{\"type\":\"", at + 1)) {
      const std::size_t end = entities.find("{\"type\":\"", at + 1);
      const std::string record = entities.substr(at, end - at);
      const std::size_t tag = record.find("\"tag\":\"");
      order += order.empty() ? "" : " ";
      order += tag == std::string::npos
                   ? record.substr(9, record.find('"', 9) - 9)
                   : record.substr(tag + 7, record.find('"', tag + 7) - tag - 7);
    }
    return order;
  }

  TestDrawing drawing_;
};

TEST_F(ModelSpaceTest, EmptyDrawingHasNoEntities) {
  EXPECT_EQ(Entities(), "");
}

TEST_F(ModelSpaceTest, EntitiesOfTheBlockComeBeforeThoseWithoutAnOwner) {
  AddPoint(1, 0);
  AddBlock(0x20, "*Model_Space");
  AddPoint(2, 0x20);
  AddPoint(3, 0);
  AddPoint(4, 0x20);
  EXPECT_EQ(Entities(), Point(2) + "," + Point(4) + "," + Point(1) + "," + Point(3));
}

TEST_F(ModelSpaceTest, EntitiesOfOtherBlocksAreLeftOut) {
  AddBlock(0x20, "*Model_Space");
  AddBlock(0x21, "DOOR");
  AddPoint(1, 0x21);
  AddPoint(2, 0x99);
  EXPECT_EQ(Entities(), "");
}

TEST_F(ModelSpaceTest, EntitiesWithoutAnOwnerNeedNoBlock) {
  AddPoint(1, 0);
  EXPECT_EQ(Entities(), Point(1));
}

TEST_F(ModelSpaceTest, BlockInAnotherLetterCaseIsFoundThroughTheDrawing) {
  AddBlock(0x20, "*MODEL_SPACE");
  AddPoint(1, 0x20);
  Dwg_Object_Ref* reference = drawing_.Ref(0x20);
  reference->obj = &drawing_.data().object[0];
  drawing_.data().header_vars.BLOCK_RECORD_MSPACE = reference;
  EXPECT_EQ(Entities(), Point(1));
}

TEST_F(ModelSpaceTest, AttributesFollowTheirInsert) {
  AddBlock(0x20, "*Model_Space");
  AddBlock(0x21, "DOOR");
  AddInsert(0x30, 0x20);
  AddPoint(1, 0x20);
  AddAttribute("A", 0x30);
  AddAttribute("B", 0x30);
  EXPECT_EQ(Order(), "INSERT A B POINT");
}

TEST_F(ModelSpaceTest, AttributesFollowAnInsertWithoutAnOwnerToo) {
  AddBlock(0x21, "DOOR");
  AddAttribute("A", 0x31);
  AddInsert(0x30, 0);
  AddInsert(0x31, 0, DWG_TYPE_MINSERT);
  AddAttribute("B", 0x30);
  EXPECT_EQ(Order(), "INSERT B INSERT A");
}

TEST_F(ModelSpaceTest, AttributesAreWrittenEvenWhenTheirInsertIsNot) {
  AddBlock(0x20, "*Model_Space");
  AddInsert(0x30, 0x20);
  AddAttribute("A", 0x30);
  EXPECT_EQ(Order(), "A");
}

TEST_F(ModelSpaceTest, InsertWithoutAHandleOwnsNothing) {
  AddBlock(0x20, "*Model_Space");
  AddBlock(0x21, "DOOR");
  AddInsert(0, 0x20);
  AddAttribute("A", 0);
  // The attribute without an owner is written once, on its own.
  EXPECT_EQ(Order(), "INSERT A");
}

TEST_F(ModelSpaceTest, InsertThatOwnsItselfIsNotReached) {
  AddBlock(0x21, "DOOR");
  AddInsert(0x30, 0x30);
  EXPECT_EQ(Entities(), "");
}

TEST_F(ModelSpaceTest, InsertsThatOwnEachOtherEnd) {
  AddBlock(0x20, "*Model_Space");
  AddBlock(0x21, "DOOR");
  AddInsert(0x30, 0x20);
  AddInsert(0x31, 0x30);
  AddInsert(0x32, 0x31);
  EXPECT_EQ(Order(), "INSERT INSERT");
}

TEST_F(ModelSpaceTest, VerticesAndEndMarkersAreNotOffered) {
  for (const auto type :
       {DWG_TYPE_VERTEX_2D, DWG_TYPE_VERTEX_3D, DWG_TYPE_VERTEX_MESH, DWG_TYPE_SEQEND}) {
    drawing_.AddBareEntity(type).name = drawing_.Text("NAME");
  }
  EXPECT_EQ(Entities(), "");
  EXPECT_TRUE(drawing_.counts.empty());
}

TEST_F(ModelSpaceTest, DebugSwitchReachesTheEntities) {
  AddPoint(1, 0);
  EXPECT_NE(Entities(true).find("_dbg"), std::string::npos);
}

}  // namespace
