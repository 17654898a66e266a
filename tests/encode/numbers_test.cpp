#include "encode/numbers.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <limits>

TEST(ParseDouble, TakesTheLongestNumericPrefix) {
  EXPECT_EQ(ParseDouble("2.5"), 2.5);
  EXPECT_EQ(ParseDouble("2.5x"), 2.5);
  EXPECT_EQ(ParseDouble("1e3;"), 1000.0);
  EXPECT_EQ(ParseDouble("1e"), 1.0);
  EXPECT_EQ(ParseDouble(".5"), 0.5);
  EXPECT_EQ(ParseDouble("5."), 5.0);
}

TEST(ParseDouble, AcceptsLeadingSpaceAndASign) {
  EXPECT_EQ(ParseDouble(" \t\n\v\f\r-1.5"), -1.5);
  EXPECT_EQ(ParseDouble("+1.5"), 1.5);
}

TEST(ParseDouble, ReadsHexadecimalInfinityAndNan) {
  EXPECT_EQ(ParseDouble("0x10"), 16.0);
  EXPECT_EQ(ParseDouble("inf"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(ParseDouble("-INFINITY"), -std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(ParseDouble("nan").value_or(0)));
}

TEST(ParseDouble, NeedsDigits) {
  EXPECT_EQ(ParseDouble(""), std::nullopt);
  EXPECT_EQ(ParseDouble("x1"), std::nullopt);
  EXPECT_EQ(ParseDouble("-"), std::nullopt);
  EXPECT_EQ(ParseDouble("- 1"), std::nullopt);
  EXPECT_EQ(ParseDouble("."), std::nullopt);
}

TEST(ParseDouble, RefusesOverflowUnderflowAndSubnormals) {
  EXPECT_EQ(ParseDouble("1e400"), std::nullopt);
  EXPECT_EQ(ParseDouble("-1e400"), std::nullopt);
  EXPECT_EQ(ParseDouble("1e-400"), std::nullopt);
  EXPECT_EQ(ParseDouble("1e-310"), std::nullopt);
  EXPECT_EQ(ParseDouble("0x1p-1074"), std::nullopt);
  EXPECT_EQ(ParseDouble("2.2250738585072014e-308"), std::numeric_limits<double>::min());
}

TEST(ParseDouble, ReadsZeroInAnyForm) {
  EXPECT_EQ(ParseDouble("0"), 0.0);
  EXPECT_EQ(ParseDouble("0e-999"), 0.0);
  EXPECT_TRUE(std::signbit(ParseDouble("-0").value_or(1)));
}

TEST(ParseInt32, TakesTheLongestNumericPrefix) {
  EXPECT_EQ(ParseInt32("12"), 12);
  EXPECT_EQ(ParseInt32("12abc"), 12);
  EXPECT_EQ(ParseInt32("12.9"), 12);
  EXPECT_EQ(ParseInt32("0x10"), 0);
  EXPECT_EQ(ParseInt32("007"), 7);
}

TEST(ParseInt32, AcceptsLeadingSpaceAndASign) {
  EXPECT_EQ(ParseInt32(" \t\n\v\f\r-5"), -5);
  EXPECT_EQ(ParseInt32("+5"), 5);
}

TEST(ParseInt32, NeedsDigits) {
  EXPECT_EQ(ParseInt32(""), std::nullopt);
  EXPECT_EQ(ParseInt32("  "), std::nullopt);
  EXPECT_EQ(ParseInt32("-"), std::nullopt);
  EXPECT_EQ(ParseInt32("--5"), std::nullopt);
  EXPECT_EQ(ParseInt32("a5"), std::nullopt);
}

TEST(ParseInt32, RefusesValuesOutsideItsRange) {
  EXPECT_EQ(ParseInt32("2147483647"), 2147483647);
  EXPECT_EQ(ParseInt32("2147483648"), std::nullopt);
  EXPECT_EQ(ParseInt32("-2147483648"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(ParseInt32("-2147483649"), std::nullopt);
  EXPECT_EQ(ParseInt32("99999999999999999999999999"), std::nullopt);
  EXPECT_EQ(ParseInt32("-99999999999999999999999999"), std::nullopt);
}

TEST(ParseUint32, NegatesModuloTwoToTheThirtySecond) {
  EXPECT_EQ(ParseUint32("-1"), 4294967295U);
  EXPECT_EQ(ParseUint32("-4294967295"), 1U);
  EXPECT_EQ(ParseUint32("-0"), 0U);
}

TEST(ParseUint32, RefusesMagnitudesAboveItsRange) {
  EXPECT_EQ(ParseUint32("4294967295"), 4294967295U);
  EXPECT_EQ(ParseUint32("4294967296"), std::nullopt);
  EXPECT_EQ(ParseUint32("-4294967296"), std::nullopt);
  EXPECT_EQ(ParseUint32("18446744073709551617"), std::nullopt);
}

TEST(ParseUint32, NeedsDigits) {
  EXPECT_EQ(ParseUint32(""), std::nullopt);
  EXPECT_EQ(ParseUint32("x"), std::nullopt);
}

TEST(TruncateToInt32, TruncatesTowardZero) {
  EXPECT_EQ(TruncateToInt32(2.9), 2);
  EXPECT_EQ(TruncateToInt32(-2.9), -2);
  EXPECT_EQ(TruncateToInt32(-0.0), 0);
}

TEST(TruncateToInt32, IsLimitedToTheRange) {
  EXPECT_EQ(TruncateToInt32(1e300), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(TruncateToInt32(-1e300), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(TruncateToInt32(2147483647.9), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(TruncateToInt32(-2147483648.9), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(TruncateToInt32(std::numeric_limits<double>::infinity()),
            std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(TruncateToInt32(-std::numeric_limits<double>::infinity()),
            std::numeric_limits<std::int32_t>::min());
}

TEST(TruncateToInt32, NanIsNoNumber) {
  EXPECT_EQ(TruncateToInt32(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}
