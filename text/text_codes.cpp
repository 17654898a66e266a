#include "text/text_codes.hpp"

#include <cstddef>

#include "encode/ascii.hpp"
#include "encode/fast/byte_search.hpp"
#include "encode/html.hpp"
#include "encode/text_decoding.hpp"

namespace {

constexpr std::size_t kMaxCodeDigits = 3;

class TextCodeScanner {
 public:
  TextCodeScanner(JsonOut& out, std::string_view text) : text_(text), html_(out) {}

  bool Run() {
    while (position_ < text_.size()) {
      if (AtCode()) {
        Code();
      } else {
        OrdinaryText();
      }
    }
    if (underline_) {
      ToggleUnderline();
    }
    if (overline_) {
      ToggleOverline();
    }
    return html_.Finish();
  }

 private:
  // The byte at the position, whatever it is, or all that need no attention.
  void OrdinaryText() {
    const std::size_t plain =
        html_.Plain(text_.substr(position_), [](ByteWord word) { return BytesEqual(word, '%'); })
            .size;
    if (plain == 0) {
      html_.Text(text_[position_++]);
    }
    position_ += plain;
  }

  bool AtCode() const {
    return text_.size() - position_ >= 3 && text_[position_] == '%' && text_[position_ + 1] == '%';
  }

  void Code() {
    const char code = text_[position_ + 2];
    if (IsDigit(code)) {
      position_ += 2;
      CharacterNumber();
      return;
    }
    position_ += 3;
    if (const std::string_view sign = SignOfTextCode(code); !sign.empty()) {
      html_.Markup(sign);
      return;
    }
    switch (LowerAscii(code)) {
      case '%': html_.Markup("%"); break;
      case 'u': ToggleUnderline(); break;
      case 'o': ToggleOverline(); break;
      default:
        html_.Markup("%%");
        --position_;  // the third byte is ordinary text
        break;
    }
  }

  void CharacterNumber() {
    unsigned value = 0;
    std::size_t digits = 0;
    for (; digits < kMaxCodeDigits && position_ < text_.size() && IsDigit(text_[position_]);
         ++digits, ++position_) {
      value = value * 10 + static_cast<unsigned>(text_[position_] - '0');
    }
    // Only the low byte counts: consumers know %%321 as "A".
    const auto byte = static_cast<unsigned char>(value);
    if (digits == kMaxCodeDigits && byte >= 0x80) {
      html_.Verbatim(DecodeWindows1252Byte(byte));
    } else {
      html_.Text(static_cast<char>(byte));
    }
  }

  void ToggleUnderline() {
    underline_ = !underline_;
    html_.Markup(underline_ ? "<u>" : "</u>");
  }

  void ToggleOverline() {
    overline_ = !overline_;
    html_.Markup(overline_ ? R"(<span style=\"text-decoration:overline\">)" : "</span>");
  }

  std::string_view text_;
  std::size_t position_ = 0;
  HtmlLiteral html_;
  bool underline_ = false;
  bool overline_ = false;
};

}  // namespace

std::string_view SignOfTextCode(char letter) {
  switch (LowerAscii(letter)) {
    case 'c': return "\u2205";
    case 'd': return "\u00B0";
    case 'p': return "\u00B1";
    default: return {};
  }
}

bool AppendTextCodes(JsonOut& out, std::string_view text) {
  return TextCodeScanner(out, text).Run();
}
