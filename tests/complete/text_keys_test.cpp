#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "complete/text_keys.hpp"
#include "tests/support/test_drawing.hpp"

namespace {

class TextKeys : public testing::Test {
 protected:
  TextKeys() { tables_.textStyles[0x11] = "\"Notes\""; }

  CompleteContext Context() { return {.base = base_, .tables = tables_}; }

  TestDrawing drawing_;
  CompleteTables tables_;
  EntityContext base_ = drawing_.Context();
  JsonOut out_;
};

}  // namespace

TEST_F(TextKeys, OfText) {
  Dwg_Entity_TEXT text{};
  text.style = drawing_.Ref(0x11);
  text.oblique_angle = 0.5;
  text.generation = 2 | 4;
  text.extrusion = {0, 0, 1};
  text.thickness = 3;
  AppendTextFurtherKeys(out_, text, Context());
  EXPECT_EQ(out_.Text(), R"(,"textStyle":"Notes","widthFactor":1,"obliqueRad":0.5,)"
                         R"("mirroredX":true,"mirroredY":true,"thickness":3)");
}

TEST_F(TextKeys, OfAttributes) {
  Dwg_Entity_ATTRIB attribute{};
  attribute.horiz_alignment = 1;
  attribute.alignment_pt = {2, 3};
  attribute.width_factor = 0.5;
  attribute.field_length = 7;
  attribute.lock_position_flag = 1;
  attribute.mtext_type = 2;
  attribute.extrusion = {0, 0, 1};
  AppendAttributeFurtherKeys(out_, attribute, Context());
  EXPECT_EQ(out_.Text(), R"(,"halign":1,"valign":0,"ax":2,"ay":3,"widthFactor":0.5,)"
                         R"("obliqueRad":0,"fieldLength":7,"lockedPosition":true,)"
                         R"("multiline":true)");
}

TEST_F(TextKeys, OfMultiLineText) {
  auto& mtext = drawing_.AddEntity(DWG_TYPE_MTEXT, &EntityTio::MTEXT);
  mtext.extrusion = {0, 0, 1};
  mtext.extents_width = 12;
  mtext.bg_fill_flag = 1;
  mtext.bg_fill_scale = 1.5;
  mtext.bg_fill_color.index = 256;
  mtext.column_type = 2;
  mtext.numfragments = 2;
  mtext.column_width = 10;
  mtext.gutter = 1;
  mtext.num_column_heights = 2;
  mtext.column_heights = drawing_.Array<double>({4, 5});
  AppendMtextFurtherKeys(out_, mtext, Context(), {drawing_.last(), "0"});
  EXPECT_EQ(out_.Text(), R"(,"lineSpacingStyle":1,"lineSpacingFactor":1,"flowDirection":1,)"
                         R"("extentsWidth":12,)"
                         R"("background":{"fill":"color","color":"L","scale":1.5,"frame":false},)"
                         R"("columns":{"type":"dynamic","count":2,"width":10,"gutter":1,)"
                         R"("autoHeight":false,"reversed":false,"heights":[4,5]})");
}

TEST_F(TextKeys, DynamicColumnsAreAsManyAsTheirHeights) {
  auto& mtext = drawing_.AddEntity(DWG_TYPE_MTEXT, &EntityTio::MTEXT);
  mtext.column_type = 2;
  mtext.num_column_heights = 3;
  mtext.auto_height = 1;
  AppendMtextFurtherKeys(out_, mtext, Context(), {drawing_.last(), "0"});
  EXPECT_THAT(out_.Text(), testing::HasSubstr(R"("count":3,)"));
}

// Three columns of 10 with two gutters of 1 between them.
TEST_F(TextKeys, AutomaticColumnsAreAsManyAsFitIntoTheWidth) {
  auto& mtext = drawing_.AddEntity(DWG_TYPE_MTEXT, &EntityTio::MTEXT);
  mtext.column_type = 2;
  mtext.auto_height = 1;
  mtext.column_width = 10;
  mtext.gutter = 1;
  mtext.extents_width = 32;
  AppendMtextFurtherKeys(out_, mtext, Context(), {drawing_.last(), "0"});
  EXPECT_THAT(out_.Text(), testing::HasSubstr(R"("count":3,)"));
}

TEST_F(TextKeys, AutomaticColumnsOfNoWidthAreNone) {
  auto& mtext = drawing_.AddEntity(DWG_TYPE_MTEXT, &EntityTio::MTEXT);
  mtext.column_type = 2;
  mtext.auto_height = 1;
  mtext.extents_width = std::numeric_limits<double>::infinity();
  AppendMtextFurtherKeys(out_, mtext, Context(), {drawing_.last(), "0"});
  EXPECT_THAT(out_.Text(), testing::HasSubstr(R"("count":0,)"));
}

TEST_F(TextKeys, CountsWithoutArraysAndStrangeKindsAreNothing) {
  auto& mtext = drawing_.AddEntity(DWG_TYPE_MTEXT, &EntityTio::MTEXT);
  mtext.column_type = 9;
  mtext.num_column_heights = 1000;
  mtext.bg_fill_flag = 4;
  drawing_.lastEntity().num_eed = 1000;
  AppendMtextFurtherKeys(out_, mtext, Context(), {drawing_.last(), "0"});
  EXPECT_THAT(out_.Text(), testing::Not(testing::HasSubstr("columns")));
  EXPECT_THAT(out_.Text(), testing::Not(testing::HasSubstr("background")));
}
