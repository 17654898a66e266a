// Byte-wise ASCII letters and digits, independent of any locale.
#pragma once

#include <string>
#include <string_view>

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

constexpr char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline std::string LowerAscii(std::string_view text) {
  std::string out(text);
  for (char& c : out) {
    c = LowerAscii(c);
  }
  return out;
}

inline std::string UpperAscii(std::string_view text) {
  std::string out(text);
  for (char& c : out) {
    c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  }
  return out;
}

// Whether `text` begins with `prefix`, which is given in lower case, without
// regard to the letter case of `text`.
constexpr bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix) {
  if (text.size() < prefix.size()) {
    return false;
  }
  for (std::size_t i = 0; i < prefix.size(); ++i) {
    if (LowerAscii(text[i]) != prefix[i]) {
      return false;
    }
  }
  return true;
}
