// Tables of multi-line texts with what the rules make of them.
//
// Every expected value was worked out from the rule that its row names; none
// was copied from the converter.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/html_text.hpp"

struct MtextCase {
  std::string_view rule;
  std::string text;
  std::string html;
  std::vector<TextRun> runs = {};
  std::vector<ParagraphBlock> blocks = {};
};

// So that a failing row shows its values.
inline void PrintTo(const TextRun& run, std::ostream* out) {
  *out << "{start " << run.start << ", length " << run.length << ", stretch " << run.stretch
       << ", tracking " << run.tracking << (run.fixedPitch ? ", fixed pitch}" : "}");
}

inline void PrintTo(const ParagraphBlock& block, std::ostream* out) {
  *out << "{index " << block.index << ", alignment \"" << block.alignment << "\", indent "
       << block.textIndent << ", left " << block.leftMargin << ", right " << block.rightMargin
       << ", tabs " << testing::PrintToString(block.tabStops) << "}";
}

// Converts every text with a base height of 2.54 and compares all results
// but the character set and the oblique codes, which have tests of their own.
inline void CheckMtextCases(std::initializer_list<MtextCase> cases) {
  for (const MtextCase& row : cases) {
    SCOPED_TRACE(std::string(row.rule) + ": " + row.text);
    MtextLayout layout;
    EXPECT_EQ(MtextToHtml(row.text, 2.54, layout), row.html);
    EXPECT_EQ(layout.runs, row.runs);
    EXPECT_EQ(layout.blocks, row.blocks);
  }
}

inline TextRun Stretched(int start, int length, int stretch) {
  return {.start = start, .length = length, .stretch = stretch};
}

inline TextRun Tracked(int start, int length, int tracking) {
  return {.start = start, .length = length, .tracking = tracking};
}

inline TextRun FixedPitch(int start, int length) {
  return {.start = start, .length = length, .fixedPitch = true};
}

inline ParagraphBlock Aligned(int index, std::string alignment) {
  return {.index = index, .alignment = std::move(alignment)};
}

inline ParagraphBlock Tabbed(int index, std::vector<double> stops) {
  return {.index = index, .tabStops = std::move(stops)};
}
