#include "text/mtext_to_html.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <optional>
#include <utility>

#include "encode/byte_search.hpp"
#include "encode/color.hpp"
#include "encode/font_mapping.hpp"
#include "encode/html.hpp"
#include "encode/json_text.hpp"
#include "encode/numbers.hpp"
#include "encode/utf8.hpp"
#include "text/fields.hpp"
#include "text/paragraph_format.hpp"

namespace {

constexpr double kHeightDivisor = 25.4;
constexpr std::size_t kMaxHeightText = 63;
constexpr std::int32_t kMinStretch = 50;
constexpr std::int32_t kMaxStretch = 200;
constexpr std::int32_t kLastWesternCharset = 2;
constexpr std::size_t kMaxCodePointDigits = 6;

// What a byte of ordinary text adds to the character position: 0 for a
// continuation byte, 2 for the lead byte of a surrogate pair.
constexpr std::array<std::uint8_t, 256> MakeUtf16Units() {
  std::array<std::uint8_t, 256> units{};
  for (std::size_t byte = 0; byte < units.size(); ++byte) {
    if (byte >= 0xF0) {
      units[byte] = 2;
    } else if (byte < 0x80 || byte >= 0xC0) {
      units[byte] = 1;
    }
  }
  return units;
}

constexpr std::array<std::uint8_t, 256> kUtf16Units = MakeUtf16Units();

// Bytes that do not stand for themselves.
constexpr bool IsSpecial(char byte) {
  switch (byte) {
    case '{':
    case '}':
    case '\\':
    case '<':
    case '>':
    case '&': return true;
    default: return false;
  }
}

std::size_t PlainLength(std::string_view text) {
  return CountWithout(
      text,
      [](ByteWord word) {
        // Of `<` and `>` one bit differs.
        return Found(word, BytesEqual(word, '{') | BytesEqual(word, '}') | BytesEqual(word, '\\') |
                               BytesEqual(word, '&') | BytesEqual(word | AllBytes('<' ^ '>'), '>'));
      },
      IsSpecial);
}

std::int32_t Utf16Length(std::string_view text) {
  std::int32_t length = 0;
  while (text.size() >= sizeof(ByteWord) && (LoadBytes(text.data()) & AllBytes(0x80)) == 0) {
    length += static_cast<std::int32_t>(sizeof(ByteWord));
    text.remove_prefix(sizeof(ByteWord));
  }
  for (const char byte : text) {
    length += kUtf16Units[static_cast<unsigned char>(byte)];
  }
  return length;
}

constexpr std::optional<std::uint32_t> HexDigit(char c) {
  if (c >= '0' && c <= '9') {
    return static_cast<std::uint32_t>(c - '0');
  }
  if (c >= 'a' && c <= 'f') {
    return static_cast<std::uint32_t>(c - 'a' + 10);
  }
  if (c >= 'A' && c <= 'F') {
    return static_cast<std::uint32_t>(c - 'A' + 10);
  }
  return std::nullopt;
}

// Cuts the text before the first separator off `rest`.
std::string_view NextField(std::string_view& rest, char separator) {
  const std::size_t end = std::min(rest.find(separator), rest.size());
  const std::string_view field = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return field;
}

// A factor as whole percent.
std::optional<std::int32_t> ParsePercent(std::string_view text) {
  const auto value = ParseDouble(text);
  return value ? TruncateToInt32(*value * 100 + 0.5) : std::nullopt;
}

// The start of a run whose end is not known before its group closes.
struct RunMarker {
  std::int32_t start = 0;
  std::int32_t stretch = 0;
  std::int32_t tracking = 0;
  bool fixedPitch = false;
};

// The markers of all open groups share one stack, in which each group owns the
// stretch from its first marker on: a deep nesting costs eight bytes a group.
struct GroupFrame {
  std::int32_t openSpans = 0;
  std::uint32_t firstMarker = 0;
};

class MtextScanner {
 public:
  MtextScanner(std::string_view text, double baseHeight, MtextLayout& layout)
      : text_(text), baseHeight_(baseHeight), layout_(layout) {
    out_.reserve(text.size() + text.size() / 2 + 16);
  }

  std::string Run() {
    OpenGroup();
    out_ += "<p>";
    while (position_ < text_.size()) {
      Step();
    }
    while (!groups_.empty()) {
      CloseGroup();
    }
    out_ += "</p>";
    return std::move(out_);
  }

 private:
  void Step() {
    const char byte = text_[position_];
    switch (byte) {
      case '{':
        OpenGroup();
        ++position_;
        break;
      case '}':
        if (groups_.size() > 1) {
          CloseGroup();
        }
        ++position_;
        break;
      case '\\': Code(); break;
      default: OrdinaryText(); break;
    }
  }

