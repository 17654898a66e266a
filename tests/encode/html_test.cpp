#include "encode/html.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/support/written.hpp"

namespace {

std::string TextLiteral(std::string_view text) {
  JsonOut out("x");
  HtmlLiteral html(out);
  html.Text(text);
  EXPECT_EQ(html.Finish(), text.find('\0') == std::string_view::npos);
  return out.Text();
}

// What a single byte becomes, by the rules of HTML and of JSON.
std::string Expected(char byte) {
  switch (byte) {
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '&': return "&amp;";
    default: break;
  }
  const std::string quoted = Written(AppendQuoted, std::string(1, byte));
  return quoted.substr(1, quoted.size() - 2);
}

}  // namespace

TEST(HtmlLiteral, EveryByteIsEscapedForHtmlAndForJson) {
  for (int value = 1; value < 256; ++value) {
    const char byte = static_cast<char>(value);
    const std::string expected = "x" + Expected(byte);
    JsonOut out("x");
    HtmlLiteral html(out);
    html.Text(byte);
    EXPECT_EQ(out, expected) << value;
    EXPECT_EQ(TextLiteral(std::string(1, byte)), expected) << value;
  }
}

// At every distance from the start and from the end of a word.
TEST(HtmlLiteral, BytesAreFoundWhereverTheyStand) {
  for (const char byte : {'<', '"', '\\', '\x01', '\x1F'}) {
    for (std::size_t position = 0; position < 20; ++position) {
      for (std::size_t size = position + 1; size < position + 20; ++size) {
        std::string text(size, '\xC3');
        text[position] = byte;
        std::string expected = "x" + text;
        expected.replace(position + 1, 1, Expected(byte));
        EXPECT_EQ(TextLiteral(text), expected);
      }
    }
  }
}

TEST(HtmlLiteral, TextsLongerThanAPieceAreWritten) {
  const std::string text(300000, 'a');
  EXPECT_EQ(TextLiteral(text + "<" + text), "x" + text + "&lt;" + text);
}

TEST(HtmlLiteral, MarkupIsWrittenAsItIs) {
  JsonOut out;
  HtmlLiteral html(out);
  html.Markup(R"(<p style=\"\">&nbsp;)");
  html.Number(255);
  EXPECT_EQ(out, R"(<p style=\"\">&nbsp;255)");
}

TEST(HtmlLiteral, VerbatimTextIsEscapedForJsonOnly) {
  JsonOut out;
  HtmlLiteral html(out);
  html.Verbatim("<a \"b\"\n\\>");
  EXPECT_EQ(out, R"(<a \"b\"\n\\>)");
}

TEST(HtmlLiteral, TheFirstNulEndsTheLiteral) {
  EXPECT_EQ(TextLiteral(std::string("a\0b\0<", 5)), "xa");
  EXPECT_EQ(TextLiteral(std::string(1, '\0')), "x");
  const std::string behind(300000, 'b');
  EXPECT_EQ(TextLiteral('a' + std::string(1, '\0') + behind), "xa");
}

TEST(HtmlLiteral, APlainRunEndsBeforeAByteThatIsAskedFor) {
  JsonOut out;
  HtmlLiteral html(out);
  const auto find = [](ByteWord word) { return BytesEqual(word, '%'); };
  const auto ascii = html.Plain("plain text % and more", find);
  EXPECT_EQ(ascii.size, 11U);
  EXPECT_TRUE(ascii.isAscii);
  const auto other = html.Plain("\xC3\xA4%", find);
  EXPECT_EQ(other.size, 2U);
  EXPECT_FALSE(other.isAscii);
  EXPECT_EQ(html.Plain("%", find).size, 0U);
  EXPECT_EQ(html.Plain("", find).size, 0U);
  EXPECT_EQ(out, "plain text \xC3\xA4");
}
