#include "text/dimension.hpp"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/test_drawing.hpp"
#include "tests/support/value_at.hpp"
#include "tests/support/written.hpp"

namespace {

constexpr Handle kStyle = 0x20;

class DimensionRecords : public testing::Test {
 protected:
  DimensionRecords() { drawing.tables.dimStyles[kStyle] = {}; }

  DimStyleEntry& style() { return drawing.tables.dimStyles[kStyle]; }

  // What the style of that handle adds behind the other keys.
  std::string StyleKeys(Dwg_Object_Ref* reference) {
    Dwg_Entity_DIMENSION_ALIGNED dimension{};
    const std::string plain = Aligned(dimension);
    dimension.dimstyle = reference;
    const std::string styled = Aligned(dimension);
    const std::size_t start = plain.size() - 1;
    EXPECT_EQ(styled.substr(0, start), plain.substr(0, start));
    return styled.substr(start, styled.size() - plain.size());
  }
  std::string StyleKeys() { return StyleKeys(drawing.Ref(kStyle)); }

  std::string Aligned(const Dwg_Entity_DIMENSION_ALIGNED& dimension) {
    return drawing.RecordOf(DWG_TYPE_DIMENSION_ALIGNED, &EntityTio::DIMENSION_ALIGNED, dimension);
  }

  template <typename Dimension>
  void Fill(Dimension& dimension) {
    dimension.def_pt = {5, 6, 0};
    dimension.text_midpt = {7, 8};
    dimension.act_measurement = 12.5;
    dimension.user_text = drawing.Text("<> \\X%%c");
    dimension.dimstyle = drawing.Ref(kStyle);
  }

  TestDrawing drawing;
};

}  // namespace

TEST_F(DimensionRecords, LinearDimensionHasItsRotation) {
  Dwg_Entity_DIMENSION_LINEAR dimension{};
  Fill(dimension);
  dimension.xline1_pt = {1, 2, 9};
  dimension.xline2_pt = {3, 4, 9};
  dimension.dim_rotation = 0.5;
  style().textHeight = 2;
  EXPECT_EQ(
      drawing.RecordOf(DWG_TYPE_DIMENSION_LINEAR, &EntityTio::DIMENSION_LINEAR, dimension, "Maße"),
      R"({"type":"DIMENSION_LINEAR","layer":"Maße","x1":1,"y1":2,"x2":3,"y2":4,"defX":5,)"
      R"("defY":6,"dimRotationRad":0.5,"measurement":12.5,"userText":"<> \\X%%c",)"
      R"("textMidX":7,"textMidY":8,"textHeight":2})");
}

TEST_F(DimensionRecords, AlignedDimensionHasNoRotation) {
  Dwg_Entity_DIMENSION_ALIGNED dimension{};
  Fill(dimension);
  dimension.xline1_pt = {1, 2, 9};
  dimension.xline2_pt = {3, 4, 9};
  EXPECT_EQ(Aligned(dimension),
            R"({"type":"DIMENSION_ALIGNED","layer":"0","x1":1,"y1":2,"x2":3,"y2":4,"defX":5,)"
            R"("defY":6,"measurement":12.5,"userText":"<> \\X%%c","textMidX":7,"textMidY":8})");
}

TEST_F(DimensionRecords, RadiusDimensionHasItsArcPointAndLeader) {
  Dwg_Entity_DIMENSION_RADIUS dimension{};
  Fill(dimension);
  dimension.first_arc_pt = {1, 2, 9};
  dimension.leader_len = 3;
  EXPECT_EQ(drawing.RecordOf(DWG_TYPE_DIMENSION_RADIUS, &EntityTio::DIMENSION_RADIUS, dimension),
            R"({"type":"DIMENSION_RADIUS","layer":"0","defX":5,"defY":6,"arcX":1,"arcY":2,)"
            R"("leaderLen":3,"measurement":12.5,"userText":"<> \\X%%c","textMidX":7,)"
            R"("textMidY":8})");
}

TEST_F(DimensionRecords, MissingOverrideTextIsAnEmptyString) {
  Dwg_Entity_DIMENSION_ALIGNED dimension{};
  EXPECT_NE(Aligned(dimension).find(R"("userText":"",)"), std::string::npos);
}

TEST_F(DimensionRecords, OverrideTextIsDecodedByTheDrawing) {
  Dwg_Entity_DIMENSION_ALIGNED dimension{};
  drawing.textForm = TextForm::kUtf16;
  dimension.user_text = drawing.Utf16(u"⌀<>");
  EXPECT_NE(Aligned(dimension).find(R"("userText":"⌀<>",)"), std::string::npos);
}

