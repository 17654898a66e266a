#include "entities/color.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

Dwg_Color Indexed(int index) {
  Dwg_Color color{};
  color.index = static_cast<BITCODE_BSd>(index);
  return color;
}

Dwg_Color TrueColor(std::uint32_t word) {
  Dwg_Color color{};
  color.index = 5;
  color.rgb = word;
  return color;
}

Dwg_Color Transparent(Dwg_Color color, int type, int alpha) {
  color.alpha_type = static_cast<BITCODE_BB>(type);
  color.alpha = static_cast<BITCODE_RC>(alpha);
  return color;
}

std::string Lineweight(int code) {
  JsonOut out;
  AppendLineweight(out, static_cast<std::uint8_t>(code));
  return out.Text();
}

std::string ColorJson(const Dwg_Color& color) {
  JsonOut out;
  AppendColor(out, color);
  return out.Text();
}

}  // namespace

TEST(AppendColor, InheritedColorsAreTags) {
  EXPECT_EQ(ColorJson(Indexed(256)), R"("L")");
  EXPECT_EQ(ColorJson(Indexed(0)), R"("K")");
}

TEST(AppendColor, InheritedColorsWinOverATrueColorWord) {
  Dwg_Color color = TrueColor(0xC2FF8000);
  color.index = 256;
  EXPECT_EQ(ColorJson(color), R"("L")");
  color.index = 0;
  EXPECT_EQ(ColorJson(color), R"("K")");
}

TEST(AppendColor, IndexSevenIsATag) {
  EXPECT_EQ(ColorJson(Indexed(7)), R"("W")");
}

TEST(AppendColor, IndexSevenWithATransparencyIsStillATag) {
  EXPECT_EQ(ColorJson(Transparent(Indexed(7), 3, 64)), R"("W")");
}

TEST(AppendColor, TrueColorStoredWithIndexSevenIsItself) {
  Dwg_Color color = TrueColor(0xC2102030);
  color.index = 7;
  EXPECT_EQ(ColorJson(color), R"({"r":16,"g":32,"b":48})");
}

TEST(AppendColor, Index257TakesTheWordOfAnyMethod) {
  Dwg_Color color = TrueColor(0x00102030);
  color.index = 257;
  EXPECT_EQ(ColorJson(color), R"({"r":16,"g":32,"b":48})");
}

TEST(AppendColor, WordsOfOtherMethodsAreIgnored) {
  Dwg_Color color = TrueColor(0xC3102030);
  color.index = 1;
  EXPECT_EQ(ColorJson(color), R"({"r":255,"g":0,"b":0})");
}

TEST(AppendColor, MethodMemberIsNotConsulted) {
  Dwg_Color color = Indexed(1);
  color.method = DWG_COLOR_METHOD_TRUECOLOR;
  color.rgb = 0x00102030;
  EXPECT_EQ(ColorJson(color), R"({"r":255,"g":0,"b":0})");
}

TEST(AppendColor, BlackAndWhiteIndicesAreObjects) {
  EXPECT_EQ(ColorJson(Indexed(255)), R"({"r":0,"g":0,"b":0})");
  EXPECT_EQ(ColorJson(Indexed(254)), R"({"r":255,"g":255,"b":255})");
}

TEST(AppendColor, NegativeIndexIsBlack) {
  EXPECT_EQ(ColorJson(Indexed(-3)), R"({"r":0,"g":0,"b":0})");
}

TEST(AppendColor, IndexFrom258OnIsBlack) {
  EXPECT_EQ(ColorJson(Indexed(258)), R"({"r":0,"g":0,"b":0})");
}

TEST(AppendColor, ExplicitTransparencyIsWrittenAsItsComplement) {
  EXPECT_EQ(ColorJson(Transparent(TrueColor(0xC2FF8000), 3, 64)),
            R"({"r":255,"g":128,"b":0,"a":191})");
  EXPECT_EQ(ColorJson(Transparent(Indexed(1), 3, 0)), R"({"r":255,"g":0,"b":0,"a":255})");
  EXPECT_EQ(ColorJson(Transparent(Indexed(1), 3, 254)), R"({"r":255,"g":0,"b":0,"a":1})");
}

TEST(AppendColor, TransparencyTypeMayBeAMethodToo) {
  EXPECT_EQ(ColorJson(Transparent(Indexed(1), 0xC2, 64)), R"({"r":255,"g":0,"b":0,"a":191})");
}

TEST(AppendColor, FullAlphaOrAnotherTypeWritesNoAlpha) {
  EXPECT_EQ(ColorJson(Transparent(TrueColor(0xC2FF8000), 3, 255)), R"({"r":255,"g":128,"b":0})");
  for (const int type : {0, 1, 2, 4, 0xC3}) {
    EXPECT_EQ(ColorJson(Transparent(Indexed(1), type, 64)), R"({"r":255,"g":0,"b":0})") << type;
  }
}

TEST(ColorJsonOrEmpty, IsEmptyForInheritedColors) {
  EXPECT_EQ(ColorJsonOrEmpty(Indexed(0)), "");
  EXPECT_EQ(ColorJsonOrEmpty(Indexed(256)), "");
}

TEST(ColorJsonOrEmpty, IsTheColorValueOtherwise) {
  EXPECT_EQ(ColorJsonOrEmpty(Indexed(7)), R"("W")");
  EXPECT_EQ(ColorJsonOrEmpty(Indexed(3)), R"({"r":0,"g":255,"b":0})");
}

TEST(AppendLineweight, WritesHundredthsOfAMillimetre) {
  const std::vector<std::string> expected = {"0",  "5",   "9",   "13",  "15",  "18",  "20",  "25",
                                             "30", "35",  "40",  "50",  "53",  "60",  "70",  "80",
                                             "90", "100", "106", "120", "140", "158", "200", "211"};
  for (int code = 0; code < 24; ++code) {
    EXPECT_EQ(Lineweight(code), expected[static_cast<std::size_t>(code)]) << code;
  }
}

TEST(AppendLineweight, WritesEveryOtherCodeAsByLayer) {
  for (const int code : {24, 28, 29, 30, 31, 32, 255}) {
    EXPECT_EQ(Lineweight(code), R"("L")") << code;
  }
}
