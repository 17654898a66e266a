// The bytes of a DXF file as 8-bit text.
#pragma once

#include <string>
#include <string_view>

// Whether the file begins with the byte-order mark of UTF-8.
bool HasUtf8Mark(std::string_view bytes);
inline constexpr std::size_t kUtf8MarkSize = 3;

// Whether the file consists of 16-bit characters: it begins with their
// byte-order mark, or with some that are ASCII.
bool IsUtf16(std::string_view bytes);

// These, without the mark, as UTF-8. Halves of a character that stand alone
// become the replacement character.
std::string Utf8FromUtf16(std::string_view bytes);

// Whether the file consists of 32-bit characters, in the same ways. To be asked first:
// their byte-order mark begins as that of 16-bit ones does.
bool IsUtf32(std::string_view bytes);

// These, without the mark, as UTF-8. What is no character becomes the replacement
// character.
std::string Utf8FromUtf32(std::string_view bytes);

// Whether the text has characters beyond ASCII and all of them are UTF-8.
bool IsUtf8BeyondAscii(std::string_view text);
