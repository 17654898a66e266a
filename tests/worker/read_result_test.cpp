#include "worker/read_result.hpp"

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

TEST(ReleaseWord, SevenReleasesHaveAWord) {
  EXPECT_EQ(ReleaseWord(R_14), "R14");
  EXPECT_EQ(ReleaseWord(R_2000), "2000");
  EXPECT_EQ(ReleaseWord(R_2004), "2004");
  EXPECT_EQ(ReleaseWord(R_2007), "2007");
  EXPECT_EQ(ReleaseWord(R_2010), "2010");
  EXPECT_EQ(ReleaseWord(R_2013), "2013");
  EXPECT_EQ(ReleaseWord(R_2018), "2018");
}

TEST(ReleaseWord, EveryOtherVersionIsUnknown) {
  int words = 0;
  for (int version = R_INVALID; version <= R_AFTER; ++version) {
    words += ReleaseWord(static_cast<Dwg_Version_Type>(version)) == "Unknown" ? 0 : 1;
  }
  EXPECT_EQ(words, 7);
  EXPECT_EQ(ReleaseWord(R_2000i), "Unknown");
  EXPECT_EQ(ReleaseWord(R_12), "Unknown");
  EXPECT_EQ(ReleaseWord(R_2004c), "Unknown");
}
