#include "document/assets.hpp"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/test_drawing.hpp"
#include "tests/support/written.hpp"

namespace {

class AssetsTest : public testing::Test {
 protected:
  Dwg_Object_BLOCK_HEADER& AddBlock(Handle handle, const char* name) {
    auto& block = drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, handle);
    block.name = name == nullptr ? nullptr : drawing_.Text(name);
    return block;
  }

  void AddPoint(double x, Handle owner) {
    drawing_.AddEntity(DWG_TYPE_POINT, &EntityTio::POINT, 0, owner).x = x;
    drawing_.lastEntity().color.index = 256;
    drawing_.lastEntity().linewt = 29;
  }

  void AddDefinition(unsigned flags, Handle owner) {
    auto& definition = drawing_.AddEntity(DWG_TYPE_ATTDEF, &EntityTio::ATTDEF, 0, owner);
    definition.flags = static_cast<BITCODE_RC>(flags);
    definition.tag = drawing_.Text("TAG" + std::to_string(flags));
  }

  static std::string Point(int x) {
    return R"({"type":"POINT","layer":"0","x":)" + std::to_string(x) +
           R"(,"y":0,"color":"L","lw":"L"})";
  }

  // From the tables as they are.
  std::string WrittenAssets(bool verbose = false) {
    return Inside(Written(AppendAssets, drawing_.Context(verbose)));
  }

  std::string Assets(bool verbose = false) {
    drawing_.Prepass();
    return WrittenAssets(verbose);
  }

  TestDrawing drawing_;
};

TEST_F(AssetsTest, DrawingWithoutBlocksHasNone) {
  EXPECT_EQ(Assets(), "");
}

TEST_F(AssetsTest, BlockIsWrittenWithItsEntities) {
  AddBlock(0x20, "DOOR");
  AddPoint(1, 0x20);
  AddPoint(2, 0x20);
  AddPoint(3, 0x21);
  EXPECT_EQ(Assets(), R"({"name":"DOOR","entities":[)" + Point(1) + "," + Point(2) + "]}");
}

TEST_F(AssetsTest, SeparatorsStartAnewInEveryBlock) {
  AddBlock(0x20, "A");
  AddBlock(0x21, "B");
  AddPoint(1, 0x20);
  AddPoint(2, 0x21);
  EXPECT_EQ(Assets(), R"({"name":"A","entities":[)" + Point(1) + "]}," +
                          R"({"name":"B","entities":[)" + Point(2) + "]}");
}

TEST_F(AssetsTest, BlocksComeInObjectOrder) {
  AddBlock(0x22, "ZEBRA");
  AddBlock(0x20, "*D5");
  AddBlock(0x21, "APE");
  EXPECT_EQ(Assets(), R"({"name":"ZEBRA","entities":[]},{"name":"*D5","entities":[]},)"
                      R"({"name":"APE","entities":[]})");
}

TEST_F(AssetsTest, LayoutBlocksAreLeftOutInAnyLetterCase) {
  const char* const names[] = {"*Model_Space", "*MODEL_SPACE", "*Paper_Space", "*Paper_Space3",
                               "*PAPER_SPACE12"};
  Handle handle = 0x20;
  for (const char* name : names) {
    AddBlock(handle++, name);
  }
  EXPECT_EQ(Assets(), "");
}

TEST_F(AssetsTest, BlocksNamedLikeAPartOfTheLayoutsAreKept) {
  AddBlock(0x20, "*Model");
  AddBlock(0x21, "*PAPER");
  AddBlock(0x22, "PAPER_SPACE");
  EXPECT_EQ(Assets(), R"({"name":"*Model","entities":[]},{"name":"*PAPER","entities":[]},)"
                      R"({"name":"PAPER_SPACE","entities":[]})");
}

TEST_F(AssetsTest, NamelessBlocksAreLeftOut) {
  AddBlock(0x20, nullptr);
  AddBlock(0x21, "");
  drawing_.AddBareObject(DWG_TYPE_BLOCK_HEADER, 0x22);
  EXPECT_EQ(Assets(), "");
}

TEST_F(AssetsTest, BlockOfTheWrongSupertypeIsLeftOut) {
  AddBlock(0x20, "DOOR");
  drawing_.last().supertype = DWG_SUPERTYPE_ENTITY;
  drawing_.tables.blockNames[0x20] = "DOOR";
  EXPECT_EQ(WrittenAssets(), "");
}

