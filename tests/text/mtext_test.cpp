#include "text/mtext.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/test_drawing.hpp"
#include "tests/support/value_at.hpp"
#include "tests/support/written.hpp"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class MtextRecords : public testing::Test {
 protected:
  MtextRecords() { mtext.x_axis_dir = {1, 0, 0}; }

  std::string Record(const std::string& layer = "0") {
    return drawing.RecordOf(DWG_TYPE_MTEXT, &EntityTio::MTEXT, mtext, layer);
  }

  // The record's width and height with their keys.
  std::string Frame() {
    const std::string record = Record();
    const std::size_t start = record.find(",\"width\":");
    return record.substr(start, record.find(",\"rotationRad\"") - start);
  }

  TestDrawing drawing;
  Dwg_Entity_MTEXT mtext{};
};

}  // namespace

TEST_F(MtextRecords, EveryKeyInOrder) {
  mtext.ins_pt = {1, 2, 9};
  mtext.text = drawing.Text("{\\W2;a}\\P\\pi1,l2,r3,qc,t4,5;\\T.5;b\\fMonoTxt|p1;c\\pqr;");
  mtext.rect_width = 30;
  mtext.text_height = 2.5;
  mtext.attachment = 5;
  EXPECT_EQ(
      Record("A\"B"),
      R"({"type":"MTEXT","layer":"A\"B","x":1,"y":2,"html":"<p>a</p><p>b<span style=\"font-family:)"
      R"(Courier New;\">c</span></p>","rawMtext":"{\\W2;a}\\P\\pi1,l2,r3,qc,t4,5;\\T.5;b)"
      R"(\\fMonoTxt|p1;c\\pqr;","width":30,"height":2.5,"rotationRad":0,"attachment":5,)"
      R"("runs":[{"start":0,"length":1,"stretch":200},{"start":2,"length":2,"tracking":50},)"
      R"({"start":3,"length":1,"fixedPitch":true}],"blocks":[{"index":1,"alignment":"c",)"
      R"("textIndent":1,"leftMargin":2,"rightMargin":3,"tabStops":[4,5]},)"
      R"({"index":1,"alignment":"r"}]})");
}

TEST_F(MtextRecords, NullTextIsAnEmptyParagraph) {
  mtext.text_height = 1;
  EXPECT_EQ(Record(),
            R"({"type":"MTEXT","layer":"0","x":0,"y":0,"html":"<p></p>","rawMtext":"","width":0,)"
            R"("height":1,"rotationRad":0,"attachment":0})");
}

TEST_F(MtextRecords, RotationIsTheDirectionOfTheXAxis) {
  mtext.x_axis_dir = {0, 1, 0};
  EXPECT_THAT(Record(), HasSubstr("\"rotationRad\":1.570796327"));
  mtext.x_axis_dir = {-1, 0, 0};
  EXPECT_THAT(Record(), HasSubstr("\"rotationRad\":3.141592654"));
  mtext.x_axis_dir = {0, -5, 0};
  EXPECT_THAT(Record(), HasSubstr("\"rotationRad\":-1.570796327"));
  mtext.x_axis_dir = {0, 0, 0};
  EXPECT_THAT(Record(), HasSubstr("\"rotationRad\":0,"));
}

TEST_F(MtextRecords, HeightOfTheFrameIsNotTheHeightOfTheText) {
  mtext.rect_width = 3;
  mtext.rect_height = 7;
  EXPECT_EQ(Frame(), ",\"width\":3,\"height\":0");
}

TEST_F(MtextRecords, MissingHeightIsTheStylesFixedHeight) {
  drawing.tables.textStyles = MapOf<double>({{0x11, 3.5}, {0x12, 0}});
  mtext.text = drawing.Text("\\H2.5;abc");
  mtext.style = drawing.Ref(0x11);
  EXPECT_EQ(Frame(), ",\"width\":0,\"height\":3.5");
  mtext.style = drawing.Ref(0x12);  // without a height
  EXPECT_EQ(Frame(), ",\"width\":0,\"height\":2.5");
  mtext.style = drawing.Ref(0x13);  // unknown
  EXPECT_EQ(Frame(), ",\"width\":0,\"height\":2.5");
}

TEST_F(MtextRecords, MissingHeightIsReadFromTheFirstHeightCode) {
  struct Case {
    const char* text;
    const char* height;
  };
  for (const Case& row : {Case{"\\H2.5;abc", "2.5"},  // its value
                          {"a{\\C1;b\\H3;c}\\H4;", "3"},
                          {"\\H2x;abc\\H3;", "0"},  // relative
                          {"\\H0x10;", "16"},       // not a trailing x
                          {"\\H3", "3"},            // to the end of the text
                          {"\\H3 abc", "3"},        // trailing characters
                          {"\\H3 abx", "0"},        // ends in x
                          {"\\H;\\H3;", "0"},       // bare
                          {"\\Habc;", "0"},         // no number
                          {"\\H1e999;", "0"},       // out of range
                          {"\\H-2;", "-2"},         // as it is read
                          {"\\\\H5;", "5"},         // an escaped backslash is not told apart
                          {"\\h5;H5;", "0"},        // no such code
                          {"", "0"}}) {
    mtext.text = drawing.Text(row.text);
    EXPECT_EQ(Frame(), std::string(",\"width\":0,\"height\":") + row.height) << row.text;
  }
}

