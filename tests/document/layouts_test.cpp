#include "document/layouts.hpp"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/record_reader.hpp"
#include "tests/support/test_drawing.hpp"
#include "tests/support/written.hpp"

namespace {

class LayoutsTest : public testing::Test {
 protected:
  void AddBlock(Handle handle, const char* name) {
    drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, handle).name =
        drawing_.Text(name);
  }

  Dwg_Object_LAYOUT& AddLayout(Handle block, const char* name) {
    auto& layout = drawing_.AddObject(DWG_TYPE_LAYOUT, &ObjectTio::LAYOUT);
    layout.block_header = drawing_.Ref(block);
    layout.layout_name = name == nullptr ? nullptr : drawing_.Text(name);
    return layout;
  }

  void AddPoint(double x, Handle owner, Handle handle = 0) {
    drawing_.AddEntity(DWG_TYPE_POINT, &EntityTio::POINT, handle, owner).x = x;
    drawing_.lastEntity().color.index = 256;
    drawing_.lastEntity().linewt = 29;
  }

  Dwg_Entity_VIEWPORT& AddClippedViewport(Handle owner, Handle clip) {
    auto& viewport = drawing_.AddEntity(DWG_TYPE_VIEWPORT, &EntityTio::VIEWPORT, 0x70, owner);
    viewport.width = viewport.height = 1;
    viewport.status_flag = 0x10000;
    viewport.clip_boundary = drawing_.Ref(clip);
    return viewport;
  }

  static std::string Point(int x) {
    return R"({"type":"POINT","layer":"0","x":)" + std::to_string(x) +
           R"(,"y":0,"color":"L","lw":"L"})";
  }

  // From the tables as they are.
  std::string WrittenLayouts(bool verbose = false) {
    return Inside(Written(AppendLayouts, drawing_.Context(verbose)));
  }

  std::string Layouts(bool verbose = false) {
    drawing_.Prepass();
    return WrittenLayouts(verbose);
  }

  TestDrawing drawing_;
};

TEST_F(LayoutsTest, DrawingWithoutPaperSpaceHasNone) {
  AddBlock(0x20, "*Model_Space");
  AddBlock(0x21, "*PAPER_SPACE");
  AddPoint(1, 0x20);
  AddPoint(2, 0x21);
  EXPECT_EQ(Layouts(), "");
}

TEST_F(LayoutsTest, SheetIsWrittenWithItsPlotSettings) {
  AddBlock(0x20, "*Paper_Space");
  Dwg_Object_LAYOUT& layout = AddLayout(0x20, "A1 \"plan\"");
  layout.tab_order = 3;
  layout.LIMMIN = {1, 2};
  layout.LIMMAX = {3, 4};
  layout.EXTMIN = {5, 6, 7};
  layout.EXTMAX = {8, 9, 10};
  Dwg_Object_PLOTSETTINGS& plot = layout.plotsettings;
  plot.paper_width = 841;
  plot.paper_height = 594;
  plot.left_margin = 11;
  plot.bottom_margin = 12;
  plot.right_margin = 13;
  plot.top_margin = 14;
  plot.plot_origin = {15, 16};
  plot.plot_paper_unit = 1;
  plot.plot_rotation_mode = 2;
  plot.paper_units = 17;
  plot.drawing_units = 50;
  AddPoint(1, 0x20);
  EXPECT_EQ(Layouts(),
            R"({"name":"A1 \"plan\"","tabOrder":3,"paperW":841,"paperH":594,"marginL":11,)"
            R"("marginB":12,"marginR":13,"marginT":14,"plotOriginX":15,"plotOriginY":16,)"
            R"("paperUnit":1,"rotation":2,"scaleNum":17,"scaleDen":50,"limMinX":1,"limMinY":2,)"
            R"("limMaxX":3,"limMaxY":4,"extMinX":5,"extMinY":6,"extMaxX":8,"extMaxY":9,)"
            R"("entities":[)" +
                Point(1) + "]}");
}

TEST_F(LayoutsTest, SheetWithoutALayoutHasItsBlockNameAndEntitiesOnly) {
  AddBlock(0x20, "*Paper_Space0");
  AddPoint(1, 0x20);
  EXPECT_EQ(Layouts(), R"({"name":"*Paper_Space0","entities":[)" + Point(1) + "]}");
}

TEST_F(LayoutsTest, LayoutWithAnEmptyNameTakesItsBlockName) {
  AddBlock(0x20, "*Paper_Space0");
  AddBlock(0x21, "*Paper_Space1");
  AddLayout(0x20, "");
  AddLayout(0x21, nullptr);
  AddPoint(1, 0x20);
  AddPoint(2, 0x21);
  const std::string layouts = Layouts();
  EXPECT_NE(layouts.find(R"({"name":"*Paper_Space0","tabOrder":0,)"), std::string::npos);
  EXPECT_NE(layouts.find(R"({"name":"*Paper_Space1","tabOrder":0,)"), std::string::npos);
}

