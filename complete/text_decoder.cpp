#include "complete/text_decoder.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>

#include "encode/ascii.hpp"
#include "encode/fast/byte_search.hpp"
#include "encode/utf8.hpp"
#include "encode/utf8_check.hpp"
#include "text/text_codes.hpp"

namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;
constexpr std::uint32_t kHighFirst = 0xD800;
constexpr std::uint32_t kLowFirst = 0xDC00;
constexpr std::uint32_t kLowLast = 0xDFFF;

// \U+XXXX and \M+nXXXX.
constexpr std::size_t kUnicodeSize = 7;
constexpr std::size_t kMultibyteSize = 8;
constexpr std::size_t kHexDigits = 4;
// %%nnn
constexpr std::size_t kNumberSize = 5;

std::size_t OrdinaryLength(std::string_view text) {
  return CountWithout(
      text,
      [](ByteWord word) {
        return (word & AllBytes(0x80)) |
               Found(word, BytesEqual(word, '\\') | BytesEqual(word, '%') | BytesEqual(word, '^'));
      },
      [](char byte) {
        return static_cast<unsigned char>(byte) >= 0x80 || byte == '\\' || byte == '%' ||
               byte == '^';
      });
}

std::optional<std::uint32_t> HexValue(std::string_view digits) {
  std::uint32_t value = 0;
  for (const char c : digits) {
    const char lower = LowerAscii(c);
    if (IsDigit(c)) {
      value = value * 16 + static_cast<std::uint32_t>(c - '0');
    } else if (lower >= 'a' && lower <= 'f') {
      value = value * 16 + static_cast<std::uint32_t>(lower - 'a' + 10);
    } else {
      return {};
    }
  }
  return value;
}

// What \U+XXXX at the start of a text stands for.
std::optional<std::uint32_t> UnicodeCode(std::string_view text) {
  if (text.size() < kUnicodeSize || !text.starts_with("\\U+")) {
    return {};
  }
  return HexValue(text.substr(3, kHexDigits));
}

// The number of %%nnn at the start of a text, of which the low byte counts.
std::optional<unsigned char> NumberCode(std::string_view text) {
  if (text.size() < kNumberSize || !text.starts_with("%%") || !IsDigit(text[2]) ||
      !IsDigit(text[3]) || !IsDigit(text[4])) {
    return {};
  }
  return static_cast<unsigned char>((text[2] - '0') * 100 + (text[3] - '0') * 10 + text[4] - '0');
}

// Those that mean something where they stand in a text, or that end it.
bool HasMeaning(std::uint32_t codePoint) {
  switch (codePoint) {
    case '\\':
    case '{':
    case '}':
    case '%':
    case '^':
    case 0x7F: return true;
    default: return codePoint < ' ';
  }
}

struct TextRules {
  bool isUtf8;
  const CodePage& page;
  bool hasCaretCodes;
};

class Scanner {
 public:
  Scanner(std::string_view text, const TextRules& rules) : rest_(text), rules_(rules) {
    out_.reserve(text.size() + text.size() / 2);
  }

  std::string Run() {
    while (!rest_.empty()) {
      Copy(OrdinaryLength(rest_));
      if (!rest_.empty()) {
        Special();
      }
    }
    return std::move(out_);
  }

 private:
  void Special() {
    switch (rest_[0]) {
      case '\\': return Backslash();
      case '%': return Percent();
      case '^': return Caret();
      default: return Character();
    }
  }

  void Copy(std::size_t count) {
    out_ += rest_.substr(0, count);
    rest_.remove_prefix(count < rest_.size() ? count : rest_.size());
  }

  void Replace(std::size_t count, std::uint32_t codePoint) {
    AppendUtf8(out_, codePoint);
    rest_.remove_prefix(count);
  }

  void ReplaceOrCopy(std::size_t count, std::uint32_t codePoint) {
    if (HasMeaning(codePoint)) {
      Copy(count);
    } else {
      Replace(count, codePoint);
    }
  }

  void Character() {
    if (rules_.isUtf8) {
      Copy(Utf8CharacterLength(rest_));
      return;
    }
    const CodePage::Character character = rules_.page.First(rest_);
    Replace(character.size, character.codePoint);
  }

  void Backslash() {
    if (rest_.starts_with("\\\\")) {
      Copy(2);
    } else if (const auto code = UnicodeCode(rest_)) {
      Unicode(*code);
    } else if (rest_.starts_with("\\M+")) {
      Multibyte();
    } else {
      Copy(1);
    }
  }

