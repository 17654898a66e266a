#include "entities/color.hpp"

#include "encode/json_text.hpp"

namespace {

constexpr std::int32_t kIndexByBlock = 0;
constexpr std::int32_t kIndexForeground = 7;
constexpr std::int32_t kIndexTrueColor = 257;

}  // namespace

std::uint32_t ColorMethod(const Dwg_Color& color) {
  return color.rgb >> 24U;
}

bool HasExplicitAlpha(const Dwg_Color& color) {
  return (color.alpha_type == 0xC2 || color.alpha_type == 3) && color.alpha != 255;
}

std::int32_t AlphaValue(const Dwg_Color& color) {
  return 255 - color.alpha;
}

void AppendColor(JsonOut& out, const Dwg_Color& color, const Palette& palette) {
  if (IsByLayer(color)) {
    out += "\"L\"";
    return;
  }
  if (color.index == kIndexByBlock) {
    out += "\"K\"";
    return;
  }
  const bool isTrueColor = ColorMethod(color) == kMethodTrueColor || color.index == kIndexTrueColor;
  if (!isTrueColor && color.index == kIndexForeground) {
    out += "\"W\"";
    return;
  }
  AppendRgb(out, isTrueColor ? RgbOfWord(color.rgb) : AciToRgb(color.index, palette));
  if (HasExplicitAlpha(color)) {
    AppendIntKey(out, ",\"a\":", AlphaValue(color));
  }
  out += '}';
}

std::string ColorJsonOrEmpty(const Dwg_Color& color, const Palette& palette) {
  JsonOut out;
  if (!IsByLayer(color) && color.index != kIndexByBlock) {
    AppendColor(out, color, palette);
  }
  return out.Text();
}

void AppendLineweight(JsonOut& out, std::uint8_t code) {
  if (HasOwnLineweight(code)) {
    AppendInt(out, dxf_cvt_lweight(code));
  } else {
    out += "\"L\"";
  }
}

void AppendColorDebug(JsonOut& out, const Dwg_Color& color) {
  AppendIntKey(out, ",\"_dbg\":{\"color_index\":", color.index);
  AppendIntKey(out, ",\"color_alpha_type\":", color.alpha_type);
  AppendIntKey(out, ",\"color_alpha\":", color.alpha);
  AppendIntKey(out, ",\"color_alpha_raw\":", color.alpha_raw);
  out += '}';
}
