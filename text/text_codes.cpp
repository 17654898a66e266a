#include "text/text_codes.hpp"

#include <cstddef>

#include "encode/ascii.hpp"
#include "encode/byte_search.hpp"
#include "encode/html.hpp"
#include "encode/text_decoding.hpp"

namespace {

constexpr std::size_t kMaxCodeDigits = 3;

// How many bytes from the start stand for themselves.
std::size_t PlainLength(std::string_view text) {
  return CountWithout(
      text,
      [](ByteWord word) {
        // Of `<` and `>` one bit differs.
        return Found(word, BytesEqual(word, '%') | BytesEqual(word, '&') |
                               BytesEqual(word | AllBytes('<' ^ '>'), '>'));
      },
      [](char byte) { return byte == '%' || byte == '&' || byte == '<' || byte == '>'; });
}

class TextCodeScanner {
 public:
  explicit TextCodeScanner(std::string_view text) : text_(text) { out_.reserve(text.size()); }

  std::string Run() {
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
    return std::move(out_);
  }

 private:
  // The byte at the position, whatever it is, and all that need no attention.
  void OrdinaryText() {
    AppendHtmlEscaped(out_, text_[position_++]);
    const std::size_t plain = PlainLength(text_.substr(position_));
    out_.append(text_, position_, plain);
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
    switch (LowerAscii(code)) {
      case 'c': out_ += "\u2205"; break;
      case 'd': out_ += "\u00B0"; break;
      case 'p': out_ += "\u00B1"; break;
      case '%': out_ += '%'; break;
      case 'u': ToggleUnderline(); break;
      case 'o': ToggleOverline(); break;
      default:
        out_ += "%%";
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
      out_ += DecodeWindows1252Byte(byte);
    } else {
      AppendHtmlEscaped(out_, static_cast<char>(byte));
    }
  }

  void ToggleUnderline() {
    underline_ = !underline_;
    out_ += underline_ ? "<u>" : "</u>";
  }

  void ToggleOverline() {
    overline_ = !overline_;
    out_ += overline_ ? "<span style=\"text-decoration:overline\">" : "</span>";
  }

  std::string_view text_;
  std::size_t position_ = 0;
  std::string out_;
  bool underline_ = false;
  bool overline_ = false;
};

}  // namespace

std::string TextCodesToHtml(std::string_view text) {
  return TextCodeScanner(text).Run();
}

bool HasTextCodes(std::string_view text) {
  return PlainLength(text) != text.size();
}
