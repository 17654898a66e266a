#include "encode/utf8_check.hpp"

#include <gtest/gtest.h>

TEST(Utf8Check, TellsWhatATextHas) {
  EXPECT_TRUE(CheckUtf8("").isAscii);
  EXPECT_TRUE(CheckUtf8("plain text, longer than a word").isAscii);
  const Utf8Findings shortOnes = CheckUtf8("caf\xC3\xA9");
  EXPECT_TRUE(shortOnes.isUtf8 && !shortOnes.isAscii && !shortOnes.hasLong);
  const Utf8Findings longOnes = CheckUtf8("\xE4\xB8\xAD \xF0\x9F\x98\x80");
  EXPECT_TRUE(longOnes.isUtf8 && longOnes.hasLong);
}

TEST(Utf8Check, RejectsWhatIsNone) {
  for (const char* text : {"\x80", "caf\xE9", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF",
                           "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80",
                           "\xF5\x80\x80\x80", "\xC3", "\xE4\xB8", "\xE4\xB8z", "\xF0\x9F\x98"}) {
    EXPECT_FALSE(IsUtf8Text(text)) << text;
  }
}

TEST(Utf8Check, CharacterLengths) {
  EXPECT_EQ(Utf8CharacterLength("a"), 1U);
  EXPECT_EQ(Utf8CharacterLength("\xC3\xA9"), 2U);
  EXPECT_EQ(Utf8CharacterLength("\xE4\xB8\xAD"), 3U);
  EXPECT_EQ(Utf8CharacterLength("\xF0\x9F\x98\x80"), 4U);
  EXPECT_EQ(Utf8CharacterLength("\xE4\xB8"), 1U);
}
