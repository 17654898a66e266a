#include "text/multileader.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/test_drawing.hpp"
#include "tests/support/written.hpp"

namespace {

class MultileaderRecords : public testing::Test {
 protected:
  // A leader line with these points.
  Dwg_LEADER_Line Line(const std::vector<BITCODE_3BD>& points) {
    Dwg_LEADER_Line line{};
    line.num_points = static_cast<BITCODE_BL>(points.size());
    line.points = drawing.Array(points);
    return line;
  }

  Dwg_LEADER_Node Root(const std::vector<Dwg_LEADER_Line>& lines) {
    Dwg_LEADER_Node root{};
    root.num_lines = static_cast<BITCODE_BL>(lines.size());
    root.lines = drawing.Array(lines);
    return root;
  }

  static void AddDogleg(Dwg_LEADER_Node& root) {
    root.has_dogleg = 1;
    root.dogleg_length = 2;
    root.lastleaderlinepoint = {10, 20, 9};
    root.dogleg_vector = {-1, 0.5, 9};
  }

  void SetRoots(const std::vector<Dwg_LEADER_Node>& roots) {
    multileader.ctx.num_leaders = static_cast<BITCODE_BL>(roots.size());
    multileader.ctx.leaders = drawing.Array(roots);
  }

  void SetText(char* text) {
    multileader.ctx.has_content_txt = 1;
    multileader.ctx.content.txt.default_text = text;
  }

  std::string Record() {
    return drawing.RecordOf(DWG_TYPE_MULTILEADER, &EntityTio::MULTILEADER, multileader);
  }

  TestDrawing drawing;
  Dwg_Entity_MULTILEADER multileader{};
};

const std::string kStart = R"({"type":"MULTILEADER","layer":"0","lines":)";

}  // namespace

TEST_F(MultileaderRecords, LineIsAFlatListOfCoordinates) {
  SetRoots({Root({Line({{1, 2, 9}, {3, 4, 9}, {5, 6, 9}})})});
  EXPECT_EQ(Record(), kStart + R"([[1,2,3,4,5,6]],"arrowSize":0})");
}

TEST_F(MultileaderRecords, DoglegFollowsTheLinesOfItsRoot) {
  Dwg_LEADER_Node first = Root({Line({{1, 2, 0}, {3, 4, 0}}), Line({{5, 6, 0}, {7, 8, 0}})});
  AddDogleg(first);
  SetRoots({first, Root({Line({{9, 9, 0}, {8, 8, 0}})})});
  EXPECT_EQ(Record(), kStart + R"([[1,2,3,4],[5,6,7,8],[10,20,8,21],[9,9,8,8]],"arrowSize":0})");
}

TEST_F(MultileaderRecords, DoglegAloneIsALine) {
  Dwg_LEADER_Node root{};
  AddDogleg(root);
  SetRoots({root});
  EXPECT_EQ(Record(), kStart + R"([[10,20,8,21]],"arrowSize":0})");
}

TEST_F(MultileaderRecords, DoglegWithoutFlagOrLengthIsNoLine) {
  Dwg_LEADER_Node root{};
  AddDogleg(root);
  root.has_dogleg = 0;
  SetRoots({root});
  EXPECT_EQ(Record(), "");
  root.has_dogleg = 1;
  root.dogleg_length = 0;
  SetRoots({root});
  EXPECT_EQ(Record(), "");
}

TEST_F(MultileaderRecords, NegativeDoglegLengthIsALine) {
  Dwg_LEADER_Node root{};
  AddDogleg(root);
  root.dogleg_length = -2;
  SetRoots({root});
  EXPECT_EQ(Record(), kStart + R"([[10,20,12,19]],"arrowSize":0})");
}

TEST_F(MultileaderRecords, LinesOfOnePointAreLeftOut) {
  SetRoots({Root({Line({{1, 2, 0}}), Line({{3, 4, 0}, {5, 6, 0}}), Line({})})});
  EXPECT_EQ(Record(), kStart + R"([[3,4,5,6]],"arrowSize":0})");
}

