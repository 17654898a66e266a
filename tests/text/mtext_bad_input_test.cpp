// Input that no drawing program writes: cut codes, deep nesting, invalid UTF-8,
// and shapes that would be slow in a converter that looks twice.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/html_text.hpp"
#include "tests/text/mtext_cases.hpp"

namespace {

std::string Repeated(std::string_view text, std::size_t count) {
  std::string out;
  out.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i) {
    out += text;
  }
  return out;
}

std::size_t Count(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos;
       at = text.find(part, at + part.size())) {
    ++count;
  }
  return count;
}

// Processor time, so that a busy machine does not decide.
double SecondsFor(const std::string& text) {
  const std::clock_t start = std::clock();
  MtextLayout layout;
  MtextToHtml(text, 1, layout);
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

constexpr std::size_t kSmall = 200000;
constexpr std::size_t kLarge = 2000000;

// Ten times the text may take ten times the time. A converter that looked at
// everything twice would need minutes for the larger one, so that the bound can
// stay far from both.
void ExpectLinear(const std::string& small, const std::string& large, const std::string& shape) {
  const double smallTime = std::max(SecondsFor(small), 0.005);
  EXPECT_LT(SecondsFor(large), 60 * smallTime) << shape;
}

}  // namespace

TEST(MtextToHtmlBadInput, CodesCutOffAtTheEnd) {
  CheckMtextCases({
      {"a colour", "a\\C", "<p>a</p>"},
      {"a true colour", "a\\c", "<p>a</p>"},
      {"a height", "a\\H", "<p>a</p>"},
      {"a width", "a\\W", "<p>a</p>"},
      {"a tracking", "a\\T", "<p>a</p>"},
      {"a font", "a\\f", "<p>a</p>"},
      {"an upper-case font", "a\\F", "<p>a</p>"},
      {"a stack", "a\\S", "<p>a</p>"},
      {"a paragraph format", "a\\p", "<p>a</p>"},
      {"an oblique code", "a\\Q", "<p>a</p>"},
      {"a paragraph format with half a field", "a\\pi", "<p>a</p>"},
      {"a tab list that ends in a comma", "a\\pt1,", "<p>a</p>", {}, {Tabbed(0, {1})}},
      {"a font with half a field", "a\\f|b", "<p>a</p>"},
      {"a sign without a number", "a\\C-", "<p>a</p>"},
      {"a colour that takes the text with it", "\\C1 and more {text} \\P",
       "<p><span style=\"color:rgb(255,0,0)\"></span></p>"},
  });
}

TEST(MtextToHtmlBadInput, EveryPrefixOfATextConverts) {
  const std::string text =
      "{\\fArial|b1|i0|c204|p34;\\C1;Ж\\H2.5x;a}\\P\\pi-3,l3,t3,6,qc;\\S1/"
      "2;\\U+1F600\\A1;\\W2;b\\T2;😀\\o\\~";
  for (std::size_t length = 0; length <= text.size(); ++length) {
    MtextLayout layout;
    const std::string html = MtextToHtml(std::string_view(text).substr(0, length), 1, layout);
    EXPECT_TRUE(html.starts_with("<p>") && html.ends_with("</p>")) << length;
  }
}

TEST(MtextToHtmlBadInput, GroupsNest100000Deep) {
  const std::string text = Repeated("{\\C1;", 100000) + "a" + Repeated("}", 100000);
  MtextLayout layout;
  const std::string html = MtextToHtml(text, 1, layout);
  EXPECT_EQ(Count(html, "<span "), 100000U);
  EXPECT_TRUE(html.ends_with("a" + Repeated("</span>", 100000) + "</p>"));
}

TEST(MtextToHtmlBadInput, GroupsNeverClosedNest100000Deep) {
  MtextLayout layout;
  const std::string html = MtextToHtml(Repeated("{\\W2;a", 100000), 1, layout);
  EXPECT_EQ(html, "<p>" + Repeated("a", 100000) + "</p>");
  ASSERT_EQ(layout.runs.size(), 100000U);
  EXPECT_EQ(layout.runs.front(), Stretched(99999, 1, 200));
  EXPECT_EQ(layout.runs.back(), Stretched(0, 100000, 200));
}

TEST(MtextToHtmlBadInput, ClosingBracesAloneAreDropped) {
  MtextLayout layout;
  EXPECT_EQ(MtextToHtml(Repeated("}", 100000), 1, layout), "<p></p>");
}

