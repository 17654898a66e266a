#include "reading/dxf/dxf_encoding.hpp"

#include <cstdint>

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";
constexpr std::string_view kLittleEndianMark32{"\xFF\xFE\0\0", 4};
constexpr std::string_view kBigEndianMark32{"\0\0\xFE\xFF", 4};

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kHighFirst = 0xD800;
constexpr char32_t kLowFirst = 0xDC00;
constexpr char32_t kLowLast = 0xDFFF;
constexpr char32_t kLastCharacter = 0x10FFFF;

void AppendUtf8(std::string& out, char32_t c) {
  constexpr unsigned kBits = 6;
  constexpr char32_t kMask = 0x3F;
  const auto tail = [&out](char32_t bits) { out += static_cast<char>(0x80 | (bits & kMask)); };
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | c >> kBits);
    tail(c);
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | c >> 2 * kBits);
    tail(c >> kBits);
    tail(c);
  } else {
    out += static_cast<char>(0xF0 | c >> 3 * kBits);
    tail(c >> 2 * kBits);
    tail(c >> kBits);
    tail(c);
  }
}

char32_t UnitAt(std::string_view bytes, std::size_t at, bool isBigEndian) {
  constexpr unsigned kByte = 8;
  const auto first = static_cast<unsigned char>(bytes[at]);
  const auto second = static_cast<unsigned char>(bytes[at + 1]);
  return isBigEndian ? static_cast<char32_t>(first << kByte | second)
                     : static_cast<char32_t>(second << kByte | first);
}

// Whether every second of the first bytes is NUL, from the one at `first` on,
// and the others are not.
bool AlternatesWithNul(std::string_view bytes, std::size_t first) {
  constexpr std::size_t kEnough = 8;
  if (bytes.size() < kEnough) {
    return false;
  }
  for (std::size_t i = 0; i < kEnough; ++i) {
    if ((bytes[i] == '\0') != (i % 2 == first)) {
      return false;
    }
  }
  return true;
}

constexpr std::size_t kWide = 4;

// Whether all of the first 32-bit characters are ASCII, each in the byte at `place`.
bool HasWideAscii(std::string_view bytes, std::size_t place) {
  constexpr std::size_t kEnough = 4 * kWide;
  if (bytes.size() < kEnough) {
    return false;
  }
  for (std::size_t i = 0; i < kEnough; ++i) {
    if ((bytes[i] != '\0') != (i % kWide == place)) {
      return false;
    }
  }
  return true;
}

bool HasUtf32Mark(std::string_view bytes) {
  return bytes.starts_with(kLittleEndianMark32) || bytes.starts_with(kBigEndianMark32);
}

char32_t WideUnitAt(std::string_view bytes, std::size_t at, bool isBigEndian) {
  constexpr unsigned kHalf = 16;
  const char32_t first = UnitAt(bytes, at, isBigEndian);
  const char32_t second = UnitAt(bytes, at + kWide / 2, isBigEndian);
  return isBigEndian ? first << kHalf | second : second << kHalf | first;
}

bool IsBigEndianText(std::string_view bytes) {
  return bytes.starts_with(kBigEndianMark) || AlternatesWithNul(bytes, 0);
}

bool HasUtf16Mark(std::string_view bytes) {
  return bytes.starts_with(kLittleEndianMark) || bytes.starts_with(kBigEndianMark);
}

bool IsTail(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// The length of the character at `at`; 0 when it is none.
std::size_t Utf8Length(std::string_view text, std::size_t at) {
  const auto first = static_cast<unsigned char>(text[at]);
  const std::size_t length = first < 0x80   ? 1
                             : first < 0xC2 ? 0
                             : first < 0xE0 ? 2
                             : first < 0xF0 ? 3
                             : first < 0xF5 ? 4
                                            : 0;
  if (length == 0 || at + length > text.size()) {
    return 0;
  }
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsTail(text[at + i])) {
      return 0;
    }
  }
  return length;
}

}  // namespace

bool HasUtf8Mark(std::string_view bytes) {
  return bytes.starts_with(kUtf8Mark);
}

bool IsUtf16(std::string_view bytes) {
  return HasUtf16Mark(bytes) || AlternatesWithNul(bytes, 0) || AlternatesWithNul(bytes, 1);
}

std::string Utf8FromUtf16(std::string_view bytes) {
  const bool isBigEndian = IsBigEndianText(bytes);
  constexpr std::size_t kUnit = 2;
  std::string out;
  out.reserve(bytes.size() / kUnit);
  for (std::size_t at = HasUtf16Mark(bytes) ? kUnit : 0; at + 1 < bytes.size(); at += kUnit) {
    const char32_t unit = UnitAt(bytes, at, isBigEndian);
    if (unit < kHighFirst || unit > kLowLast) {
      AppendUtf8(out, unit);
      continue;
    }
    const std::size_t next = at + kUnit;
    const char32_t low = next + 1 < bytes.size() ? UnitAt(bytes, next, isBigEndian) : 0;
    if (unit < kLowFirst && low >= kLowFirst && low <= kLowLast) {
      constexpr unsigned kHalfBits = 10;
      constexpr char32_t kFirstBeyond = 0x10000;
      AppendUtf8(out, kFirstBeyond + ((unit - kHighFirst) << kHalfBits) + (low - kLowFirst));
      at = next;
    } else {
      AppendUtf8(out, kReplacement);
    }
  }
  return out;
}

bool IsUtf32(std::string_view bytes) {
  return HasUtf32Mark(bytes) || HasWideAscii(bytes, 0) || HasWideAscii(bytes, kWide - 1);
}

std::string Utf8FromUtf32(std::string_view bytes) {
  const bool isBigEndian = bytes.starts_with(kBigEndianMark32) || HasWideAscii(bytes, kWide - 1);
  std::string out;
  out.reserve(bytes.size() / kWide);
  for (std::size_t at = HasUtf32Mark(bytes) ? kWide : 0; at + kWide <= bytes.size(); at += kWide) {
    const char32_t unit = WideUnitAt(bytes, at, isBigEndian);
    const bool isCharacter = unit <= kLastCharacter && (unit < kHighFirst || unit > kLowLast);
    AppendUtf8(out, isCharacter ? unit : kReplacement);
  }
  return out;
}

bool IsUtf8BeyondAscii(std::string_view text) {
  bool isBeyond = false;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = Utf8Length(text, at);
    if (length == 0) {
      return false;
    }
    isBeyond = isBeyond || length > 1;
    at += length;
  }
  return isBeyond;
}
