#include "encode/font_mapping.hpp"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>

TEST(FontMapping, ShapeFontsHaveDesktopFamilies) {
  const std::map<std::string, std::string> families = {
      {"Arial",
       "txt txt2 standard simplex greeks gothicg gothice gothici isocpeur isocpeur2 isocp isocp2 "
       "isocp3 iso complex complexc complexs symap symusic italic italiccs italics"},
      {"Times New Roman", "romans romanc romand romant"},
      {"Courier New", "monotxt"},
      {"Comic Sans MS", "scriptc scripts"}};
  int count = 0;
  for (const auto& [family, names] : families) {
    std::istringstream list(names);
    for (std::string name; list >> name; ++count) {
      EXPECT_EQ(MapFontFamily(name), family) << name;
      EXPECT_EQ(MapFontFamily(name + ".shx"), family) << name;
      EXPECT_EQ(MapFontFamily(name + ".SHX"), family) << name;
    }
  }
  EXPECT_EQ(count, 29);
}

TEST(FontMapping, LetterCaseDoesNotMatterForShapeFonts) {
  EXPECT_EQ(MapFontFamily("ROMANS.SHX"), "Times New Roman");
  EXPECT_EQ(MapFontFamily("RomanS"), "Times New Roman");
  EXPECT_EQ(MapFontFamily("Txt.ShX"), "Arial");
}

TEST(FontMapping, UnknownShapeFontsAreArial) {
  EXPECT_EQ(MapFontFamily("myfont.shx"), "Arial");
  EXPECT_EQ(MapFontFamily("fonts\\romans.shx"), "Arial");
  EXPECT_EQ(MapFontFamily("a.shx"), "Arial");
  EXPECT_EQ(MapFontFamily("宋体.SHX"), "Arial");
  EXPECT_EQ(MapFontFamily(".shx.shx"), "Arial");
}

TEST(FontMapping, OtherNamesStayAsTheyAre) {
  for (const char* name : {"Times New Roman", "arial.ttf", "myfont", "ARIAL", "宋体", ".shx",
                           ".SHX", "romans.ttf", "romans.shx ", "shx", "romans.shxx", " romans"}) {
    EXPECT_EQ(MapFontFamily(name), name);
  }
}

TEST(FontMapping, AnEmptyNameStaysEmpty) {
  EXPECT_EQ(MapFontFamily(""), "");
}
