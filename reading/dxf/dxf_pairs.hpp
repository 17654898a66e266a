// Reads the group pairs of a DXF text that LibreDWG's reader takes as it
// stands, one line for the code and one for the value, and says where the text
// is not of that kind.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include <dxf_scan.h>

#include "encode/fast/byte_search.hpp"
#include "reading/dxf/dxf_values.hpp"

// The reader takes longer ones, too, but no text is one.
inline constexpr std::size_t kMostDxfValueBytes = 1000000;

struct DxfPair {
  int code = 0;
  std::string_view value;
  std::size_t begin = 0;  // offset of the line of the code
};

enum class DxfStep : std::uint8_t { kPair, kEnd, kFlaw };

class DxfPairReader {
 public:
  // A byte behind the text must be there and be NUL. The text should end with
  // a line feed.
  explicit DxfPairReader(std::string_view text, std::size_t begin = 0)
      : text_(text), at_(begin), end_(text.size()) {}

  // Reads up to `end` instead of the text's.
  DxfPairReader(std::string_view text, std::size_t begin, std::size_t end)
      : text_(text), at_(begin), end_(end) {}

  // Offset of the next pair.
  std::size_t offset() const { return at_; }

  DxfStep Next(DxfPair& pair) {
    if (at_ >= end_) {
      return DxfStep::kEnd;
    }
    pair.begin = at_;
    const char* value = EndOfShortCode(text_.data() + at_, pair.code);
    if (value == nullptr) {
      value = EndOfCode(text_.data() + at_, pair.code);
    }
    return value == nullptr ? DxfStep::kFlaw : ReadValue(pair, value);
  }

 private:
  // LibreDWG looks at so many characters at once.
  static constexpr std::ptrdiff_t kMostCodeLine = 30;
  static constexpr int kBase = 10;

  // Behind the line of a code of at most three digits with two blanks before it, as nearly
  // all are; null for another.
  static const char* EndOfShortCode(const char* at, int& code) {
    constexpr unsigned kMostDigit = 9;
    constexpr int kMostDigits = 3;
    at += *at == ' ' ? 1 : 0;
    at += *at == ' ' ? 1 : 0;
    code = 0;
    for (int i = 0; i < kMostDigits; ++i) {
      const unsigned digit = static_cast<unsigned char>(*at) - unsigned{'0'};
      if (digit > kMostDigit) {
        return nullptr;
      }
      code = code * kBase + static_cast<int>(digit);
      ++at;
      if (IsLineEnd(at)) {
        return at + (*at == '\r' ? 2 : 1);
      }
    }
    return nullptr;
  }

  static const char* EndOfCode(const char* const line, int& code) {
    const char* at = line;
    while (*at == ' ') {
      ++at;
    }
    const char* const first = at;
    code = 0;
    constexpr std::ptrdiff_t kMostDigits = 4;
    while (*at >= '0' && *at <= '9' && at - first <= kMostDigits) {
      code = code * kBase + (*at++ - '0');
    }
    const bool hasCode = at != first && at - line <= kMostCodeLine;
    at += *at == '\r' ? 1 : 0;
    return hasCode && *at == '\n' ? at + 1 : nullptr;
  }

  DxfStep ReadValue(DxfPair& pair, const char* value) {
    const char* const textEnd = text_.data() + text_.size();
    if (textEnd - value > DXF_SCAN_MOST) {
      const DxfValueKind kind = KindOfDxfCode(pair.code);
      const char* const end =
          kind == DxfValueKind::kText ? EndOfShortText(value) : EndOfPlainNumber(kind, value);
      if (end != nullptr) {
        pair.value = {value, static_cast<std::size_t>(end - value)};
        at_ = static_cast<std::size_t>(end + (*end == '\r' ? 2 : 1) - text_.data());
        return DxfStep::kPair;
      }
    }
    const auto* const lineEnd = static_cast<const char*>(
        std::memchr(value, '\n', static_cast<std::size_t>(textEnd - value)));
    if (lineEnd == nullptr) {
      return DxfStep::kFlaw;
    }
    const char* end = lineEnd;
    end -= end != value && end[-1] == '\r' ? 1 : 0;
    pair.value = {value, static_cast<std::size_t>(end - value)};
    at_ = static_cast<std::size_t>(lineEnd + 1 - text_.data());
    return IsProper(pair) ? DxfStep::kPair : DxfStep::kFlaw;
  }

  static bool IsLineEnd(const char* at) { return *at == '\n' || (*at == '\r' && at[1] == '\n'); }

  static const char* SkipDigits(const char* at) {
    constexpr unsigned kMost = 40;
    const auto* const digits = reinterpret_cast<const unsigned char*>(at);
    return at + (dxf_scan_digits(digits, kMost) - digits);
  }

  // Where the line ends if it is a short number without any oddity, else null.
  static const char* EndOfPlainNumber(DxfValueKind kind, const char* line) {
    // With two runs of digits it stays within DXF_SCAN_MOST.
    constexpr std::ptrdiff_t kMostBlanks = 16;
    const char* const most = line + kMostBlanks;
    const char* at = line;
    while (*at == ' ' && at != most) {
      ++at;
    }
    if (kind == DxfValueKind::kReal) {
      at += *at == '-' ? 1 : 0;
      const char* const first = at;
      at = SkipDigits(at);
      const bool hasPoint = *at == '.';
      at = hasPoint ? SkipDigits(at + 1) : at;
      return at - first > (hasPoint ? 1 : 0) && IsLineEnd(at) ? at : nullptr;
    }
    if (kind == DxfValueKind::kShort || kind == DxfValueKind::kInteger) {
      constexpr std::ptrdiff_t kNeverOutside = 4;
      const char* const first = at;
      at = SkipDigits(at);
      return at != first && at - first <= kNeverOutside && IsLineEnd(at) ? at : nullptr;
    }
    return nullptr;
  }

  // Where the line of a short text ends; null for a longer one and for one with a carriage
  // return in it.
  static const char* EndOfShortText(const char* line) {
    constexpr std::size_t kMost = 32;
    const std::size_t length = CountWithout(
        std::string_view(line, kMost),
        [](ByteWord word) { return Found(word, BytesEqual(word, '\n') | BytesEqual(word, '\r')); },
        [](char byte) { return byte == '\n' || byte == '\r'; });
    return length != kMost && IsLineEnd(line + length) ? line + length : nullptr;
  }

  static bool IsProper(const DxfPair& pair) {
    const DxfValueKind kind = KindOfDxfCode(pair.code);
    if (kind == DxfValueKind::kText) {
      // A carriage return in the middle ends a line, too.
      return pair.value.size() <= kMostDxfValueBytes &&
             std::memchr(pair.value.data(), '\r', pair.value.size()) == nullptr;
    }
    // DIMSTYLE has names there.
    constexpr int kHandleCode = 5;
    return pair.code == kHandleCode || pair.code == kDxfComment ||
           IsProperDxfValue(kind, pair.value);
  }

  std::string_view text_;
  std::size_t at_;
  std::size_t end_;
};
