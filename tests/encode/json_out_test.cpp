#include "encode/json_out.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "tests/support/written.hpp"

TEST(JsonOut, BeginsEmpty) {
  const JsonOut out;
  EXPECT_TRUE(out.empty());
  EXPECT_EQ(out, "");
}

TEST(JsonOut, AppendsTextsAndBytes) {
  JsonOut out("ab");
  out += "";
  out += 'c';
  out += "def";
  EXPECT_EQ(out, "abcdef");
  EXPECT_EQ(out.size(), 6U);
}

TEST(JsonOut, CommitTakesWhatWasWritten) {
  JsonOut out("a");
  char* at = out.Reserve(10);
  at[0] = 'b';
  at[1] = 'c';
  out.Commit(at + 1);
  EXPECT_EQ(out, "ab");
}

TEST(JsonOut, RoomNeedNotBeUsed) {
  JsonOut out;
  out.Reserve(1);
  EXPECT_TRUE(out.empty());
  char* at = out.Reserve(JsonOut::kMaxReserve);
  out.Commit(std::fill_n(at, JsonOut::kMaxReserve, 'x'));
  out.Reserve(JsonOut::kMaxReserve);
  EXPECT_EQ(out.Text(), std::string(JsonOut::kMaxReserve, 'x'));
}

TEST(JsonOut, TextLargerThanAnyPieceStaysWhole) {
  std::string text;
  for (int i = 0; text.size() < 3'000'000; ++i) {
    text += std::to_string(i);
  }
  JsonOut out("x");
  out += text;
  EXPECT_EQ(out.size(), text.size() + 1);
  EXPECT_TRUE(out == "x" + text);
}

TEST(JsonOut, TruncateTakesBackAcrossPieces) {
  JsonOut out("kept");
  out += std::string(1'000'000, 'x');
  out.Truncate(4);
  EXPECT_EQ(out, "kept");
  out += '!';
  EXPECT_EQ(out, "kept!");
  out.Truncate(0);
  EXPECT_TRUE(out.empty());
}

// Every operation in random order, against a string.
TEST(JsonOut, AgreesWithAString) {
  std::mt19937 generator(20240229);
  JsonOut out;
  std::string expected;
  for (int i = 0; i < 20'000; ++i) {
    const auto choice = static_cast<unsigned>(generator() % 100);
    const std::size_t count = generator() % (choice < 2 ? 300'000 : 300);
    if (choice < 50) {
      const std::string text(count, static_cast<char>('a' + choice % 26));
      out += text;
      expected += text;
    } else if (choice < 95) {
      char* at = out.Reserve(JsonOut::kMaxReserve);
      at[0] = static_cast<char>('A' + choice % 26);
      out.Commit(at + 1);
      expected += static_cast<char>('A' + choice % 26);
    } else {
      const std::size_t size = expected.size() - count % (expected.size() + 1);
      out.Truncate(size);
      expected.resize(size);
    }
    ASSERT_EQ(out.size(), expected.size());
  }
  EXPECT_TRUE(out == expected);
}
