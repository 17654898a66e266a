// The code page that a drawing names.
#include "reading/stored_text.hpp"

#include <dwg.h>
#include <gtest/gtest.h>

#include <string>

namespace {

std::string CodePageOfDwg(int number) {
  Dwg_Data dwg{};
  dwg.header.codepage = static_cast<BITCODE_RS>(number);
  return StoredTextOfDwg(dwg).codePage;
}

}  // namespace

TEST(StoredTextOfDwg, NamesTheCodePageOfTheHeader) {
  EXPECT_EQ(CodePageOfDwg(1), "US_ASCII");
  EXPECT_EQ(CodePageOfDwg(29), "ANSI_1251");
  EXPECT_EQ(CodePageOfDwg(44), "ANSI_1258");
}

TEST(StoredTextOfDwg, NamesNoneForNumbersThatAreNoCodePage) {
  for (const int number : {0, 45, 255, 798, 0xFFFF}) {
    EXPECT_EQ(CodePageOfDwg(number), "") << number;
  }
}