TEST_F(DimensionRecords, MissingOrUnknownStyleHasNoKeys) {
  style().textHeight = 2;
  EXPECT_EQ(StyleKeys(nullptr), "");
  EXPECT_EQ(StyleKeys(drawing.Ref(0)), "");
  EXPECT_EQ(StyleKeys(drawing.Ref(9)), "");
}

TEST_F(DimensionRecords, StyleWithDefaultsHasNoKeys) {
  EXPECT_EQ(StyleKeys(), "");
}

TEST_F(DimensionRecords, EveryStyleKeyInOrder) {
  drawing.tables.styleFonts = MapOf<std::string>({{0x30, "Arial"}});
  style() = {.textHeight = 0.18,
             .overallScale = 2,
             .arrowSize = 0.25,
             .textStyle = 0x30,
             .textColor = R"({"r":1,"g":2,"b":3})",
             .lineColor = "\"W\"",
             .decimalPlaces = 4,
             .linearFactor = 0.5,
             .rounding = 0.25,
             .zeroSuppression = 8,
             .linearUnit = 2,
             .postfix = "<>\" mm"};
  EXPECT_EQ(StyleKeys(),
            R"(,"textHeight":0.36,"arrowSize":0.5,"fontFamily":"Arial",)"
            R"("textColorRgb":{"r":1,"g":2,"b":3},"lineColorRgb":"W","dimDec":4,"dimLFac":0.5,)"
            R"("dimRnd":0.25,"dimZin":8,"dimLUnit":2,"dimPost":"<>\" mm")");
}

TEST_F(DimensionRecords, ScaleIsOneUnlessItIsPositive) {
  struct Case {
    double scale;
    const char* keys;
  };
  style().textHeight = 0.18;
  style().arrowSize = 1;
  for (const Case& row : {Case{0, R"(,"textHeight":0.18,"arrowSize":1)"},
                          {-2, R"(,"textHeight":0.18,"arrowSize":1)"},
                          {1, R"(,"textHeight":0.18,"arrowSize":1)"},
                          {2, R"(,"textHeight":0.36,"arrowSize":2)"},
                          {0.5, R"(,"textHeight":0.09,"arrowSize":0.5)"}}) {
    style().overallScale = row.scale;
    EXPECT_EQ(StyleKeys(), row.keys) << row.scale;
  }
}

TEST_F(DimensionRecords, SizesOfZeroOrLessAreLeftOut) {
  style().textHeight = -1;
  style().arrowSize = 0;
  style().overallScale = 3;
  EXPECT_EQ(StyleKeys(), "");
}

TEST_F(DimensionRecords, FontNeedsAStyleWithAFamily) {
  drawing.tables.styleFonts = MapOf<std::string>({{0, "Zero"}, {0x30, ""}});
  style().textStyle = 0;
  EXPECT_EQ(StyleKeys(), "");
  style().textStyle = 0x30;
  EXPECT_EQ(StyleKeys(), "");
  style().textStyle = 0x31;
  EXPECT_EQ(StyleKeys(), "");
}

TEST_F(DimensionRecords, DecimalPlacesFromZeroOnAreWritten) {
  style().decimalPlaces = 0;
  EXPECT_EQ(StyleKeys(), ",\"dimDec\":0");
  style().decimalPlaces = -1;
  EXPECT_EQ(StyleKeys(), "");
}

TEST_F(DimensionRecords, LinearFactorsOfZeroAndOneAreLeftOut) {
  style().linearFactor = 0;
  EXPECT_EQ(StyleKeys(), "");
  style().linearFactor = 1;
  EXPECT_EQ(StyleKeys(), "");
  style().linearFactor = -2.5;
  EXPECT_EQ(StyleKeys(), ",\"dimLFac\":-2.5");
}

TEST_F(DimensionRecords, RoundingIsWrittenWhenPositive) {
  style().rounding = -1;
  EXPECT_EQ(StyleKeys(), "");
  style().rounding = 5;
  EXPECT_EQ(StyleKeys(), ",\"dimRnd\":5");
}

TEST_F(DimensionRecords, UnitsAndZerosAreWrittenWhenSet) {
  style().zeroSuppression = 12;
  style().linearUnit = 6;
  EXPECT_EQ(StyleKeys(), ",\"dimZin\":12,\"dimLUnit\":6");
}
