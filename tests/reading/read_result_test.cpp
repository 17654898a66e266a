#include "reading/read_result.hpp"

#include <dwg.h>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

TEST(ErrorNames, NoBitGivesAnEmptyText) {
  EXPECT_EQ(ErrorNames(0), "");
}

TEST(ErrorNames, EveryBitHasItsName) {
  const std::vector<std::pair<int, const char*>> names = {
      {0x1, "WRONGCRC"},          {0x2, "NOTYETSUPPORTED"},  {0x4, "UNHANDLEDCLASS"},
      {0x8, "INVALIDTYPE"},       {0x10, "INVALIDHANDLE"},   {0x20, "INVALIDEED"},
      {0x40, "VALUEOUTOFBOUNDS"}, {0x80, "CLASSESNOTFOUND"}, {0x100, "SECTIONNOTFOUND"},
      {0x200, "PAGENOTFOUND"},    {0x400, "INTERNALERROR"},  {0x800, "INVALIDDWG"},
      {0x1000, "IOERROR"},        {0x2000, "OUTOFMEM"},
  };
  for (const auto& [bit, name] : names) {
    EXPECT_EQ(ErrorNames(bit), name) << bit;
  }
}

TEST(ErrorNames, NamesAreJoinedLowestBitFirst) {
  EXPECT_EQ(ErrorNames(0x81), "WRONGCRC, CLASSESNOTFOUND");
  EXPECT_EQ(ErrorNames(0x202), "NOTYETSUPPORTED, PAGENOTFOUND");
  EXPECT_EQ(ErrorNames(0x3FFF),
            "WRONGCRC, NOTYETSUPPORTED, UNHANDLEDCLASS, INVALIDTYPE, INVALIDHANDLE, INVALIDEED, "
            "VALUEOUTOFBOUNDS, CLASSESNOTFOUND, SECTIONNOTFOUND, PAGENOTFOUND, INTERNALERROR, "
            "INVALIDDWG, IOERROR, OUTOFMEM");
}

TEST(ErrorNames, BitsWithoutANameAreLeftOut) {
  EXPECT_EQ(ErrorNames(0x4000), "");
  EXPECT_EQ(ErrorNames(0x40010), "INVALIDHANDLE");
}

TEST(ErrorNames, NamesAreThoseOfTheLibrarysBits) {
  EXPECT_EQ(ErrorNames(DWG_ERR_WRONGCRC), "WRONGCRC");
  EXPECT_EQ(ErrorNames(DWG_ERR_INVALIDEED), "INVALIDEED");
  EXPECT_EQ(ErrorNames(DWG_ERR_CLASSESNOTFOUND), "CLASSESNOTFOUND");
  EXPECT_EQ(ErrorNames(DWG_ERR_INTERNALERROR), "INTERNALERROR");
}

TEST(IsFatalResult, FourBitsAreFatal) {
  for (int bit = 0; bit < 14; ++bit) {
    const bool isFatal = bit == 9 || bit == 11 || bit == 12 || bit == 13;
    EXPECT_EQ(IsFatalResult(1 << bit), isFatal) << bit;
  }
}

TEST(IsFatalResult, OneFatalBitAmongOthersIsEnough) {
  EXPECT_FALSE(IsFatalResult(0));
  EXPECT_FALSE(IsFatalResult(0x5FF));
  EXPECT_TRUE(IsFatalResult(0x202));
}
