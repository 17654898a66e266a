// The %% codes of single-line text to HTML.
#pragma once

#include <string>
#include <string_view>

// An HTML fragment without a surrounding paragraph. Unknown codes are written
// as they stand; an underline or overline still on at the end is closed.
std::string TextCodesToHtml(std::string_view text);

// Whether the text is not its own HTML.
bool HasTextCodes(std::string_view text);
