// Whether bytes are UTF-8.
#pragma once

#include <cstddef>
#include <string_view>

// The length of the character that a text begins with; 1 for a byte that begins none.
// Overlong forms, surrogates and code points beyond U+10FFFF are none.
std::size_t Utf8CharacterLength(std::string_view text);

struct Utf8Findings {
  bool isUtf8 = true;    // all of it
  bool hasLong = false;  // it has characters of three bytes or more
  bool isAscii = true;
};
Utf8Findings CheckUtf8(std::string_view text);

inline bool IsUtf8Text(std::string_view text) {
  return CheckUtf8(text).isUtf8;
}
