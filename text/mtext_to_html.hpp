// Multi-line text, with its formatting codes, to an HTML fragment for a Qt
// rich-text widget, and on the side what HTML cannot carry.
//
// One pass from left to right with a stack of brace groups on the heap, so
// depth and length have no limit and time is linear. Malformed codes are
// skipped; nothing fails. The fragment may nest its tags unevenly, as the
// drawing's groups do: the widget tolerates that, and it is not repaired.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "encode/json_out.hpp"
#include "encode/palette.hpp"

// A stretch of characters with a format that HTML cannot express. Positions
// and lengths count the characters of the resulting plain text in UTF-16
// units, each paragraph or line break as one.
struct TextRun {
  std::int32_t start = 0;
  std::int32_t length = 0;
  std::int32_t stretch = 0;   // width factor in percent, 0 when not set
  std::int32_t tracking = 0;  // percent, 0 when not set
  bool fixedPitch = false;

  friend bool operator==(const TextRun&, const TextRun&) = default;
};

// The format of one paragraph; lengths in drawing units, 0 when not set.
struct ParagraphBlock {
  std::int32_t index = 0;      // paragraph number from 0
  std::string alignment = {};  // the code's character, empty when not set
  double textIndent = 0;
  double leftMargin = 0;
  double rightMargin = 0;
  std::vector<double> tabStops = {};

  friend bool operator==(const ParagraphBlock&, const ParagraphBlock&) = default;
};

struct MtextLayout {
  std::vector<TextRun> runs;
  std::vector<ParagraphBlock> blocks;
  bool nonWesternCharset = false;  // a font code named a character set above 2
  std::int32_t obliqueCount = 0;   // oblique codes, which are dropped
};

// Appends the HTML as the inside of a JSON string literal. `text` is UTF-8 and
// ends at its first NUL. `baseHeight` (drawing units) scales relative height
// codes, `palette` gives the colours of colour codes. `layout` is expected empty and is left alone
// when the text is empty. A NUL that a code stands for ends the HTML, though not the layout: then
// false.
bool AppendMtextHtml(JsonOut& out, std::string_view text, double baseHeight, MtextLayout& layout,
                     const Palette& palette = DefaultPalette());