TEST_F(LayoutsTest, SheetOfNoKnownNameIsCalledLayout) {
  AddBlock(0x20, "*Paper_Space");
  AddPoint(1, 0x20);
  drawing_.Prepass();
  drawing_.tables.blockNames = {};
  EXPECT_EQ(WrittenLayouts(), R"({"name":"Layout","entities":[)" + Point(1) + "]}");
}

TEST_F(LayoutsTest, SheetWithoutAHandleOwnsNothing) {
  AddBlock(0, "*Paper_Space");
  AddPoint(1, 0);
  EXPECT_EQ(Layouts(), "");
}

TEST_F(LayoutsTest, EmptySheetIsLeftOut) {
  AddBlock(0x20, "*Paper_Space");
  AddLayout(0x20, "Layout1");
  AddBlock(0x21, "*Paper_Space0");
  AddLayout(0x21, "Layout2");
  AddPoint(1, 0x21);
  EXPECT_EQ(CountOf(Layouts(), "\"name\":"), 1U);
}

TEST_F(LayoutsTest, SheetOfUnwritableEntitiesIsLeftOut) {
  AddBlock(0x20, "*Paper_Space");
  drawing_.AddBareEntity(DWG_TYPE_LINE, 0, 0x20);
  EXPECT_EQ(Layouts(), "");
}

TEST_F(LayoutsTest, SheetsComeInTheObjectOrderOfTheirBlocks) {
  AddBlock(0x29, "*Paper_Space");
  AddBlock(0x21, "*Paper_Space0");
  AddBlock(0x25, "*Paper_Space1");
  AddLayout(0x25, "First");
  AddLayout(0x21, "Second");
  AddLayout(0x29, "Third");
  AddPoint(1, 0x25);
  AddPoint(2, 0x21);
  AddPoint(3, 0x29);
  const std::string layouts = Layouts();
  EXPECT_LT(layouts.find("Third"), layouts.find("Second"));
  EXPECT_LT(layouts.find("Second"), layouts.find("First"));
  EXPECT_EQ(CountOf(layouts, "]},{\"name\":"), 2U);
}

TEST_F(LayoutsTest, ClipOutlineIsOnlyInsideItsViewport) {
  AddBlock(0x20, "*Paper_Space");
  AddPoint(1, 0x20, 0x60);
  AddClippedViewport(0x20, 0x60);
  const std::string layouts = Layouts();
  EXPECT_EQ(CountOf(layouts, R"("type":"POINT")"), 1U);
  EXPECT_NE(layouts.find(R"("clip":{"type":"POINT","layer":"0","x":1,"y":0})"), std::string::npos);
}

TEST_F(LayoutsTest, SheetOfNothingButAClipOutlineIsLeftOut) {
  AddBlock(0x20, "*Paper_Space");
  AddPoint(1, 0x20, 0x60);
  AddClippedViewport(0x20, 0x60).width = 0;
  EXPECT_EQ(Layouts(), "");
}

TEST_F(LayoutsTest, OutlineOfARectangularViewportIsAnOrdinaryEntity) {
  AddBlock(0x20, "*Paper_Space");
  AddPoint(1, 0x20, 0x60);
  AddClippedViewport(0x20, 0x60).status_flag = 0;
  EXPECT_EQ(CountOf(Layouts(), R"("type":)"), 2U);
}

TEST_F(LayoutsTest, AttributesFollowTheirInsert) {
  AddBlock(0x20, "*Paper_Space");
  AddBlock(0x21, "TITLE");
  drawing_.AddEntity(DWG_TYPE_ATTRIB, &EntityTio::ATTRIB, 0, 0x30);
  drawing_.AddEntity(DWG_TYPE_INSERT, &EntityTio::INSERT, 0x30, 0x20).block_header =
      drawing_.Ref(0x21);
  AddPoint(1, 0x20);
  const std::string layouts = Layouts();
  const std::size_t insert = layouts.find(R"("type":"INSERT")");
  const std::size_t attribute = layouts.find(R"(},{"type":"DYNTEXT")");
  const std::size_t point = layouts.find(R"(},{"type":"POINT")");
  EXPECT_LT(insert, attribute);
  EXPECT_LT(attribute, point);
  EXPECT_LT(point, std::string::npos);
}

TEST_F(LayoutsTest, AttributesOfAnUnwrittenInsertStandAlone) {
  AddBlock(0x20, "*Paper_Space");
  drawing_.AddEntity(DWG_TYPE_INSERT, &EntityTio::INSERT, 0x30, 0x20);
  drawing_.AddEntity(DWG_TYPE_ATTRIB, &EntityTio::ATTRIB, 0, 0x30);
  AddPoint(1, 0x20);
  EXPECT_EQ(Layouts().find(R"({"name":"*Paper_Space","entities":[{"type":"DYNTEXT",)"), 0U);
}

TEST_F(LayoutsTest, DebugSwitchReachesTheEntities) {
  AddBlock(0x20, "*Paper_Space");
  AddPoint(1, 0x20);
  EXPECT_NE(Layouts(true).find("_dbg"), std::string::npos);
}

}  // namespace