TEST_F(AssetsTest, DataOfAnotherTypeIsNeverReadAsABlock) {
  drawing_.AddObject(DWG_TYPE_STYLE, &ObjectTio::STYLE, 0x20);
  drawing_.last().type = DWG_TYPE_BLOCK_HEADER;
  drawing_.tables.blockNames[0x20] = "DOOR";
  EXPECT_EQ(Assets(), "");
}

TEST_F(AssetsTest, NamesAreThoseOfTheTable) {
  AddBlock(0x20, "RECORD");
  AddBlock(0x21, "LEFT OUT");
  drawing_.tables.blockNames[0x20] = "TABLE";
  EXPECT_EQ(WrittenAssets(), R"({"name":"TABLE","entities":[]})");
}

TEST_F(AssetsTest, BasePointAtTheOriginIsLeftOut) {
  AddBlock(0x20, "A").base_pt = {0, 0, 5};
  EXPECT_EQ(Assets(), R"({"name":"A","entities":[]})");
}

TEST_F(AssetsTest, BasePointIsWrittenWithBothCoordinates) {
  AddBlock(0x20, "A").base_pt = {0, 2, 0};
  AddBlock(0x21, "B").base_pt = {-1.5, 0, 0};
  EXPECT_EQ(Assets(), R"({"name":"A","baseX":0,"baseY":2,"entities":[]},)"
                      R"({"name":"B","baseX":-1.5,"baseY":0,"entities":[]})");
}

TEST_F(AssetsTest, OnlyConstantAttributeDefinitionsAreDrawn) {
  AddBlock(0x20, "A");
  AddDefinition(0, 0x20);
  AddDefinition(2, 0x20);
  AddDefinition(1 | 4 | 8, 0x20);
  const std::string assets = Assets();
  EXPECT_NE(assets.find(R"("tag":"TAG2")"), std::string::npos);
  EXPECT_EQ(assets.find("TAG0"), std::string::npos);
  EXPECT_EQ(assets.find("TAG13"), std::string::npos);
}

TEST_F(AssetsTest, BlockOfVariableAttributeDefinitionsIsEmpty) {
  AddBlock(0x20, "A");
  AddDefinition(0, 0x20);
  AddDefinition(8, 0x20);
  EXPECT_EQ(Assets(), R"({"name":"A","entities":[]})");
}

TEST_F(AssetsTest, AttributeDefinitionWithoutDataGivesNothing) {
  AddBlock(0x20, "A");
  drawing_.AddBareEntity(DWG_TYPE_ATTDEF, 0, 0x20);
  AddPoint(1, 0x20);
  EXPECT_EQ(Assets(), R"({"name":"A","entities":[)" + Point(1) + "]}");
}

TEST_F(AssetsTest, AttributesOfAnInsertDoNotFollowIt) {
  AddBlock(0x20, "A");
  AddBlock(0x21, "B");
  drawing_.AddEntity(DWG_TYPE_INSERT, &EntityTio::INSERT, 0x30, 0x20).block_header =
      drawing_.Ref(0x21);
  drawing_.AddEntity(DWG_TYPE_ATTRIB, &EntityTio::ATTRIB, 0x31, 0x30);
  const std::string assets = Assets();
  EXPECT_NE(assets.find(R"("type":"INSERT")"), std::string::npos);
  EXPECT_EQ(assets.find("DYNTEXT"), std::string::npos);
}

TEST_F(AssetsTest, BlockThatInsertsItselfIsWrittenOnce) {
  AddBlock(0x20, "SELF");
  drawing_.AddEntity(DWG_TYPE_INSERT, &EntityTio::INSERT, 0x30, 0x20).block_header =
      drawing_.Ref(0x20);
  EXPECT_EQ(Assets(), R"({"name":"SELF","entities":[{"type":"INSERT","layer":"0",)"
                      R"("blockName":"SELF","x":0,"y":0,"rotationRad":0,"scaleX":0,"scaleY":0,)"
                      R"("scaleZ":0,"color":"K","lw":0}]})");
}

TEST_F(AssetsTest, BlockWithoutAHandleOwnsNothing) {
  AddBlock(0, "A");
  AddPoint(1, 0);
  EXPECT_EQ(Assets(), R"({"name":"A","entities":[]})");
}

TEST_F(AssetsTest, DebugSwitchReachesTheEntities) {
  AddBlock(0x20, "A");
  AddPoint(1, 0x20);
  EXPECT_NE(Assets(true).find(R"("_dbg":{"color_index":256)"), std::string::npos);
}

}  // namespace