TEST_F(MtextRecords, HeightCodeIsSearchedInSixteenBitTextToo) {
  drawing.textForm = TextForm::kUtf16;
  mtext.text = drawing.Utf16(u"Ж\\H2.5;ab");
  EXPECT_EQ(Frame(), ",\"width\":0,\"height\":2.5");
}

TEST_F(MtextRecords, RelativeHeightsScaleTheNominalHeight) {
  mtext.text = drawing.Text("\\H.5x;a");
  mtext.text_height = 50.8;
  EXPECT_THAT(Record(), HasSubstr("font-size:1.0000pt"));
  mtext.text_height = 0;
  EXPECT_THAT(Record(), HasSubstr("\"html\":\"<p>a</p>\""));
}

TEST_F(MtextRecords, NonWesternCharacterSetInAnOldDrawingIsWarnedOfOnce) {
  mtext.text = drawing.Text("\\fSimSun|c134;\xD6\xD0\\fSimSun|c134;");
  Record("L\"1");
  EXPECT_THAT(drawing.warnings,
              ElementsAre("MTEXT on layer \"L\"1\": non-Western \\f|c charset detected in "
                          "pre-R2007 file; text decoded as Windows-1252 may be incorrect."));
}

TEST_F(MtextRecords, AsciiTextInANonWesternCharacterSetIsFine) {
  mtext.text = drawing.Text("\\fSimSun|c134;abc");
  Record();
  EXPECT_THAT(drawing.warnings, IsEmpty());
}

TEST_F(MtextRecords, NonAsciiTextInAWesternCharacterSetIsFine) {
  mtext.text = drawing.Text("\\fArial|c2;\xE9");
  Record();
  EXPECT_THAT(drawing.warnings, IsEmpty());
}

TEST_F(MtextRecords, SixteenBitTextIsFine) {
  drawing.textForm = TextForm::kUtf16;
  mtext.text = drawing.Utf16(u"\\fSimSun|c134;中");
  Record();
  EXPECT_THAT(drawing.warnings, IsEmpty());
}

TEST_F(MtextRecords, NonAsciiCharactersOfTheFontNameCount) {
  mtext.text = drawing.Text("\\f\xCB\xCE|c134;abc");
  Record();
  EXPECT_EQ(drawing.warnings.size(), 1U);
}

TEST_F(MtextRecords, ObliqueCodesAreWarnedOfWithTheirCount) {
  mtext.text = drawing.Text("\\Q1;a\\Q2;b\\Q3;");
  Record("L1");
  EXPECT_THAT(drawing.warnings, ElementsAre("3 \\Q oblique angle code(s) on layer \"L1\" ignored "
                                            "(Qt limitation — no per-fragment slant)"));
}

TEST_F(MtextRecords, ObliqueWarningIsCutAfter127Bytes) {
  mtext.text = drawing.Text("\\Q1;");
  Record(std::string(200, 'L'));
  Record(std::string(100, 'L'));
  const std::string start = "1 \\Q oblique angle code(s) on layer \"";
  ASSERT_EQ(start.size(), 37U);
  EXPECT_EQ(drawing.warnings[0], start + std::string(90, 'L'));
  EXPECT_EQ(drawing.warnings[1], start + std::string(90, 'L'));
}

// 37 bytes before the name, 25 from its quote to the dash, whose three bytes
// are cut apart when the name has 63.
TEST_F(MtextRecords, TheCutMayFallIntoTheDash) {
  mtext.text = drawing.Text("\\Q1;");
  Record(std::string(63, 'L'));
  EXPECT_EQ(drawing.warnings[0].size(), 127U);
  EXPECT_TRUE(drawing.warnings[0].ends_with("(Qt limitation \xE2\x80"));
}

TEST_F(MtextRecords, BothWarningsComeInOrder) {
  mtext.text = drawing.Text("\\Q1;\\f|c134;\xE9");
  Record();
  ASSERT_EQ(drawing.warnings.size(), 2U);
  EXPECT_THAT(drawing.warnings[0], HasSubstr("charset"));
  EXPECT_THAT(drawing.warnings[1], HasSubstr("oblique"));
}

TEST_F(MtextRecords, HtmlIsCutWhereACodeWritesNul) {
  mtext.text = drawing.Text("a\\U+0000 b");
  EXPECT_THAT(Record(), HasSubstr(R"("html":"<p>a","rawMtext":"a\\U+0000 b")"));
}

TEST_F(MtextRecords, InfiniteMarginIsWrittenAsZero) {
  mtext.text = drawing.Text("\\plinf;");
  EXPECT_THAT(Record(), HasSubstr(R"("blocks":[{"index":0,"leftMargin":0}])"));
}

TEST_F(MtextRecords, EmptySideResultsHaveNoKeys) {
  mtext.text = drawing.Text("a");
  EXPECT_THAT(Record(), Not(HasSubstr("runs")));
  EXPECT_THAT(Record(), Not(HasSubstr("blocks")));
}