  // The byte at the position, whatever it is, and all that need no attention.
  void OrdinaryText() {
    AppendHtmlEscaped(out_, text_[position_]);
    charPos_ += kUtf16Units[static_cast<unsigned char>(text_[position_])];
    const std::string_view rest = text_.substr(position_ + 1);
    const std::string_view run = rest.substr(0, PlainLength(rest));
    out_ += run;
    charPos_ += Utf16Length(run);
    position_ += 1 + run.size();
  }

  // The position is at a backslash. An unknown code drops only that: what
  // follows it is scanned as ordinary text.
  void Code() {
    if (position_ + 1 == text_.size()) {
      position_ = text_.size();
      return;
    }
    const char code = text_[position_ + 1];
    if (!PlainCode(code) && !ArgumentCode(code) && !UnicodeCode(code)) {
      ++position_;
    }
  }

  // Codes of two bytes.
  bool PlainCode(char code) {
    switch (code) {
      case 'P':
      case 'n':
        Write("</p><p>", 1);
        ++paragraph_;
        break;
      case 'X':
      case 'x': Write("<br/>", 1); break;
      case '~': Write("&nbsp;", 1); break;
      case '\\': Write("\\", 1); break;
      case '{': Write("&#123;", 1); break;
      case '}': Write("&#125;", 1); break;
      case 'L': Write("<u>", 0); break;
      case 'l': Write("</u>", 0); break;
      case 'K': Write("<s>", 0); break;
      case 'k': Write("</s>", 0); break;
      case 'O': OpenSpan("text-decoration:overline"); break;
      case 'o': CloseOverline(); break;
      default: return false;
    }
    position_ += 2;
    return true;
  }

  // Codes whose argument runs to the next semicolon or the end of the text.
  bool ArgumentCode(char code) {
    const std::size_t start = position_ + 2;
    const auto argument = [this, start] {
      const std::size_t end = std::min(text_.find(';', start), text_.size());
      position_ = std::min(end + 1, text_.size());
      return text_.substr(start, end - start);
    };
    switch (code) {
      case 'A': argument(); break;  // vertical alignment, which HTML cannot carry
      case 'Q':
        argument();
        ++layout_.obliqueCount;
        break;
      case 'C': ColorIndex(argument()); break;
      case 'c': TrueColor(argument()); break;
      case 'H': Height(argument()); break;
      case 'W': Width(argument()); break;
      case 'T': Tracking(argument()); break;
      case 'f':
      case 'F': Font(argument()); break;
      case 'S': Stack(argument()); break;
      case 'p': Paragraph(argument()); break;
      default: return false;
    }
    return true;
  }

  bool UnicodeCode(char code) {
    const std::size_t start = position_ + 3;
    if (code != 'U' || start >= text_.size() || text_[start - 1] != '+' ||
        !HexDigit(text_[start])) {
      return false;
    }
    std::uint32_t codePoint = 0;
    std::size_t end = start;
    for (; end < text_.size() && end - start < kMaxCodePointDigits; ++end) {
      const auto digit = HexDigit(text_[end]);
      if (!digit) {
        break;
      }
      codePoint = codePoint << 4U | *digit;
    }
    std::string encoded;
    AppendUtf8(encoded, codePoint);
    AppendHtmlEscaped(out_, encoded);
    charPos_ += codePoint < 0x10000 ? 1 : 2;
    position_ = end;
    return true;
  }

  void Write(std::string_view html, std::int32_t characters) {
    out_ += html;
    charPos_ += characters;
  }

  // The style of the span is written between the two.
  void BeginSpan() { out_ += "<span style=\""; }
  void EndSpanTag() {
    out_ += "\">";
    ++groups_.back().openSpans;
  }

  void OpenSpan(std::string_view style) {
    BeginSpan();
    out_ += style;
    EndSpanTag();
  }

  void CloseOverline() {
    out_ += "</span>";
    if (groups_.back().openSpans > 0) {
      --groups_.back().openSpans;
    }
  }

  void OpenColorSpan(Rgb color) {
    BeginSpan();
    out_ += "color:rgb(";
    out_ += JsonInt(color.red);
    out_ += ',';
    out_ += JsonInt(color.green);
    out_ += ',';
    out_ += JsonInt(color.blue);
    out_ += ')';
    EndSpanTag();
  }

  void ColorIndex(std::string_view argument) {
    if (const auto index = ParseInt32(argument)) {
      OpenColorSpan(AciToRgb(*index));
    }
  }

  void TrueColor(std::string_view argument) {
    if (const auto word = ParseUint32(argument)) {
      OpenColorSpan(RgbOfWord(*word));
    }
  }

  void Height(std::string_view argument) {
    const bool isRelative = argument.ends_with('x');
    if (isRelative) {
      argument.remove_suffix(1);
    }
    const auto value = ParseDouble(argument);
    if (!value) {
      return;
    }
    const double height = isRelative ? *value * baseHeight_ : *value;
    if (!(height > 0)) {
      return;
    }
    // Consumers know this scale: 25.4 drawing units are one point.
    std::array<char, std::numeric_limits<double>::max_exponent10 + 16> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                   height / kHeightDivisor, std::chars_format::fixed, 4)
                         .ptr;
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    BeginSpan();
    out_ += "font-size:";
    out_ += text.substr(0, kMaxHeightText);
    out_ += "pt";
    EndSpanTag();
  }

