#include "text/font_size.hpp"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace {

std::string Written(double points) {
  std::array<char, kFontSizeRoom> room;
  return std::string(FontSizeText(points, room));
}

// The C library's, which rounds correctly.
std::string Expected(double points) {
  std::array<char, 400> buffer;
  const int size = std::snprintf(buffer.data(), buffer.size(), "%.4f", points);
  return std::string(buffer.data(), static_cast<std::size_t>(size)).substr(0, 63);
}

}  // namespace

TEST(FontSizeText, HasFourDecimals) {
  EXPECT_EQ(Written(1), "1.0000");
  EXPECT_EQ(Written(0.1), "0.1000");
  EXPECT_EQ(Written(12.34567), "12.3457");
  EXPECT_EQ(Written(0.00004), "0.0000");
  EXPECT_EQ(Written(9.99994), "9.9999");
  EXPECT_EQ(Written(9.99996), "10.0000");
}

TEST(FontSizeText, OfTwoNearestTheEvenOneIsTaken) {
  EXPECT_EQ(Written(0.03125), "0.0312");
  EXPECT_EQ(Written(0.09375), "0.0938");
  EXPECT_EQ(Written(7.84375), "7.8438");
}

TEST(FontSizeText, LargeSizesAreCutAfter63Bytes) {
  EXPECT_EQ(Written(9007199254740991), "9007199254740991.0000");
  EXPECT_EQ(Written(9007199254740992), "9007199254740992.0000");
  EXPECT_EQ(Written(1e300).size(), 63U);
  EXPECT_EQ(Written(std::numeric_limits<double>::max()),
            Expected(std::numeric_limits<double>::max()));
  EXPECT_EQ(Written(std::numeric_limits<double>::infinity()), "inf");
}

TEST(FontSizeText, AgreesWithTheStandardLibrary) {
  std::mt19937_64 random(99);
  for (int round = 0; round < 200000; ++round) {
    const double any = std::abs(std::bit_cast<double>(random()));
    const double usual =
        std::ldexp(static_cast<double>(random()), -static_cast<int>(random() % 80));
    // Ties, and their neighbours on both sides.
    const double tie = static_cast<double>(random() % 10000000 * 2 + 1) / 32;
    for (const double points :
         {any, usual, tie, std::nextafter(tie, 0), std::nextafter(tie, 1e9)}) {
      if (points > 0 && std::isfinite(points)) {
        ASSERT_EQ(Written(points), Expected(points)) << points;
      }
    }
  }
}
