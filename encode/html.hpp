// Escaping of text for HTML.
#pragma once

#include <string>
#include <string_view>

// Appends `<`, `>` and `&` as entities and every other byte as it is; quotes
// are not escaped.
void AppendHtmlEscaped(std::string& out, char byte);
void AppendHtmlEscaped(std::string& out, std::string_view text);
