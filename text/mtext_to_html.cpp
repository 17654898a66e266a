#include "text/mtext_to_html.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

#include "encode/fast/byte_search.hpp"
#include "encode/font_mapping.hpp"
#include "encode/html.hpp"
#include "encode/numbers.hpp"
#include "encode/palette.hpp"
#include "encode/utf8.hpp"
#include "text/fields.hpp"
#include "text/font_size.hpp"
#include "text/paragraph_format.hpp"

namespace {

constexpr double kHeightDivisor = 25.4;
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
  MtextScanner(JsonOut& out, std::string_view text, double baseHeight, MtextLayout& layout,
               const Palette& palette)
      : text_(text), baseHeight_(baseHeight), layout_(layout), palette_(palette), html_(out) {}

  bool Run() {
    html_.Markup("<p>");
    while (position_ < text_.size()) {
      Step();
    }
    while (!outerGroups_.empty()) {
      CloseGroup();
    }
    EndGroup();
    html_.Markup("</p>");
    return html_.Finish();
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
        if (!outerGroups_.empty()) {
          CloseGroup();
        }
        ++position_;
        break;
      case '\\': Code(); break;
      default: OrdinaryText(); break;
    }
  }

  // The byte at the position, whatever it is, or all that need no attention.
  void OrdinaryText() {
    const std::string_view rest = text_.substr(position_);
    const auto [size, isAscii] = html_.Plain(
        rest, [](ByteWord word) { return BytesEqual(word, '{') | BytesEqual(word, '}'); });
    if (size == 0) {
      html_.Text(rest.front());
      ++charPos_;  // no byte above 0x7F ends a run
      ++position_;
      return;
    }
    charPos_ += isAscii ? static_cast<std::int32_t>(size) : Utf16Length(rest.substr(0, size));
    position_ += size;
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
      case '\\': Write(R"(\\)", 1); break;
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

  bool ArgumentCode(char code) {
    switch (code) {
      case 'A': TakeArgument(); break;  // vertical alignment, which HTML cannot carry
      case 'Q':
        TakeArgument();
        ++layout_.obliqueCount;
        break;
      case 'C': ColorIndex(TakeArgument()); break;
      case 'c': TrueColor(TakeArgument()); break;
      case 'H': Height(TakeArgument()); break;
      case 'W': Width(TakeArgument()); break;
      case 'T': Tracking(TakeArgument()); break;
      case 'f':
      case 'F': Font(TakeArgument()); break;
      case 'S': Stack(TakeArgument()); break;
      case 'p': Paragraph(TakeArgument()); break;
      default: return false;
    }
    return true;
  }

  // Arguments run to the next semicolon or the end of the text.
  std::string_view TakeArgument() {
    const std::size_t start = position_ + 2;
    const std::size_t end = std::min(text_.find(';', start), text_.size());
    position_ = std::min(end + 1, text_.size());
    return text_.substr(start, end - start);
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
    html_.Text(encoded);
    charPos_ += codePoint < 0x10000 ? 1 : 2;
    position_ = end;
    return true;
  }

  void Write(std::string_view markup, std::int32_t characters) {
    html_.Markup(markup);
    charPos_ += characters;
  }

  // The style of the span is written between the two.
  void BeginSpan() { html_.Markup(R"(<span style=\")"); }
  void EndSpanTag() {
    html_.Markup(R"(\">)");
    ++group_.openSpans;
  }

  void OpenSpan(std::string_view style) {
    BeginSpan();
    html_.Markup(style);
    EndSpanTag();
  }

  void CloseOverline() {
    html_.Markup("</span>");
    if (group_.openSpans > 0) {
      --group_.openSpans;
    }
  }

  void OpenColorSpan(Rgb color) {
    BeginSpan();
    html_.Markup("color:rgb(");
    html_.Number(color.red);
    html_.Markup(",");
    html_.Number(color.green);
    html_.Markup(",");
    html_.Number(color.blue);
    html_.Markup(")");
    EndSpanTag();
  }

  void ColorIndex(std::string_view argument) {
    if (const auto index = ParseInt32(argument)) {
      OpenColorSpan(AciToRgb(*index, palette_));
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
    std::array<char, kFontSizeRoom> room;
    BeginSpan();
    html_.Markup("font-size:");
    html_.Markup(FontSizeText(height / kHeightDivisor, room));
    html_.Markup("pt");
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
    const std::string_view name = argument.substr(0, argument.find('|'));
    bool bold = false;
    bool italic = false;
    ForEachField(argument.substr(name.size()), '|', [&](std::string_view field) {
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
      html_.Markup("font-family:");
      html_.Verbatim(MapFontFamily(name));
      html_.Markup(";");
    }
    if (bold) {
      html_.Markup("font-weight:bold;");
    }
    if (italic) {
      html_.Markup("font-style:italic;");
    }
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
    const auto found =
        std::ranges::find_if(argument, [](char c) { return c == '#' || c == '/' || c == '^'; });
    const auto separator = static_cast<std::size_t>(found - argument.begin());
    if (separator == argument.size()) {
      html_.Text(argument);
      return;
    }
    html_.Markup(R"(<span style=\"vertical-align:super\">)");
    html_.Text(argument.substr(0, separator));
    html_.Markup("</span>");
    if (argument[separator] != '^') {
      html_.Markup("/");
    }
    html_.Markup(R"(<span style=\"vertical-align:sub\">)");
    html_.Text(argument.substr(separator + 1));
    html_.Markup("</span>");
  }

  void Paragraph(std::string_view argument) {
    ParagraphBlock block = ParseParagraphFormat(argument);
    block.index = paragraph_;
    if (SaysSomething(block)) {
      layout_.blocks.push_back(std::move(block));
    }
  }

  void OpenGroup() {
    outerGroups_.push_back(group_);
    group_ = {.firstMarker = static_cast<std::uint32_t>(markers_.size())};
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
  void EndGroup() {
    for (std::size_t i = group_.firstMarker; i < markers_.size(); ++i) {
      CloseMarker(markers_[i]);
    }
    markers_.resize(group_.firstMarker);
    for (std::int32_t i = 0; i < group_.openSpans; ++i) {
      html_.Markup("</span>");
    }
  }

  void CloseGroup() {
    EndGroup();
    group_ = outerGroups_.back();
    outerGroups_.pop_back();
  }

  std::string_view text_;
  double baseHeight_;
  MtextLayout& layout_;
  const Palette& palette_;
  std::size_t position_ = 0;
  HtmlLiteral html_;
  std::int32_t charPos_ = 0;
  std::int32_t paragraph_ = 0;
  GroupFrame group_;
  std::vector<GroupFrame> outerGroups_;
  std::vector<RunMarker> markers_;
};

}  // namespace

bool AppendMtextHtml(JsonOut& out, std::string_view text, double baseHeight, MtextLayout& layout,
                     const Palette& palette) {
  text = text.substr(0, text.find('\0'));
  if (text.empty()) {
    out += "<p></p>";
    return true;
  }
  return MtextScanner(out, text, baseHeight, layout, palette).Run();
}
