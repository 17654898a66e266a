#include "text/mtext.hpp"

#include <algorithm>
#include <cmath>

#include "encode/json_text.hpp"
#include "encode/numbers.hpp"
#include "encode/portable_math.hpp"
#include "entities/drawing_access.hpp"
#include "text/mtext_to_html.hpp"

namespace {

constexpr std::size_t kMaxObliqueWarning = 127;

struct Frame {
  double width;
  double height;
};

// The DXF reader leaves the two fields shifted when there is no text height.
Frame FrameOf(const Dwg_Entity_MTEXT& mtext) {
  if (InputIsDxf() && mtext.text_height == 0) {
    return {mtext.rect_height, mtext.rect_width};
  }
  return {mtext.rect_width, mtext.text_height};
}

// The value of the first height code; 0 when there is none, when it is
// relative, or when it is no number.
double HeightFromCodes(std::string_view text) {
  const std::size_t code = text.find("\\H");
  if (code == std::string_view::npos) {
    return 0;
  }
  const std::string_view rest = text.substr(code + 2);
  const std::string_view value = rest.substr(0, rest.find(';'));
  return value.ends_with('x') ? 0 : ParseDouble(value).value_or(0);
}

double FallbackHeight(const Dwg_Entity_MTEXT& mtext, std::string_view text,
                      const LookupTables& tables) {
  const Handle style = HandleOf(mtext.style);
  const double* fixedHeight = style == 0 ? nullptr : tables.textStyles.Find(style);
  if (fixedHeight != nullptr && *fixedHeight != 0) {
    return *fixedHeight;
  }
  return HeightFromCodes(text);
}

bool HasNonAscii(std::string_view text) {
  return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

void WarnOfCharset(std::string_view layer, EntityContext& context) {
  std::string warning = "MTEXT on layer \"";
  warning += layer;
  warning +=
      "\": non-Western \\f|c charset detected in pre-R2007 file; "
      "text decoded as Windows-1252 may be incorrect.";
  context.warnings.push_back(std::move(warning));
}

// Cut after 127 bytes, wherever that falls: consumers know the short form.
void WarnOfObliqueCodes(std::int32_t count, std::string_view layer, EntityContext& context) {
  std::string warning;
  warning += JsonInt(count);
  warning += " \\Q oblique angle code(s) on layer \"";
  warning += layer;
  warning += "\" ignored (Qt limitation \u2014 no per-fragment slant)";
  warning.resize(std::min(warning.size(), kMaxObliqueWarning));
  context.warnings.push_back(std::move(warning));
}

void AppendRuns(JsonOut& out, const std::vector<TextRun>& runs) {
  std::string_view separator = ",\"runs\":[";
  for (const TextRun& run : runs) {
    out += separator;
    separator = ",";
    AppendIntKey(out, "{\"start\":", run.start);
    AppendIntKey(out, ",\"length\":", run.length);
    if (run.stretch != 0) {
      AppendIntKey(out, ",\"stretch\":", run.stretch);
    }
    if (run.tracking != 0) {
      AppendIntKey(out, ",\"tracking\":", run.tracking);
    }
    if (run.fixedPitch) {
      out += ",\"fixedPitch\":true";
    }
    out += '}';
  }
  if (!runs.empty()) {
    out += ']';
  }
}

void AppendLength(JsonOut& out, std::string_view key, double length) {
  if (length != 0) {
    AppendNumberKey(out, key, length);
  }
}

void AppendBlock(JsonOut& out, const ParagraphBlock& block) {
  AppendIntKey(out, "{\"index\":", block.index);
  if (!block.alignment.empty()) {
    AppendQuotedKey(out, ",\"alignment\":", block.alignment);
  }
  AppendLength(out, ",\"textIndent\":", block.textIndent);
  AppendLength(out, ",\"leftMargin\":", block.leftMargin);
  AppendLength(out, ",\"rightMargin\":", block.rightMargin);
  if (!block.tabStops.empty()) {
    out += ",\"tabStops\":[";
    ListCursor stops{out};
    for (const double stop : block.tabStops) {
      AppendListNumber(stops, stop);
    }
    out += ']';
  }
  out += '}';
}

void AppendBlocks(JsonOut& out, const std::vector<ParagraphBlock>& blocks) {
  std::string_view separator = ",\"blocks\":[";
  for (const ParagraphBlock& block : blocks) {
    out += separator;
    separator = ",";
    AppendBlock(out, block);
  }
  if (!blocks.empty()) {
    out += ']';
  }
}

}  // namespace

void AppendMtextRecord(JsonOut& out, const Dwg_Entity_MTEXT& mtext, std::string_view layer,
                       EntityContext& context) {
  const DecodedText text = context.Decode(mtext.text);
  Frame frame = FrameOf(mtext);
  if (frame.height == 0) {
    frame.height = FallbackHeight(mtext, text, context.tables);
  }
  BeginRecord(out, "MTEXT", layer);
  AppendNumberKey(out, ",\"x\":", mtext.ins_pt.x);
  AppendNumberKey(out, ",\"y\":", mtext.ins_pt.y);
  out += ",\"html\":\"";
  MtextLayout layout;
  AppendMtextHtml(out, text, frame.height, layout);
  out += '"';
  AppendQuotedKey(out, ",\"rawMtext\":", text);
  AppendNumberKey(out, ",\"width\":", frame.width);
  AppendNumberKey(out, ",\"height\":", frame.height);
  AppendNumberKey(out, ",\"rotationRad\":", PortableAtan2(mtext.x_axis_dir.y, mtext.x_axis_dir.x));
  AppendIntKey(out, ",\"attachment\":", mtext.attachment);
  AppendRuns(out, layout.runs);
  AppendBlocks(out, layout.blocks);
  out += '}';
  if (!context.unicodeText && layout.nonWesternCharset && HasNonAscii(text)) {
    WarnOfCharset(layer, context);
  }
  if (layout.obliqueCount > 0) {
    WarnOfObliqueCodes(layout.obliqueCount, layer, context);
  }
}