  void Unicode(std::uint32_t code) {
    if (code < kHighFirst || code > kLowLast) {
      ReplaceOrCopy(kUnicodeSize, code);
      return;
    }
    const auto low = UnicodeCode(rest_.substr(kUnicodeSize));
    if (code < kLowFirst && low && *low >= kLowFirst && *low <= kLowLast) {
      Replace(2 * kUnicodeSize, 0x10000 + ((code - kHighFirst) << 10U) + (*low - kLowFirst));
    } else {
      Replace(kUnicodeSize, kReplacement);
    }
  }

  void Multibyte() {
    const CodePage* page = rest_.size() < kMultibyteSize ? nullptr : PageOfMultibyteCode(rest_[3]);
    const auto code = page == nullptr
                          ? std::nullopt
                          : HexValue(rest_.substr(kMultibyteSize - kHexDigits, kHexDigits));
    if (code) {
      ReplaceOrCopy(kMultibyteSize, page->CodePointOf(*code));
    } else {
      Copy(1);
    }
  }

  void Percent() {
    if (rest_.starts_with("%%%")) {
      Copy(3);
      return;
    }
    const auto first = NumberCode(rest_);
    if (first && *first >= 0x80) {
      Number(*first);
    } else {
      Copy(rest_.starts_with("%%") ? 2 : 1);
    }
  }

  void Number(unsigned char first) {
    const auto second = NumberCode(rest_.substr(kNumberSize));
    if (second && rules_.page.IsLead(first)) {
      const std::uint32_t both =
          rules_.page.CodePointOf(static_cast<std::uint32_t>(first) << 8U | *second);
      if (both != 0) {
        Replace(2 * kNumberSize, both);
        return;
      }
    }
    ReplaceOrCopy(kNumberSize, rules_.page.CodePointOf(first));
  }

  void Caret() {
    if (rules_.hasCaretCodes && rest_.starts_with("^J")) {
      Replace(2, '\n');
    } else if (rules_.hasCaretCodes && rest_.starts_with("^M")) {
      Replace(2, '\r');
    } else {
      Copy(1);
    }
  }

  std::string_view rest_;
  const TextRules& rules_;
  std::string out_;
};

}  // namespace

DrawingTextDecoder::DrawingTextDecoder(TextForm form, const StoredText& stored)
    : form_(form),
      page_(stored.codePage),
      named_(stored.codePage),
      isUtf8_(form == TextForm::kWindows1252 && stored.isUtf8 &&
              (stored.hasLongUtf8 || !page_.HasDoubleBytes())),
      hasCaretCodes_(stored.hasCaretCodes) {}

DecodedText DrawingTextDecoder::Decode(const char* text) const {
  if (text == nullptr) {
    return DecodedText(std::string_view{});
  }
  if (form_ == TextForm::kUtf16) {
    std::string wide = DecodeText(form_, text).Take();
    if (wide.find_first_of("\\%^") == std::string::npos) {
      return DecodedText(std::move(wide));
    }
    return DecodedText(Scanner(wide, {true, page_, hasCaretCodes_}).Run());
  }
  const std::string_view bytes(text);
  if (OrdinaryLength(bytes) == bytes.size()) {
    return DecodedText(bytes);
  }
  return DecodedText(Scanner(bytes, {IsUtf8() && IsUtf8Text(bytes), page_, hasCaretCodes_}).Run());
}

std::string_view DrawingTextDecoder::Shown(std::string_view text, std::string& room) const {
  constexpr std::string_view kCode = "%%";
  constexpr std::string_view kPercentSign = "%%%";
  std::size_t at = text.find(kCode);
  if (at == std::string_view::npos) {
    return text;
  }
  room.clear();
  for (; at != std::string_view::npos; at = text.find(kCode)) {
    room += text.substr(0, at);
    text.remove_prefix(at);
    const std::string_view sign =
        text.size() > kCode.size() ? SignOfTextCode(text[kCode.size()]) : std::string_view{};
    // What is no code stays, and begins none.
    const std::string_view code = !sign.empty() || text.starts_with(kPercentSign)
                                      ? text.substr(0, kPercentSign.size())
                                      : kCode;
    room += sign.empty() ? code : sign;
    text.remove_prefix(code.size());
  }
  return room += text;
}

TextReading DrawingTextDecoder::reading() const {
  if (form_ == TextForm::kUtf16) {
    return {"UTF-16", "release", named_};
  }
  if (IsUtf8()) {
    return {"UTF-8", form_ == TextForm::kUtf8 ? "release" : "content", named_};
  }
  return {page_.name(), CodePage::IsKnown(named_) ? "drawing" : "default", named_};
}
