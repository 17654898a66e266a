#include "text/single_line_text.hpp"

#include <gtest/gtest.h>

#include "tests/support/test_drawing.hpp"
#include "tests/support/value_at.hpp"
#include "tests/support/written.hpp"

namespace {

// A drawing with a style of fixed height 3 under handle 0x11 (font Arial), one
// without a height under 0x12, and one with a height but no font under 0x13.
class TextRecords : public testing::Test {
 protected:
  TextRecords() {
    drawing.tables.textStyles = MapOf<double>({{0x11, 3.0}, {0x12, 0.0}, {0x13, 4.0}});
    drawing.tables.styleFonts =
        MapOf<std::string>({{0x11, "Arial"}, {0x12, "Times New Roman"}, {0x14, ""}});
  }

  std::string Record(const Dwg_Entity_TEXT& text) {
    return drawing.RecordOf(DWG_TYPE_TEXT, &EntityTio::TEXT, text);
  }

  std::string Record(const Dwg_Entity_ATTRIB& attribute) {
    return drawing.RecordOf(DWG_TYPE_ATTRIB, &EntityTio::ATTRIB, attribute);
  }

  std::string Record(const Dwg_Entity_ATTDEF& definition) {
    return drawing.RecordOf(DWG_TYPE_ATTDEF, &EntityTio::ATTDEF, definition);
  }

  TestDrawing drawing;
};

}  // namespace

TEST_F(TextRecords, TextHasPositionHtmlHeightAndRotation) {
  Dwg_Entity_TEXT text{};
  text.ins_pt = {1, 2};
  text.text_value = drawing.Text("45%%d < 90%%d");
  text.height = 2.5;
  text.rotation = 0.5;
  EXPECT_EQ(Record(text),
            R"({"type":"TEXT","layer":"0","x":1,"y":2,"html":"<p>45° &lt; 90°</p>","height":2.5,)"
            R"("rotationRad":0.5})");
}

TEST_F(TextRecords, NullTextIsAnEmptyParagraph) {
  EXPECT_EQ(Record(Dwg_Entity_TEXT{}),
            R"({"type":"TEXT","layer":"0","x":0,"y":0,"html":"<p></p>","height":0,)"
            R"("rotationRad":0})");
}

TEST_F(TextRecords, AlignmentIsWrittenWhenEitherPartIsSet) {
  Dwg_Entity_TEXT text{};
  text.alignment_pt = {7, 8};
  text.horiz_alignment = 4;
  EXPECT_TRUE(Record(text).ends_with(R"("rotationRad":0,"halign":4,"valign":0,"ax":7,"ay":8})"));
  text.horiz_alignment = 0;
  text.vert_alignment = 3;
  EXPECT_TRUE(Record(text).ends_with(R"("rotationRad":0,"halign":0,"valign":3,"ax":7,"ay":8})"));
  text.vert_alignment = 0;
  EXPECT_TRUE(Record(text).ends_with(R"("rotationRad":0})"));
}

TEST_F(TextRecords, HeightOfZeroTakesTheStylesHeight) {
  Dwg_Entity_TEXT text{};
  text.style = drawing.Ref(0x11);
  EXPECT_TRUE(Record(text).ends_with(R"("height":3,"rotationRad":0,"fontFamily":"Arial"})"));
  text.height = 2;
  EXPECT_TRUE(Record(text).ends_with(R"("height":2,"rotationRad":0,"fontFamily":"Arial"})"));
}

TEST_F(TextRecords, StyleWithoutAHeightLeavesZero) {
  Dwg_Entity_TEXT text{};
  text.style = drawing.Ref(0x12);
  EXPECT_TRUE(
      Record(text).ends_with(R"("height":0,"rotationRad":0,"fontFamily":"Times New Roman"})"));
}

TEST_F(TextRecords, HeightAndFontAreLookedUpIndependently) {
  Dwg_Entity_TEXT text{};
  text.style = drawing.Ref(0x13);
  EXPECT_TRUE(Record(text).ends_with(R"("height":4,"rotationRad":0})"));
}

TEST_F(TextRecords, UnknownStylesAndEmptyFamiliesWriteNoFont) {
  for (const Handle style : {Handle{0x99}, Handle{0x14}, Handle{0}}) {
    Dwg_Entity_TEXT text{};
    text.style = drawing.Ref(style);
    EXPECT_TRUE(Record(text).ends_with(R"("height":0,"rotationRad":0})")) << style;
  }
}

TEST_F(TextRecords, TextIsDecodedByTheDrawing) {
  Dwg_Entity_TEXT text{};
  text.text_value = drawing.Text("\xE9");
  EXPECT_NE(Record(text).find("<p>é</p>"), std::string::npos);
  drawing.textForm = TextForm::kUtf16;
  text.text_value = drawing.Utf16(u"Ж%%c");
  EXPECT_NE(Record(text).find("<p>Ж∅</p>"), std::string::npos);
}

TEST_F(TextRecords, TextIsCutWhereACodeWritesNul) {
  Dwg_Entity_TEXT text{};
  text.text_value = drawing.Text("a%%0b");
  EXPECT_NE(Record(text).find(R"("html":"<p>a","height")"), std::string::npos);
}

TEST_F(TextRecords, AttributeHasTagAndFlags) {
  Dwg_Entity_ATTRIB attribute{};
  attribute.ins_pt = {1, 2};
  attribute.text_value = drawing.Text("%%uA");
  attribute.tag = drawing.Text("NO\"1");
  attribute.flags = 255;
  attribute.style = drawing.Ref(0x11);
  EXPECT_EQ(Record(attribute),
            R"({"type":"DYNTEXT","layer":"0","kind":"attrib","x":1,"y":2,"html":"<p><u>A</u></p>",)"
            R"("height":3,"rotationRad":0,"fontFamily":"Arial","tag":"NO\"1","flags":255})");
}

TEST_F(TextRecords, NullTagIsAnEmptyString) {
  EXPECT_TRUE(Record(Dwg_Entity_ATTRIB{}).ends_with(R"("tag":"","flags":0})"));
}

TEST_F(TextRecords, AttributeDefinitionHasPromptAndDefaultValue) {
  Dwg_Entity_ATTDEF definition{};
  definition.ins_pt = {3, 4};
  definition.default_value = drawing.Text("%%c<5");
  definition.prompt = drawing.Text("Size?");
  definition.tag = drawing.Text("SIZE");
  definition.height = 1;
  definition.rotation = 1.5;
  definition.flags = 2;
  EXPECT_EQ(Record(definition),
            R"({"type":"DYNTEXT","layer":"0","kind":"attdef","x":3,"y":4,"html":"<p>∅&lt;5</p>",)"
            R"("height":1,"rotationRad":1.5,"tag":"SIZE","prompt":"Size?",)"
            R"("defaultValue":"%%c<5","flags":2})");
}

TEST_F(TextRecords, EmptyPromptIsLeftOut) {
  Dwg_Entity_ATTDEF definition{};
  EXPECT_TRUE(Record(definition).ends_with(R"("tag":"","defaultValue":"","flags":0})"));
  definition.prompt = drawing.Text("");
  EXPECT_TRUE(Record(definition).ends_with(R"("tag":"","defaultValue":"","flags":0})"));
}
