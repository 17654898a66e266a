// The code pages of 8-bit text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

struct SingleBytePage;
struct DoubleBytePage;

class CodePage {
 public:
  // What a text begins with: U+FFFD where its bytes stand for nothing.
  struct Character {
    std::uint32_t codePoint;
    std::size_t size;
  };

  // The page of a name in any spelling that drawings have for it ("ANSI_1251", "dos437",
  // "gb2312", "mac-roman"); Windows-1252 for a name that stands for no such page.
  explicit CodePage(std::string_view name = {});

  // Whether a name stands for a page of 8-bit text.
  static bool IsKnown(std::string_view name);

  // As documents have it.
  std::string_view name() const;

  bool HasDoubleBytes() const { return double_ != nullptr; }

  // Of a text that begins with a byte of 0x80 or above.
  Character First(std::string_view text) const;

  // What one code stands for, of a byte or, from 0x100 on, of two; 0 for nothing.
  std::uint32_t CodePointOf(std::uint32_t code) const;

  // Whether a byte begins a character of two.
  bool IsLead(unsigned char byte) const;

 private:
  const SingleBytePage* single_ = nullptr;
  const DoubleBytePage* double_ = nullptr;
};

// The page that the digit behind \M+ names, 1 to 5; null for another.
const CodePage* PageOfMultibyteCode(char digit);