TEST(MtextToHtmlBadInput, InvalidUtf8IsCopied) {
  CheckMtextCases({
      {"a lead byte at the end", "a\xC3", "<p>a\xC3</p>"},
      {"continuation bytes alone", "\x80\xBF", "<p>\x80\xBF</p>"},
      {"an overlong form", "\xC0\xAF", "<p>\xC0\xAF</p>"},
      {"an encoded surrogate", "\xED\xA0\x80", "<p>\xED\xA0\x80</p>"},
      {"bytes that never occur", "\xFE\xFF", "<p>\xFE\xFF</p>"},
      {"an invalid font name", "\\f\xFF;a", "<p><span style=\"font-family:\xFF;\">a</span></p>"},
      {"a continuation byte as alignment", "\\pq\x80;a", "<p>a</p>", {}, {Aligned(0, "\x80")}},
  });
}

TEST(MtextToHtmlBadInput, RandomBytesConvert) {
  std::mt19937 random(4711);
  constexpr std::string_view kCodes = "\\\\\\\\{{}}PXOoCcHWTfFSpU+;;|,#/^019xAQ\xC3\xA4";
  for (int round = 0; round < 20000; ++round) {
    std::string text(random() % 40, ' ');
    for (char& c : text) {
      c = random() % 8 == 0 ? static_cast<char>(random()) : kCodes[random() % kCodes.size()];
    }
    MtextLayout layout;
    const std::string html = MtextToHtml(text, 1, layout);
    ASSERT_TRUE(html.starts_with("<p>") && html.ends_with("</p>")) << text;
    for (const TextRun& run : layout.runs) {
      ASSERT_GT(run.length, 0) << text;
      ASSERT_GE(run.start, 0) << text;
    }
  }
}

TEST(MtextToHtmlBadInput, TimeGrowsInProportionToTheText) {
  const std::vector<std::string> shapes = {"{",
                                           "}",
                                           "{}",
                                           "\\",
                                           "\\H",
                                           "\\H;",
                                           "\\S",
                                           "\\S/",
                                           "\\S1/2;",
                                           "\\p",
                                           "\\pi1,",
                                           "\\pt1,1",
                                           ",1",
                                           "\\U+",
                                           "\\U+41",
                                           "\\f|",
                                           "\\f|p1;",
                                           "{\\W1",
                                           "\\W1;",
                                           "\\W1;a",
                                           "{\\W1;a",
                                           "\\C1;",
                                           "{\\C1;a",
                                           "\\fArial;a}",
                                           "\\O",
                                           "\\o",
                                           "\\P",
                                           "\\P\\pqc;",
                                           "\\A",
                                           "\\A;",
                                           "\\Q1;",
                                           "a",
                                           "\xF0\x9F\x98\x80",
                                           "\\M",
                                           "1",
                                           "\\C1",
                                           "\\H1;{\\H1x;}",
                                           "|",
                                           "&",
                                           "\\pq\x80\x80\x80"};
  for (const std::string& shape : shapes) {
    ExpectLinear(Repeated(shape, kSmall / shape.size()), Repeated(shape, kLarge / shape.size()),
                 shape);
  }
}

TEST(MtextToHtmlBadInput, OneLongArgumentTakesProportionalTime) {
  const auto textOf = [](const std::string& start, const std::string& part, std::size_t bytes) {
    return start + Repeated(part, bytes / part.size()) + ";a";
  };
  struct Shape {
    std::string start;
    std::string part;
  };
  const std::vector<Shape> shapes = {
      {"\\pt1", ",1"}, {"\\p", "i1,"},  {"\\p", ",,"},  {"\\f", "|b1"}, {"\\f", "|c134"},
      {"\\H", "1"},    {"\\H0.", "0"},  {"\\H1e", "9"}, {"\\C", "0"},   {"\\c", "9"},
      {"\\C", " "},    {"\\S", "/"},    {"\\S", "1"},   {"\\f", "a"},   {"\\W", "\t"},
      {"\\H0x", "f"},  {"\\pq", "\x80"}};
  for (const Shape& shape : shapes) {
    ExpectLinear(textOf(shape.start, shape.part, kSmall), textOf(shape.start, shape.part, kLarge),
                 shape.start + shape.part);
  }
}
