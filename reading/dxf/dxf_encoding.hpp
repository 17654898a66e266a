// The bytes of a DXF file as 8-bit text.
#pragma once

#include <string>
#include <string_view>

// Whether the file begins with the byte-order mark of UTF-8.
bool HasUtf8Mark(std::string_view bytes);
inline constexpr std::size_t kUtf8MarkSize = 3;

// Whether the file begins with the byte-order mark of 16-bit characters.
bool HasUtf16Mark(std::string_view bytes);

// What follows that mark, as UTF-8. Halves of a character that stand alone
// become the replacement character.
std::string Utf8FromUtf16(std::string_view bytes);

// Whether the text has characters beyond ASCII and all of them are UTF-8.
bool IsUtf8BeyondAscii(std::string_view text);
