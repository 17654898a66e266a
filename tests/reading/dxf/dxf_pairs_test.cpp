#include "reading/dxf/dxf_pairs.hpp"

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "reading/dxf/word_index.hpp"

namespace {

struct Pair {
  int code;
  std::string value;
  bool operator==(const Pair&) const = default;
};

std::string Joined(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) {
    text += part;
  }
  return text;
}

// What the reader takes before the end or a flaw.
std::vector<Pair> Pairs(const std::string& text) {
  DxfPairReader reader(text);
  DxfPair pair;
  std::vector<Pair> pairs;
  while (reader.Next(pair) == DxfStep::kPair) {
    pairs.push_back({.code = pair.code, .value = std::string(pair.value)});
  }
  return pairs;
}

// Short lines are read another way when so much text is behind them.
const std::string kBehind = "999\n" + std::string(DXF_SCAN_MOST, 'x') + '\n';

TEST(DxfPairs, TakesTextsOfAnyLengthWithEitherLineEnd) {
  constexpr std::size_t kMost = 70;
  for (const std::string lineEnd : {"\n", "\r\n"}) {
    for (std::size_t size = 0; size < kMost; ++size) {
      const std::string value(size, 'a');
      const std::string text = Joined({"1", lineEnd, value, lineEnd});
      const Pair wanted{.code = 1, .value = value};
      EXPECT_EQ(Pairs(text), std::vector{wanted}) << size;
      EXPECT_EQ(Pairs(text + kBehind).at(0), wanted) << size;
    }
  }
}

TEST(DxfPairs, ACarriageReturnWithinATextIsAFlaw) {
  constexpr std::size_t kMost = 40;
  for (std::size_t at = 0; at + 1 < kMost; ++at) {
    std::string value(kMost, 'a');
    value[at] = '\r';
    EXPECT_TRUE(Pairs(Joined({"1\n", value, "\n", kBehind})).empty()) << at;
  }
}

TEST(DxfPairs, LettersWithAHighBitEndNoLine) {
  const std::string value = "\x8A\x8D\x0B\x0C\xFF\x80\x09\x0E";
  EXPECT_EQ(Pairs(Joined({"1\n", value, "\n", kBehind})).at(0), (Pair{.code = 1, .value = value}));
}

TEST(DxfPairs, TakesCodesWithBlanksBeforeThem) {
  for (const std::string lineEnd : {"\n", "\r\n"}) {
    for (const std::string blanks : {"", " ", "  ", "   ", "        "}) {
      for (const int code : {0, 8, 10, 370, 1000, 1071}) {
        const std::string text =
            Joined({blanks, std::to_string(code), lineEnd, "0", lineEnd, kBehind});
        EXPECT_EQ(Pairs(text).at(0), (Pair{.code = code, .value = "0"})) << text;
      }
    }
  }
}

TEST(DxfPairs, WhatIsNoCodeIsAFlaw) {
  for (const char* line : {"", " ", "-1", "1 ", "x", "1x", "12\r3", "1.0", "123456"}) {
    EXPECT_TRUE(Pairs(std::string(line) + "\n0\n" + kBehind).empty()) << line;
  }
}

TEST(DxfPairs, StopsAtTheEndOfATextThatBreaksOff) {
  for (const char* text : {"1", "10", "100", "  1", "1\n", "1\nabc", "1\r"}) {
    EXPECT_TRUE(Pairs(text).empty()) << text;
  }
}

TEST(WordIndex, FindsEachWordAndNoOther) {
  static constexpr std::array<std::string_view, 5> kWords = {"A", "AB", "BA", "ABBA", "BAAB"};
  static constexpr WordIndex kIndex(kWords);
  for (std::size_t i = 0; i < kWords.size(); ++i) {
    EXPECT_EQ(kIndex.Find(kWords.at(i)), i);
  }
  for (const char* other : {"", "B", "AA", "ABAA", "ABBAA", "abba"}) {
    EXPECT_FALSE(kIndex.Holds(other)) << other;
  }
}

}  // namespace
