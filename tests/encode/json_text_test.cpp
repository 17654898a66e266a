#include "encode/json_text.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "tests/support/written.hpp"

namespace {

std::string JsonNumber(double value) {
  return Written(AppendNumber, value);
}

std::string JsonInt(std::int64_t value) {
  return Written(AppendInt, value);
}

std::string JsonQuote(std::string_view text) {
  return Written(AppendQuoted, text);
}

}  // namespace

TEST(AppendNumber, IntegersCarryNoPoint) {
  EXPECT_EQ(JsonNumber(0), "0");
  EXPECT_EQ(JsonNumber(-42), "-42");
  EXPECT_EQ(JsonNumber(100000), "100000");
}

TEST(AppendNumber, RoundsToTenSignificantDigits) {
  EXPECT_EQ(JsonNumber(0.1), "0.1");
  EXPECT_EQ(JsonNumber(1.0 / 3), "0.3333333333");
  EXPECT_EQ(JsonNumber(123456.789), "123456.789");
  EXPECT_EQ(JsonNumber(12345678901.0), "1.23456789e+10");
}

TEST(AppendNumber, TurnsToExponentsAtElevenIntegerDigits) {
  EXPECT_EQ(JsonNumber(9999999999.0), "9999999999");
  EXPECT_EQ(JsonNumber(-9999999999.0), "-9999999999");
  EXPECT_EQ(JsonNumber(1e10), "1e+10");
  EXPECT_EQ(JsonNumber(9999999999.5), "1e+10");
  EXPECT_EQ(JsonNumber(9999999999.4), "9999999999");
}

TEST(AppendNumber, TurnsToExponentsBelowOneTenThousandth) {
  EXPECT_EQ(JsonNumber(0.0001), "0.0001");
  EXPECT_EQ(JsonNumber(0.000123456789012), "0.000123456789");
  EXPECT_EQ(JsonNumber(1e-5), "1e-05");
  EXPECT_EQ(JsonNumber(1.5e-7), "1.5e-07");
}

TEST(AppendNumber, WritesExponentsOfThreeDigitsInFull) {
  EXPECT_EQ(JsonNumber(1e100), "1e+100");
  EXPECT_EQ(JsonNumber(std::numeric_limits<double>::max()), "1.797693135e+308");
  EXPECT_EQ(JsonNumber(std::numeric_limits<double>::denorm_min()), "4.940656458e-324");
}

TEST(AppendNumber, KeepsTheSignOfNegativeZero) {
  EXPECT_EQ(JsonNumber(-0.0), "-0");
}

TEST(AppendNumber, WritesInfinitiesAndNanAsZero) {
  EXPECT_EQ(JsonNumber(std::numeric_limits<double>::infinity()), "0");
  EXPECT_EQ(JsonNumber(-std::numeric_limits<double>::infinity()), "0");
  EXPECT_EQ(JsonNumber(std::numeric_limits<double>::quiet_NaN()), "0");
  EXPECT_EQ(JsonNumber(-std::numeric_limits<double>::quiet_NaN()), "0");
}

TEST(AppendInt, WritesTheWholeRange) {
  EXPECT_EQ(JsonInt(0), "0");
  EXPECT_EQ(JsonInt(7), "7");
  EXPECT_EQ(JsonInt(-100), "-100");
  EXPECT_EQ(JsonInt(std::numeric_limits<std::int32_t>::max()), "2147483647");
  EXPECT_EQ(JsonInt(std::numeric_limits<std::int32_t>::min()), "-2147483648");
}

TEST(AppendInt, WritesUnsignedWordsAsUnsigned) {
  JsonOut out;
  AppendInt(out, std::numeric_limits<std::uint32_t>::max());
  EXPECT_EQ(out, "4294967295");
}

TEST(AppendQuoted, EmptyTextIsAnEmptyString) {
  EXPECT_EQ(JsonQuote(""), R"("")");
}