TEST_F(MultileaderRecords, NoLineIsNoRecordEvenWithText) {
  SetText(drawing.Text("text"));
  EXPECT_EQ(Record(), "");
  SetRoots({Root({Line({{1, 2, 0}})})});
  EXPECT_EQ(Record(), "");
}

TEST_F(MultileaderRecords, MissingArraysAreEmpty) {
  multileader.ctx.num_leaders = 3;
  EXPECT_EQ(Record(), "");
  Dwg_LEADER_Node root{};
  root.num_lines = 2;
  SetRoots({root});
  EXPECT_EQ(Record(), "");
  Dwg_LEADER_Line line{};
  line.num_points = 4;
  SetRoots({Root({line})});
  EXPECT_EQ(Record(), "");
}

TEST_F(MultileaderRecords, ArrowSizeIsTheContextsWhenPositive) {
  SetRoots({Root({Line({{1, 2, 0}, {3, 4, 0}})})});
  multileader.arrow_size = 4;
  EXPECT_TRUE(Record().ends_with(R"("arrowSize":4})"));
  multileader.ctx.arrow_size = 0.5;
  EXPECT_TRUE(Record().ends_with(R"("arrowSize":0.5})"));
  multileader.ctx.arrow_size = -1;
  EXPECT_TRUE(Record().ends_with(R"("arrowSize":4})"));
}

TEST_F(MultileaderRecords, TextHasHtmlPlaceHeightAndRotation) {
  SetRoots({Root({Line({{1, 2, 0}, {3, 4, 0}})})});
  SetText(drawing.Text("{\\W2;\\C1;a\\H2x;b}\\Pc"));
  multileader.ctx.content.txt.location = {7, 8, 9};
  multileader.ctx.content.txt.rotation = 0.25;
  multileader.ctx.content.txt.height = 12.7;
  multileader.ctx.text_height = 99;
  EXPECT_EQ(Record(),
            kStart + R"([[1,2,3,4]],"arrowSize":0,"text":{"html":"<p><span style=\"color:)"
                     R"(rgb(255,0,0)\">a<span style=\"font-size:1.0000pt\">b</span></span></p>)"
                     R"(<p>c</p>","x":7,"y":8,"height":12.7,"rotationRad":0.25}})");
}

TEST_F(MultileaderRecords, TextHeightFallsBackToTheContexts) {
  SetRoots({Root({Line({{1, 2, 0}, {3, 4, 0}})})});
  SetText(drawing.Text("\\H1x;a"));
  multileader.ctx.text_height = 25.4;
  EXPECT_TRUE(Record().ends_with(
      R"("text":{"html":"<p><span style=\"font-size:1.0000pt\">a</span></p>","x":0,"y":0,)"
      R"("height":25.4,"rotationRad":0}})"));
}

TEST_F(MultileaderRecords, NoTextContentIsNoText) {
  SetRoots({Root({Line({{1, 2, 0}, {3, 4, 0}})})});
  multileader.ctx.content.txt.default_text = drawing.Text("unused");
  EXPECT_EQ(Record(), kStart + R"([[1,2,3,4]],"arrowSize":0})");
}

TEST_F(MultileaderRecords, EmptyTextIsNoText) {
  SetRoots({Root({Line({{1, 2, 0}, {3, 4, 0}})})});
  SetText(drawing.Text(""));
  EXPECT_EQ(Record(), kStart + R"([[1,2,3,4]],"arrowSize":0})");
  SetText(nullptr);
  EXPECT_EQ(Record(), kStart + R"([[1,2,3,4]],"arrowSize":0})");
}

TEST_F(MultileaderRecords, TextIsDecodedByTheDrawingAndWarnsOfNothing) {
  SetRoots({Root({Line({{1, 2, 0}, {3, 4, 0}})})});
  SetText(drawing.Text("\\fSimSun|c134;\xE9\\Q5;"));
  EXPECT_NE(Record().find("é"), std::string::npos);
  EXPECT_TRUE(drawing.warnings.empty());
  drawing.textForm = TextForm::kUtf16;
  SetText(drawing.Utf16(u"Ж"));
  EXPECT_NE(Record().find("<p>Ж</p>"), std::string::npos);
}
