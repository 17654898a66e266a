#include "encode/color.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
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

struct PaletteCase {
  int index;
  Rgb rgb;
};

void PrintTo(const PaletteCase& one, std::ostream* out) {
  *out << "index " << one.index;
}

class Palette : public testing::TestWithParam<PaletteCase> {};

// An entity object with its common data, for the record appender.
struct Entity {
  Dwg_Object_Entity data{};
  Dwg_Object object{};
  Entity() {
    object.supertype = DWG_SUPERTYPE_ENTITY;
    object.tio.entity = &data;
  }
};

}  // namespace

TEST_P(Palette, HasTheColorThatConsumersKnow) {
  EXPECT_EQ(AciToRgb(GetParam().index), GetParam().rgb);
}

INSTANTIATE_TEST_SUITE_P(Basic, Palette,
                         testing::Values(PaletteCase{0, {0, 0, 0}}, PaletteCase{1, {255, 0, 0}},
                                         PaletteCase{2, {255, 255, 0}}, PaletteCase{3, {0, 255, 0}},
                                         PaletteCase{4, {0, 255, 255}}, PaletteCase{5, {0, 0, 255}},
                                         PaletteCase{6, {255, 0, 255}},
                                         PaletteCase{7, {255, 255, 255}},
                                         PaletteCase{8, {65, 65, 65}},
                                         PaletteCase{9, {128, 128, 128}}));

INSTANTIATE_TEST_SUITE_P(
    Greys, Palette,
    testing::Values(PaletteCase{250, {51, 51, 51}}, PaletteCase{251, {102, 102, 102}},
                    PaletteCase{252, {153, 153, 153}}, PaletteCase{253, {204, 204, 204}},
                    PaletteCase{254, {255, 255, 255}}, PaletteCase{255, {0, 0, 0}}));

INSTANTIATE_TEST_SUITE_P(
    Truncated, Palette,
    testing::Values(PaletteCase{10, {255, 0, 0}}, PaletteCase{11, {255, 50, 50}},
                    PaletteCase{15, {191, 0, 0}}, PaletteCase{16, {127, 0, 0}},
                    PaletteCase{17, {63, 0, 0}}, PaletteCase{20, {255, 63, 0}},
                    PaletteCase{21, {255, 101, 50}}, PaletteCase{30, {255, 127, 0}},
                    PaletteCase{50, {255, 255, 0}}, PaletteCase{90, {0, 255, 0}},
                    PaletteCase{130, {0, 255, 255}}, PaletteCase{170, {0, 0, 255}},
                    PaletteCase{210, {255, 0, 255}}, PaletteCase{240, {255, 0, 63}}));

INSTANTIATE_TEST_SUITE_P(Outside, Palette,
                         testing::Values(PaletteCase{-1, {0, 0, 0}}, PaletteCase{-32768, {0, 0, 0}},
                                         PaletteCase{256, {0, 0, 0}}, PaletteCase{257, {0, 0, 0}},
                                         PaletteCase{258, {0, 0, 0}},
                                         PaletteCase{32767, {0, 0, 0}}));

TEST(AciToRgb, LastTwoShadesOfEveryHueAreGrey) {
  for (int hue = 10; hue < 250; hue += 10) {
    EXPECT_EQ(AciToRgb(hue + 8), (Rgb{191, 191, 191})) << hue;
    EXPECT_EQ(AciToRgb(hue + 9), (Rgb{127, 127, 127})) << hue;
  }
}

TEST(AciToRgb, EveryHueHasAPureColorOfFullBrightness) {
  for (int hue = 10; hue < 250; hue += 10) {
    const Rgb rgb = AciToRgb(hue);
    const std::array<int, 3> channels = {rgb.red, rgb.green, rgb.blue};
    EXPECT_EQ(*std::max_element(channels.begin(), channels.end()), 255) << hue;
    EXPECT_EQ(*std::min_element(channels.begin(), channels.end()), 0) << hue;
  }
}

TEST(ColorJson, InheritedColorsAreTags) {
  EXPECT_EQ(ColorJson(Indexed(256)), R"("L")");
  EXPECT_EQ(ColorJson(Indexed(0)), R"("K")");
}

TEST(ColorJson, InheritedColorsWinOverATrueColorWord) {
  Dwg_Color color = TrueColor(0xC2FF8000);
  color.index = 256;
  EXPECT_EQ(ColorJson(color), R"("L")");
  color.index = 0;
  EXPECT_EQ(ColorJson(color), R"("K")");
}

TEST(ColorJson, IndexSevenIsATag) {
  EXPECT_EQ(ColorJson(Indexed(7)), R"("W")");
}

TEST(ColorJson, IndexSevenWithATransparencyIsStillATag) {
  EXPECT_EQ(ColorJson(Transparent(Indexed(7), 3, 64)), R"("W")");
}

TEST(ColorJson, TrueColorStoredWithIndexSevenIsItself) {
  Dwg_Color color = TrueColor(0xC2102030);
  color.index = 7;
  EXPECT_EQ(ColorJson(color), R"({"r":16,"g":32,"b":48})");
}

TEST(ColorJson, Index257TakesTheWordOfAnyMethod) {
  Dwg_Color color = TrueColor(0x00102030);
  color.index = 257;
  EXPECT_EQ(ColorJson(color), R"({"r":16,"g":32,"b":48})");
}

