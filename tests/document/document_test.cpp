#include "document/document.hpp"

#include <gtest/gtest.h>

TEST(VersionWord, SevenReleasesHaveAWord) {
  EXPECT_EQ(VersionWord(R_14), "R14");
  EXPECT_EQ(VersionWord(R_2000), "2000");
  EXPECT_EQ(VersionWord(R_2004), "2004");
  EXPECT_EQ(VersionWord(R_2007), "2007");
  EXPECT_EQ(VersionWord(R_2010), "2010");
  EXPECT_EQ(VersionWord(R_2013), "2013");
  EXPECT_EQ(VersionWord(R_2018), "2018");
}

TEST(VersionWord, EveryOtherVersionIsUnknown) {
  int words = 0;
  for (int version = R_INVALID; version <= R_AFTER; ++version) {
    words += VersionWord(static_cast<Dwg_Version_Type>(version)) == "Unknown" ? 0 : 1;
  }
  EXPECT_EQ(words, 7);
  EXPECT_EQ(VersionWord(R_2000i), "Unknown");
  EXPECT_EQ(VersionWord(R_12), "Unknown");
  EXPECT_EQ(VersionWord(R_2004c), "Unknown");
}
