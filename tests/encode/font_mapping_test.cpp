#include "encode/font_mapping.hpp"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace {

struct Mapping {
  const char* name;
  const char* family;
};

constexpr std::array<Mapping, 29> kMappings = {{
    {"txt", "Arial"},
    {"txt2", "Arial"},
    {"standard", "Arial"},
    {"simplex", "Arial"},
    {"greeks", "Arial"},
    {"gothicg", "Arial"},
    {"gothice", "Arial"},
    {"gothici", "Arial"},
    {"isocpeur", "Arial"},
    {"isocpeur2", "Arial"},
    {"isocp", "Arial"},
    {"isocp2", "Arial"},
    {"isocp3", "Arial"},
    {"iso", "Arial"},
    {"complex", "Arial"},
    {"complexc", "Arial"},
    {"complexs", "Arial"},
    {"symap", "Arial"},
    {"symusic", "Arial"},
    {"italic", "Arial"},
    {"italiccs", "Arial"},
    {"italics", "Arial"},
    {"romans", "Times New Roman"},
    {"romanc", "Times New Roman"},
    {"romand", "Times New Roman"},
    {"romant", "Times New Roman"},
    {"monotxt", "Courier New"},
    {"scriptc", "Comic Sans MS"},
    {"scripts", "Comic Sans MS"},
}};

}  // namespace

TEST(MapFontFamily, KnowsEveryShapeFontWithAndWithoutExtension) {
  for (const Mapping& mapping : kMappings) {
    EXPECT_EQ(MapFontFamily(mapping.name), mapping.family) << mapping.name;
    EXPECT_EQ(MapFontFamily(std::string(mapping.name) + ".shx"), mapping.family) << mapping.name;
  }
}

TEST(MapFontFamily, IgnoresTheLetterCaseOfShapeFonts) {
  EXPECT_EQ(MapFontFamily("ROMANS.SHX"), "Times New Roman");
  EXPECT_EQ(MapFontFamily("MonoTxt.ShX"), "Courier New");
  EXPECT_EQ(MapFontFamily("TXT"), "Arial");
}

TEST(MapFontFamily, UnknownShapeFontIsArial) {
  EXPECT_EQ(MapFontFamily("myfont.shx"), "Arial");
  EXPECT_EQ(MapFontFamily("romans.shx.shx"), "Arial");
}

TEST(MapFontFamily, FoldersAreNotRemoved) {
  EXPECT_EQ(MapFontFamily("fonts\\romans.shx"), "Arial");
  EXPECT_EQ(MapFontFamily("fonts/romans"), "fonts/romans");
}

TEST(MapFontFamily, AnyOtherNameIsReturnedAsGiven) {
  EXPECT_EQ(MapFontFamily("myfont"), "myfont");
  EXPECT_EQ(MapFontFamily("Times New Roman"), "Times New Roman");
  EXPECT_EQ(MapFontFamily("arial.ttf"), "arial.ttf");
  EXPECT_EQ(MapFontFamily("Romans.TTF"), "Romans.TTF");
  EXPECT_EQ(MapFontFamily("\xC3\x84rial"), "\xC3\x84rial");
}

TEST(MapFontFamily, BareExtensionIsNoShapeFont) {
  EXPECT_EQ(MapFontFamily(".shx"), ".shx");
  EXPECT_EQ(MapFontFamily(".SHX"), ".SHX");
}

TEST(MapFontFamily, OneByteBeforeTheExtensionIsEnough) {
  EXPECT_EQ(MapFontFamily("a.shx"), "Arial");
}

TEST(MapFontFamily, OnlyAWholeNameIsAShapeFont) {
  EXPECT_EQ(MapFontFamily("roman"), "roman");
  EXPECT_EQ(MapFontFamily("romanss"), "romanss");
  EXPECT_EQ(MapFontFamily("isocpeur22"), "isocpeur22");
}

TEST(MapFontFamily, EmptyNameStaysEmpty) {
  EXPECT_EQ(MapFontFamily(""), "");
}
