// Paragraph formats of multi-line text.
#pragma once

#include <string_view>

#include "text/mtext_to_html.hpp"

// The fields of a paragraph code, with index 0: indent, margins, alignment and
// tab stops. A field that cannot be read leaves its value as it was; a bad tab
// stop is left out.
ParagraphBlock ParseParagraphFormat(std::string_view argument);

// Whether any field of the block is set.
bool SaysSomething(const ParagraphBlock& block);
