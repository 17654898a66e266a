#include "encode/numbers.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

// What the standard library's conversion makes of the text; its exceptions are
// no value. A subnormal result counts as out of range on every platform.
std::optional<double> StandardDouble(const std::string& text) {
  try {
    const double value = std::stod(text);
    return std::fpclassify(value) == FP_SUBNORMAL ? std::nullopt : std::optional(value);
  } catch (const std::logic_error&) {
    return std::nullopt;
  }
}

std::optional<std::int32_t> StandardInt(const std::string& text) {
  try {
    return std::stoi(text);
  } catch (const std::logic_error&) {
    return std::nullopt;
  }
}

// A 32-bit unsigned long: the magnitude must fit, a minus sign negates.
std::optional<std::uint32_t> StandardUnsigned(const std::string& text) {
  try {
    const unsigned long long value = std::stoull(text);
    const bool negative = text.find('-') < text.find_first_of("0123456789");
    const unsigned long long magnitude = negative ? 0 - value : value;
    if (magnitude > std::numeric_limits<std::uint32_t>::max()) {
      return std::nullopt;
    }
    return static_cast<std::uint32_t>(value);
  } catch (const std::logic_error&) {
    return std::nullopt;
  }
}

// NaN equals NaN here, and 0 differs from -0.
bool Same(std::optional<double> a, std::optional<double> b) {
  if (!a || !b) {
    return a.has_value() == b.has_value();
  }
  return (std::isnan(*a) && std::isnan(*b)) || (*a == *b && std::signbit(*a) == std::signbit(*b));
}

std::string RandomText(std::mt19937& random) {
  constexpr std::string_view kParts[] = {
      "0",  "1", "9", "12", "255", "4294967295", "2147483648", ".",   "-",  "+",
      "e",  "E", "x", "0x", "p",   "inf",        "nan",        " ",   "\t", "\n",
      "\v", "a", "f", ",",  ";",   "308",        "-324",       "(1)", "00", "inity"};
  std::string text;
  for (std::size_t i = random() % 8; i > 0; --i) {
    text += kParts[random() % std::size(kParts)];
  }
  return text;
}

}  // namespace

TEST(Numbers, DoublesAreReadAsTheStandardLibraryDoes) {
  EXPECT_EQ(ParseDouble("2.5"), 2.5);
  EXPECT_EQ(ParseDouble(" \t\n\v\f\r-2.5mm"), -2.5);
  EXPECT_EQ(ParseDouble("+.5"), 0.5);
  EXPECT_EQ(ParseDouble("5."), 5);
  EXPECT_EQ(ParseDouble("1e3"), 1000);
  EXPECT_EQ(ParseDouble("1e"), 1);
  EXPECT_EQ(ParseDouble("1e+"), 1);
  EXPECT_EQ(ParseDouble("0x10"), 16);
  EXPECT_EQ(ParseDouble("0x"), 0);
  EXPECT_EQ(ParseDouble("2,5"), 2);
  EXPECT_EQ(ParseDouble("1 2"), 1);
  EXPECT_EQ(ParseDouble("-infinity"), -std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(ParseDouble("NaN").value_or(0)));
}

TEST(Numbers, TextsWithoutANumberHaveNoValue) {
  for (const char* text : {"", " ", ".", "-", "+", "e5", "x", "--1", "+-1", ",5", "\302\2401"}) {
    EXPECT_FALSE(ParseDouble(text)) << text;
    EXPECT_FALSE(ParseInt32(text)) << text;
    EXPECT_FALSE(ParseUint32(text)) << text;
  }
}

TEST(Numbers, DoublesOutOfRangeHaveNoValue) {
  for (const char* text : {"1e309", "-1e309", "1e-400", "4.9e-324", "2e-308", "-1e-310"}) {
    EXPECT_FALSE(ParseDouble(text)) << text;
  }
  EXPECT_EQ(ParseDouble("2.2250738585072014e-308"), std::numeric_limits<double>::min());
  EXPECT_EQ(ParseDouble("1.7976931348623157e308"), std::numeric_limits<double>::max());
  EXPECT_EQ(ParseDouble("0e-999"), 0);
}

