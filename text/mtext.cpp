#include "text/mtext.hpp"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "encode/fast/portable_math.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "encode/numbers.hpp"
#include "entities/drawing_access.hpp"
#include "text/mtext_to_html.hpp"

namespace {

constexpr std::size_t kMaxObliqueWarning = 127;

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
  const double* fixedHeight = tables.FixedTextHeight(HandleOf(mtext.style));
  return fixedHeight != nullptr && *fixedHeight != 0 ? *fixedHeight : HeightFromCodes(text);
}

bool HasNonAscii(std::string_view text) {
  return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

void WarnOfCharset(std::string_view layer, const EntityContext& context) {
  std::string warning = "MTEXT on layer \"";
  warning += layer;
  warning +=
      "\": non-Western \\f|c charset detected in pre-R2007 file; "
      "text decoded as Windows-1252 may be incorrect.";
  context.Warn(std::move(warning));
}

// Cut after 127 bytes, wherever that falls: consumers know the short form.
void WarnOfObliqueCodes(std::int32_t count, std::string_view layer, const EntityContext& context) {
  std::string warning = std::to_string(count);
  warning += " \\Q oblique angle code(s) on layer \"";
  warning += layer;
  warning += "\" ignored (Qt limitation \u2014 no per-fragment slant)";
  warning.resize(std::min(warning.size(), kMaxObliqueWarning));
  context.Warn(std::move(warning));
}

void AppendRun(JsonOut& out, const TextRun& run) {
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
    JsonList stops(out, ",\"tabStops\":[");
    for (const double stop : block.tabStops) {
      stops.Number(stop);
    }
    stops.Close();
  }
  out += '}';
}

// No key without any entry. `append` writes one.
template <typename Entry, typename Append>
void AppendEntries(JsonOut& out, std::string_view key, const std::vector<Entry>& entries,
                   Append append) {
  if (entries.empty()) {
    return;
  }
  JsonList list(out, key);
  for (const Entry& entry : entries) {
    list.Item([&] { append(out, entry); });
  }
  list.Close();
}

}  // namespace

void AppendMtext(JsonOut& out, const Dwg_Entity_MTEXT& mtext, const EntityContext& context,
                 const EntityOrigin& origin) {
  const DecodedText text = context.Decode(mtext.text);
  const double height =
      mtext.text_height != 0 ? mtext.text_height : FallbackHeight(mtext, text, context.tables);
  AppendNumberKey(out, ",\"x\":", mtext.ins_pt.x);
  AppendNumberKey(out, ",\"y\":", mtext.ins_pt.y);
  out += ",\"html\":\"";
  MtextLayout layout;
  std::string room;
  AppendMtextHtml(out, context.drawing.Shown(text, room), height, layout, context.drawing.palette);
  out += '"';
  AppendQuotedKey(out, ",\"rawMtext\":", text);
  AppendNumberKey(out, ",\"width\":", mtext.rect_width);
  AppendNumberKey(out, ",\"height\":", height);
  AppendNumberKey(out, ",\"rotationRad\":", PortableAtan2(mtext.x_axis_dir.y, mtext.x_axis_dir.x));
  AppendIntKey(out, ",\"attachment\":", mtext.attachment);
  AppendEntries(out, ",\"runs\":[", layout.runs, AppendRun);
  AppendEntries(out, ",\"blocks\":[", layout.blocks, AppendBlock);
  if (context.drawing.MayMisreadText() && layout.nonWesternCharset && HasNonAscii(text)) {
    WarnOfCharset(origin.layer, context);
  }
  if (layout.obliqueCount > 0) {
    WarnOfObliqueCodes(layout.obliqueCount, origin.layer, context);
  }
}