TEST(ColorJson, WordsOfOtherMethodsAreIgnored) {
  Dwg_Color color = TrueColor(0xC3102030);
  color.index = 1;
  EXPECT_EQ(ColorJson(color), R"({"r":255,"g":0,"b":0})");
}

TEST(ColorJson, MethodMemberIsNotConsulted) {
  Dwg_Color color = Indexed(1);
  color.method = DWG_COLOR_METHOD_TRUECOLOR;
  color.rgb = 0x00102030;
  EXPECT_EQ(ColorJson(color), R"({"r":255,"g":0,"b":0})");
}

TEST(ColorJson, BlackAndWhiteIndicesAreObjects) {
  EXPECT_EQ(ColorJson(Indexed(255)), R"({"r":0,"g":0,"b":0})");
  EXPECT_EQ(ColorJson(Indexed(254)), R"({"r":255,"g":255,"b":255})");
}

TEST(ColorJson, NegativeIndexIsBlack) {
  EXPECT_EQ(ColorJson(Indexed(-3)), R"({"r":0,"g":0,"b":0})");
}

TEST(ColorJson, IndexFrom258OnIsBlack) {
  EXPECT_EQ(ColorJson(Indexed(258)), R"({"r":0,"g":0,"b":0})");
}

TEST(ColorJson, ExplicitTransparencyIsWrittenAsItsComplement) {
  EXPECT_EQ(ColorJson(Transparent(TrueColor(0xC2FF8000), 3, 64)),
            R"({"r":255,"g":128,"b":0,"a":191})");
  EXPECT_EQ(ColorJson(Transparent(Indexed(1), 3, 0)), R"({"r":255,"g":0,"b":0,"a":255})");
  EXPECT_EQ(ColorJson(Transparent(Indexed(1), 3, 254)), R"({"r":255,"g":0,"b":0,"a":1})");
}

TEST(ColorJson, TransparencyTypeMayBeAMethodToo) {
  EXPECT_EQ(ColorJson(Transparent(Indexed(1), 0xC2, 64)), R"({"r":255,"g":0,"b":0,"a":191})");
}

TEST(ColorJson, FullAlphaOrAnotherTypeWritesNoAlpha) {
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

std::string WithColor(std::string_view record, const Dwg_Object& object, bool debug) {
  JsonOut out("before");
  const std::size_t start = out.size();
  out += record;
  AppendColorAndLineweight(out, start, object, debug);
  return out.Text().substr(start);
}

TEST(AppendColorAndLineweight, AddsBothKeysBeforeTheClosingBrace) {
  Entity entity;
  entity.data.color = Indexed(256);
  entity.data.linewt = 29;
  EXPECT_EQ(WithColor(R"({"type":"X"})", entity.object, false),
            R"({"type":"X","color":"L","lw":"L"})");
}

TEST(AppendColorAndLineweight, ByBlockLineweightIsReportedAsByLayer) {
  Entity entity;
  entity.data.color = Indexed(0);
  entity.data.linewt = 30;
  EXPECT_EQ(WithColor("{}", entity.object, false), R"({,"color":"K","lw":"L"})");
}

TEST(AppendColorAndLineweight, EitherKeyMayComeFromTheLayerAlone) {
  Entity entity;
  entity.data.color = Indexed(256);
  entity.data.linewt = 7;
  EXPECT_EQ(WithColor("{}", entity.object, false), R"({,"color":"L","lw":25})");
  entity.data.color = Indexed(7);
  entity.data.linewt = 29;
  EXPECT_EQ(WithColor("{}", entity.object, false), R"({,"color":"W","lw":"L"})");
}

TEST(AppendColorAndLineweight, DebugAddsTheStoredFieldsByLayerToo) {
  Entity entity;
  entity.data.color = Indexed(256);
  entity.data.linewt = 29;
  EXPECT_EQ(WithColor("{}", entity.object, true),
            R"({,"color":"L","lw":"L","_dbg":{"color_index":256,"color_alpha_type":0,)"
            R"("color_alpha":0,"color_alpha_raw":0}})");
}

TEST(AppendColorAndLineweight, DebugAddsTheStoredFields) {
  Entity entity;
  entity.data.color = Transparent(Indexed(-3), 3, 255);
  entity.data.color.alpha_raw = 0xFFFFFFFF;
  entity.data.linewt = 7;
  EXPECT_EQ(WithColor(R"({"a":1})", entity.object, true),
            R"({"a":1,"color":{"r":0,"g":0,"b":0},"lw":25,)"
            R"("_dbg":{"color_index":-3,"color_alpha_type":3,"color_alpha":255,)"
            R"("color_alpha_raw":4294967295}})");
}

TEST(AppendColorAndLineweight, LeavesTextsWithoutAClosingBraceAlone) {
  Entity entity;
  EXPECT_EQ(WithColor("", entity.object, true), "");
  EXPECT_EQ(WithColor("[1]", entity.object, true), "[1]");
}

TEST(AppendColorAndLineweight, LooksNoFurtherBackThanTheRecord) {
  Entity entity;
  JsonOut out("{}");
  AppendColorAndLineweight(out, out.size(), entity.object, true);
  EXPECT_EQ(out, "{}");
}
