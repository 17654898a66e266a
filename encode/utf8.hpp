// UTF-8 bytes of a code point, without any check of its validity.
#pragma once

#include <cstdint>
#include <string>

// Appends one byte below U+0080, two below U+0800, three below U+10000, else
// four. Values above U+10FFFF are encoded by the same arithmetic.
inline void AppendUtf8(std::string& out, std::uint32_t codePoint) {
  const auto tail = [codePoint](unsigned shift) {
    return static_cast<char>(0x80U | ((codePoint >> shift) & 0x3FU));
  };
  if (codePoint < 0x80) {
    out += static_cast<char>(codePoint);
  } else if (codePoint < 0x800) {
    out += static_cast<char>(0xC0U | (codePoint >> 6U));
    out += tail(0);
  } else if (codePoint < 0x10000) {
    out += static_cast<char>(0xE0U | (codePoint >> 12U));
    out += tail(6);
    out += tail(0);
  } else {
    out += static_cast<char>(0xF0U | (codePoint >> 18U));
    out += tail(12);
    out += tail(6);
    out += tail(0);
  }
}