TEST(Numbers, IntegersAreDecimal) {
  EXPECT_EQ(ParseInt32("010"), 10);
  EXPECT_EQ(ParseInt32("0x10"), 0);
  EXPECT_EQ(ParseInt32(" +7;"), 7);
  EXPECT_EQ(ParseInt32("2147483647"), 2147483647);
  EXPECT_EQ(ParseInt32("-2147483648"), std::numeric_limits<std::int32_t>::min());
  EXPECT_FALSE(ParseInt32("2147483648"));
  EXPECT_FALSE(ParseInt32("-2147483649"));
  EXPECT_FALSE(ParseInt32("99999999999999999999999999"));
}

TEST(Numbers, UnsignedIntegersAre32BitWide) {
  EXPECT_EQ(ParseUint32("4294967295"), 4294967295U);
  EXPECT_FALSE(ParseUint32("4294967296"));
  EXPECT_FALSE(ParseUint32("99999999999999999999999999"));
  EXPECT_EQ(ParseUint32("-1"), 4294967295U);
  EXPECT_EQ(ParseUint32("-4294967295"), 1U);
  EXPECT_FALSE(ParseUint32("-4294967296"));
  EXPECT_EQ(ParseUint32("-0"), 0U);
}

TEST(Numbers, RandomTextsAgreeWithTheStandardLibrary) {
  std::mt19937 random(20240501);
  for (int round = 0; round < 200000; ++round) {
    const std::string text = RandomText(random);
    ASSERT_TRUE(Same(ParseDouble(text), StandardDouble(text))) << text;
    ASSERT_EQ(ParseInt32(text), StandardInt(text)) << text;
    ASSERT_EQ(ParseUint32(text), StandardUnsigned(text)) << text;
  }
}

// Around the number of digits up to which they are read without the library.
TEST(Numbers, RandomDecimalsAgreeWithTheStandardLibrary) {
  std::mt19937 random(20240502);
  for (int round = 0; round < 200000; ++round) {
    std::string text = random() % 4 == 0 ? "-" : "";
    for (std::size_t i = 1 + random() % 18; i > 0; --i) {
      text += static_cast<char>('0' + random() % 10);
    }
    text.insert(random() % (text.size() + 1), random() % 8 == 0 ? "" : ".");
    text += random() % 4 == 0 ? ";" : "";
    ASSERT_TRUE(Same(ParseDouble(text), StandardDouble(text))) << text;
  }
}

TEST(Numbers, ShortDecimalsKeepTheSignOfZero) {
  EXPECT_TRUE(std::signbit(ParseDouble("-0.00").value_or(1)));
  EXPECT_FALSE(std::signbit(ParseDouble("0.00").value_or(-1)));
  EXPECT_EQ(ParseDouble("1.5.5"), 1.5);
  EXPECT_EQ(ParseDouble("-.5"), -0.5);
  EXPECT_EQ(ParseDouble("999999999999999"), 999999999999999.0);
  EXPECT_EQ(ParseDouble("9999999999999999"), 9999999999999999.0);
}

TEST(Numbers, AViewEndsWhereItEnds) {
  const std::string_view text = "12345";
  EXPECT_EQ(ParseDouble(text.substr(0, 2)), 12);
  EXPECT_EQ(ParseInt32(text.substr(1, 2)), 23);
  EXPECT_EQ(ParseUint32(text.substr(3)), 45U);
}

TEST(Numbers, ConversionsLeaveErrnoAlone) {
  errno = 42;
  EXPECT_FALSE(ParseDouble("1e999"));
  EXPECT_EQ(errno, 42);
  errno = 0;
}

TEST(Numbers, TruncationNeverLeavesTheIntegersRange) {
  EXPECT_EQ(TruncateToInt32(1.99), 1);
  EXPECT_EQ(TruncateToInt32(-1.99), -1);
  EXPECT_EQ(TruncateToInt32(1e300), 2147483647);
  EXPECT_EQ(TruncateToInt32(-1e300), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(TruncateToInt32(2147483646.9), 2147483646);
  EXPECT_EQ(TruncateToInt32(2147483647.5), 2147483647);
  EXPECT_EQ(TruncateToInt32(-2147483647.9), -2147483647);
  EXPECT_EQ(TruncateToInt32(std::numeric_limits<double>::infinity()), 2147483647);
  EXPECT_FALSE(TruncateToInt32(std::numeric_limits<double>::quiet_NaN()));
}
