#include "entities/insert.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/test_drawing.hpp"
#include "tests/support/written.hpp"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class InsertTest : public testing::Test {
 protected:
  // A reference to a block of that name, at (0, 2, 3) with scale (1, 2, 3).
  template <typename Insert = Dwg_Entity_INSERT>
  Insert ReferenceTo(const std::string& name) {
    drawing_.tables.blockNames[0x20] = name;
    Insert insert{};
    insert.block_header = drawing_.Ref(0x20);
    insert.ins_pt = {0, 2, 3};
    insert.scale = {1, 2, 3};
    insert.rotation = 0.5;
    return insert;
  }

  std::string Record(const Dwg_Entity_INSERT& insert) {
    return drawing_.RecordOf(DWG_TYPE_INSERT, &EntityTio::INSERT, insert);
  }

  std::string Record(const Dwg_Entity_MINSERT& insert) {
    return drawing_.RecordOf(DWG_TYPE_MINSERT, &EntityTio::MINSERT, insert);
  }

  TestDrawing drawing_;
};

TEST_F(InsertTest, IsWrittenWithThePlacementOfItsBlock) {
  EXPECT_EQ(Record(ReferenceTo("DOOR")),
            R"({"type":"INSERT","layer":"0","blockName":"DOOR","x":0,"y":2,)"
            R"("rotationRad":0.5,"scaleX":1,"scaleY":2,"scaleZ":3})");
}

TEST_F(InsertTest, WithoutABlockHeaderIsNotWritten) {
  Dwg_Entity_INSERT insert = ReferenceTo("DOOR");
  insert.block_header = nullptr;
  EXPECT_EQ(Record(insert), "");
}

TEST_F(InsertTest, OfAnUnknownBlockIsNotWritten) {
  Dwg_Entity_INSERT insert = ReferenceTo("DOOR");
  insert.block_header = drawing_.Ref(0x21);
  EXPECT_EQ(Record(insert), "");
}

TEST_F(InsertTest, OfANamelessBlockIsNotWritten) {
  EXPECT_EQ(Record(ReferenceTo("")), "");
}

class LayoutBlockInsertTest : public InsertTest, public testing::WithParamInterface<const char*> {};

TEST_P(LayoutBlockInsertTest, IsNotWritten) {
  EXPECT_EQ(Record(ReferenceTo(GetParam())), "");
}

INSTANTIATE_TEST_SUITE_P(InAnyLetterCase, LayoutBlockInsertTest,
                         testing::Values("*Model_Space", "*MODEL_SPACE", "*model_space2",
                                         "*Paper_Space", "*Paper_Space0", "*PAPER_SPACE12"));

TEST_F(InsertTest, OfABlockWithAShorterNameThanTheLayoutsIsWritten) {
  EXPECT_THAT(Record(ReferenceTo("*Model")), HasSubstr(R"("blockName":"*Model")"));
  EXPECT_THAT(Record(ReferenceTo("Model_Space")), HasSubstr(R"("blockName":"Model_Space")"));
}

TEST_F(InsertTest, ArrayIsWrittenAsItsFirstCellWithAWarning) {
  auto insert = ReferenceTo<Dwg_Entity_MINSERT>("DOOR");
  insert.num_cols = 3;
  insert.num_rows = 4;
  insert.col_spacing = 10;
  EXPECT_EQ(Record(insert), R"({"type":"INSERT","layer":"0","blockName":"DOOR","x":0,"y":2,)"
                            R"("rotationRad":0.5,"scaleX":1,"scaleY":2,"scaleZ":3})");
  EXPECT_THAT(drawing_.warnings,
              ElementsAre("MINSERT \"DOOR\" treated as single INSERT (grid not supported)"));
}

TEST_F(InsertTest, ArrayThatIsNotWrittenWarnsOfNothing) {
  EXPECT_EQ(Record(ReferenceTo<Dwg_Entity_MINSERT>("*Paper_Space3")), "");
  EXPECT_THAT(drawing_.warnings, IsEmpty());
}

TEST_F(InsertTest, QuoteInABlockNameIsEscapedInTheRecordAndRawInTheWarning) {
  EXPECT_THAT(Record(ReferenceTo<Dwg_Entity_MINSERT>("1\" PIPE")),
              HasSubstr(R"("blockName":"1\" PIPE",)"));
  EXPECT_THAT(drawing_.warnings,
              ElementsAre("MINSERT \"1\" PIPE\" treated as single INSERT (grid not supported)"));
}

}  // namespace