TEST(AppendQuoted, EscapesQuotesAndBackslashesButNoSlashes) {
  EXPECT_EQ(JsonQuote(R"(a"b\c/d)"), R"("a\"b\\c/d")");
}

TEST(AppendQuoted, UsesShortEscapesForTabLineFeedAndReturnOnly) {
  EXPECT_EQ(JsonQuote("\t\n\r"), R"("\t\n\r")");
  EXPECT_EQ(JsonQuote("\b\f"), R"("\u0008\u000c")");
}

TEST(AppendQuoted, WritesOtherControlsWithFourLowerCaseDigits) {
  EXPECT_EQ(JsonQuote("\x01\x0b\x1b\x1f"), R"("\u0001\u000b\u001b\u001f")");
}

TEST(AppendQuoted, CopiesDeleteAndSpace) {
  EXPECT_EQ(JsonQuote(" \x7f"), "\" \x7f\"");
}

TEST(AppendQuoted, CopiesHighBytesValidOrNot) {
  EXPECT_EQ(JsonQuote("\xC3\xBC"), "\"\xC3\xBC\"");
  EXPECT_EQ(JsonQuote("\xFF\x80"), "\"\xFF\x80\"");
}

TEST(AppendQuoted, EscapesExactlyThirtyFourBytes) {
  int escaped = 0;
  for (int byte = 1; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    const std::string quoted = JsonQuote(text);
    if (quoted != '"' + text + '"') {
      ++escaped;
      EXPECT_TRUE(byte < 0x20 || byte == '"' || byte == '\\') << byte;
    }
  }
  EXPECT_EQ(escaped, 0x1F + 2);
}

TEST(AppendQuoted, EndsAtTheFirstNul) {
  JsonOut out;
  AppendQuoted(out, std::string_view("ab\0cd", 5));
  EXPECT_EQ(out, R"("ab")");
}

// Every position of every byte in texts of several lengths: the search takes
// eight bytes at once.
TEST(AppendQuoted, FindsEveryByteAtEveryPosition) {
  for (std::size_t length = 1; length <= 20; ++length) {
    for (std::size_t position = 0; position < length; ++position) {
      for (int byte = 1; byte < 256; ++byte) {
        std::string text(length, '\x80');
        text[position] = static_cast<char>(byte);
        const std::string single = JsonQuote(text.substr(position, 1));
        const std::string expected = '"' + text.substr(0, position) +
                                     single.substr(1, single.size() - 2) +
                                     text.substr(position + 1) + '"';
        ASSERT_EQ(JsonQuote(text), expected) << byte << " at " << position;
      }
    }
  }
}

TEST(AppendQuoted, LongTextsOfEscapesStayWhole) {
  std::string text;
  std::string expected = "\"";
  for (int i = 0; i < 100'000; ++i) {
    text += i % 3 == 0 ? "\x01" : "a\"";
    expected += i % 3 == 0 ? "\\u0001" : "a\\\"";
  }
  JsonOut out;
  AppendQuoted(out, text);
  EXPECT_TRUE(out == expected + '"');
}

TEST(AppendEscaped, TellsWhetherANulEndedTheText) {
  JsonOut out;
  EXPECT_TRUE(AppendEscaped(out, "ab\"cdefghijkl"));
  EXPECT_FALSE(AppendEscaped(out, std::string_view("12345678\0"
                                                   "9",
                                                   10)));
  EXPECT_FALSE(AppendEscaped(out, std::string_view("\0", 1)));
  EXPECT_EQ(out, R"(ab\"cdefghijkl12345678)");
}

TEST(AppendQuoted, KeepsTextBehindEscapes) {
  JsonOut out{"x"};
  AppendQuoted(out, "one\ntwo\"three");
  EXPECT_EQ(out, R"(x"one\ntwo\"three")");
}

TEST(AppendKey, WritesTheKeyAsGivenAndTheValueBehindIt) {
  JsonOut out;
  AppendNumberKey(out, "{\"a\":", 1e10);
  AppendIntKey(out, ",\"b\":", -3);
  AppendBoolKey(out, ",\"c\":", true);
  AppendBoolKey(out, ",\"e\":", false);
  AppendQuotedKey(out, ",\"d\":", "\t");
  EXPECT_EQ(out, R"({"a":1e+10,"b":-3,"c":true,"e":false,"d":"\t")");
}
