#include "encode/color.hpp"

#include <array>

#include "encode/json_text.hpp"

namespace {

constexpr std::int32_t kIndexByBlock = 0;
constexpr std::int32_t kIndexForeground = 7;
constexpr std::int32_t kIndexByLayer = 256;
constexpr std::int32_t kIndexTrueColor = 257;
constexpr std::uint8_t kLineweightCount = 24;

constexpr std::array<Rgb, 10> kBasicColors = {{{0, 0, 0},
                                               {255, 0, 0},
                                               {255, 255, 0},
                                               {0, 255, 0},
                                               {0, 255, 255},
                                               {0, 0, 255},
                                               {255, 0, 255},
                                               {255, 255, 255},
                                               {65, 65, 65},
                                               {128, 128, 128}}};

// 250 to 255; the last one is black, not white.
constexpr std::array<std::uint8_t, 6> kGreys = {51, 102, 153, 204, 255, 0};

struct Shade {
  double saturation;
  double value;
};

// By the last digit of an index from 10 to 249.
constexpr std::array<Shade, 10> kShades = {{{1.0, 1.0},
                                            {0.8, 1.0},
                                            {0.6, 1.0},
                                            {0.4, 1.0},
                                            {0.2, 1.0},
                                            {1.0, 0.75},
                                            {1.0, 0.5},
                                            {1.0, 0.25},
                                            {0.0, 0.75},
                                            {0.0, 0.5}}};

constexpr std::uint8_t Channel(double value) {
  return static_cast<std::uint8_t>(value * 255.0);
}

constexpr Rgb Channels(double red, double green, double blue) {
  return {Channel(red), Channel(green), Channel(blue)};
}

constexpr Rgb ShadeToRgb(int hueStep, Shade shade) {
  const double value = shade.value;
  if (!(shade.saturation > 0)) {
    return Channels(value, value, value);
  }
  const double h = hueStep * 15.0 / 60.0;
  const int sector = static_cast<int>(h);
  const double f = h - sector;
  const double p = (1.0 - shade.saturation) * value;
  const double q = (1.0 - shade.saturation * f) * value;
  const double t = (1.0 - (1.0 - f) * shade.saturation) * value;
  switch (sector % 6) {
    case 0: return Channels(value, t, p);
    case 1: return Channels(q, value, p);
    case 2: return Channels(p, value, t);
    case 3: return Channels(p, q, value);
    case 4: return Channels(t, p, value);
    default: return Channels(value, p, q);
  }
}

constexpr std::array<Rgb, 256> MakePalette() {
  std::array<Rgb, 256> palette{};
  for (std::size_t i = 0; i < palette.size(); ++i) {
    if (i < 10) {
      palette[i] = kBasicColors[i];
    } else if (i < 250) {
      palette[i] = ShadeToRgb(static_cast<int>((i - 10) / 10), kShades[(i - 10) % 10]);
    } else {
      palette[i] = {kGreys[i - 250], kGreys[i - 250], kGreys[i - 250]};
    }
  }
  return palette;
}

constexpr std::array<Rgb, 256> kPalette = MakePalette();
static_assert(kPalette[11] == Rgb{255, 50, 50} && kPalette[240] == Rgb{255, 0, 63});
static_assert(kPalette[254] == Rgb{255, 255, 255} && kPalette[255] == Rgb{0, 0, 0});

}  // namespace

Rgb AciToRgb(std::int32_t index) {
  if (index < 0 || index > 255) {
    return {};
  }
  return kPalette[static_cast<std::size_t>(index)];
}

Rgb RgbOfWord(std::uint32_t word) {
  return {static_cast<std::uint8_t>(word >> 16U), static_cast<std::uint8_t>(word >> 8U),
          static_cast<std::uint8_t>(word)};
}

std::uint32_t ColorMethod(const Dwg_Color& color) {
  return color.rgb >> 24U;
}

bool HasExplicitAlpha(const Dwg_Color& color) {
  return (color.alpha_type == 0xC2 || color.alpha_type == 3) && color.alpha != 255;
}

std::int32_t AlphaValue(const Dwg_Color& color) {
  return 255 - color.alpha;
}

void AppendRgb(JsonOut& out, Rgb rgb) {
  AppendIntKey(out, "{\"r\":", rgb.red);
  AppendIntKey(out, ",\"g\":", rgb.green);
  AppendIntKey(out, ",\"b\":", rgb.blue);
}

void AppendColor(JsonOut& out, const Dwg_Color& color) {
  if (color.index == kIndexByLayer) {
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
  AppendRgb(out, isTrueColor ? RgbOfWord(color.rgb) : AciToRgb(color.index));
  if (HasExplicitAlpha(color)) {
    AppendIntKey(out, ",\"a\":", AlphaValue(color));
  }
  out += '}';
}

std::string ColorJson(const Dwg_Color& color) {
  JsonOut out;
  AppendColor(out, color);
  return out.Text();
}

std::string ColorJsonOrEmpty(const Dwg_Color& color) {
  const bool isInherited = color.index == kIndexByLayer || color.index == kIndexByBlock;
  return isInherited ? std::string{} : ColorJson(color);
}

void AppendLineweight(JsonOut& out, std::uint8_t code) {
  if (code < kLineweightCount) {
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

void AppendColorAndLineweight(JsonOut& out, std::size_t start, const Dwg_Object& object,
                              bool debug) {
  if (out.size() == start || out.back() != '}' || object.tio.entity == nullptr) {
    return;
  }
  const Dwg_Object_Entity& entity = *object.tio.entity;
  out.Truncate(out.size() - 1);
  // Most entities take both from their layer.
  if (entity.color.index == kIndexByLayer && entity.linewt >= kLineweightCount && !debug) {
    out += ",\"color\":\"L\",\"lw\":\"L\"}";
    return;
  }
  out += ",\"color\":";
  AppendColor(out, entity.color);
  out += ",\"lw\":";
  AppendLineweight(out, entity.linewt);
  if (debug) {
    AppendColorDebug(out, entity.color);
  }
  out += '}';
}
