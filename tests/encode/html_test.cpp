#include "encode/html.hpp"

#include <gtest/gtest.h>

TEST(Html, OnlyThreeBytesAreEscaped) {
  for (int value = 0; value < 256; ++value) {
    const char byte = static_cast<char>(value);
    const std::string expected = byte == '<'   ? "&lt;"
                                 : byte == '>' ? "&gt;"
                                 : byte == '&' ? "&amp;"
                                               : std::string(1, byte);
    std::string out = "x";
    AppendHtmlEscaped(out, byte);
    EXPECT_EQ(out, "x" + expected) << value;
  }
}

TEST(Html, TextsAreEscapedByteByByte) {
  std::string out;
  AppendHtmlEscaped(out, "<文 & \"x\">");
  EXPECT_EQ(out, "&lt;文 &amp; \"x\"&gt;");
}
