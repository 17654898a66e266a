// The code pages of one byte a character that drawings name.
#pragma once

#include <array>
#include <span>
#include <string_view>

struct SingleBytePage {
  std::string_view name;  // as documents have it
  std::string_view key;   // the name without what spellings differ in

  // What the bytes from 0x80 on stand for. Bytes that stand for nothing are U+FFFD,
  // but on a Windows page those below 0xA0 are the code points of the same value,
  // as Windows takes them.
  std::array<char16_t, 128> high;
};

std::span<const SingleBytePage> SingleBytePages();