  void Width(std::string_view argument) {
    if (const auto percent = ParsePercent(argument)) {
      const std::int32_t stretch = std::max(std::min(*percent, kMaxStretch), kMinStretch);
      Mark({.start = charPos_, .stretch = stretch});
    }
  }

  void Tracking(std::string_view argument) {
    if (const auto percent = ParsePercent(argument)) {
      Mark({.start = charPos_, .tracking = *percent});
    }
  }

  void Mark(const RunMarker& marker) { markers_.push_back(marker); }

  // Weight and slant are only ever switched on: a bold set in an outer group is
  // not cleared by an inner font code.
  void Font(std::string_view argument) {
    const std::string_view name = NextField(argument, '|');
    bool bold = false;
    bool italic = false;
    ForEachField(argument, '|', [&](std::string_view field) {
      if (field.size() < 2) {
        return;
      }
      switch (field.front()) {
        case 'b': bold = field[1] == '1'; break;
        case 'i': italic = field[1] == '1'; break;
        case 'c': Charset(field.substr(1)); break;
        case 'p': PitchAndFamily(field.substr(1)); break;
        default: break;
      }
    });
    if (name.empty() && !bold && !italic) {
      return;
    }
    BeginSpan();
    if (!name.empty()) {
      out_ += "font-family:";
      out_ += MapFontFamily(name);
      out_ += ';';
    }
    out_ += bold ? "font-weight:bold;" : "";
    out_ += italic ? "font-style:italic;" : "";
    EndSpanTag();
  }

  void Charset(std::string_view text) {
    const auto charset = ParseInt32(text);
    if (charset && *charset > kLastWesternCharset) {
      layout_.nonWesternCharset = true;
    }
  }

  void PitchAndFamily(std::string_view text) {
    const auto pitch = ParseInt32(text);
    if (pitch && *pitch % 2 != 0) {
      Mark({.start = charPos_, .fixedPitch = true});
    }
  }

  // Lengths are counted in bytes here, and the separator counts even where it
  // is not written: consumers depend on these positions.
  void Stack(std::string_view argument) {
    charPos_ += static_cast<std::int32_t>(argument.size());
    const std::size_t separator = argument.find_first_of("#/^");
    if (separator == std::string_view::npos) {
      AppendHtmlEscaped(out_, argument);
      return;
    }
    out_ += "<span style=\"vertical-align:super\">";
    AppendHtmlEscaped(out_, argument.substr(0, separator));
    out_ += "</span>";
    if (argument[separator] != '^') {
      out_ += '/';
    }
    out_ += "<span style=\"vertical-align:sub\">";
    AppendHtmlEscaped(out_, argument.substr(separator + 1));
    out_ += "</span>";
  }

  void Paragraph(std::string_view argument) {
    ParagraphBlock block = ParseParagraphFormat(argument);
    block.index = paragraph_;
    if (SaysSomething(block)) {
      layout_.blocks.push_back(std::move(block));
    }
  }

  void OpenGroup() {
    groups_.push_back({.firstMarker = static_cast<std::uint32_t>(markers_.size())});
  }

  void CloseMarker(const RunMarker& marker) {
    const std::int32_t length = charPos_ - marker.start;
    const bool saysSomething = marker.stretch != 0 || marker.tracking != 0 || marker.fixedPitch;
    if (length > 0 && saysSomething) {
      layout_.runs.push_back(
          {marker.start, length, marker.stretch, marker.tracking, marker.fixedPitch});
    }
  }

  // Underline and strike-through are never closed here.
  void CloseGroup() {
    const GroupFrame group = groups_.back();
    for (std::size_t i = group.firstMarker; i < markers_.size(); ++i) {
      CloseMarker(markers_[i]);
    }
    markers_.resize(group.firstMarker);
    for (std::int32_t i = 0; i < group.openSpans; ++i) {
      out_ += "</span>";
    }
    groups_.pop_back();
  }

  std::string_view text_;
  double baseHeight_;
  MtextLayout& layout_;
  std::size_t position_ = 0;
  std::string out_;
  std::int32_t charPos_ = 0;
  std::int32_t paragraph_ = 0;
  std::vector<GroupFrame> groups_;
  std::vector<RunMarker> markers_;
};

}  // namespace

std::string MtextToHtml(std::string_view text, double baseHeight, MtextLayout& layout) {
  text = text.substr(0, text.find('\0'));
  if (text.empty()) {
    return "<p></p>";
  }
  return MtextScanner(text, baseHeight, layout).Run();
}
