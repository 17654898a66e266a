// The %% codes of single-line text to HTML.
#pragma once

#include <string_view>

#include "encode/json_out.hpp"

// The sign of diameter, degree or tolerance for the letter of %%c, %%d or %%p, in either
// case; empty for another.
std::string_view SignOfTextCode(char letter);

// Appends an HTML fragment without a surrounding paragraph, as the inside of a
// JSON string literal. Unknown codes are written as they stand; an underline or
// overline still on at the end is closed. A NUL, of the text or of a code, ends
// the fragment: then false.
bool AppendTextCodes(JsonOut& out, std::string_view text);
