#include "encode/palette.hpp"

#include <cstddef>

#include "encode/json_text.hpp"

namespace {

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

constexpr Palette MakePalette() {
  Palette palette{};
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

constexpr Palette kPalette = MakePalette();
static_assert(kPalette[11] == Rgb{255, 50, 50} && kPalette[240] == Rgb{255, 0, 63});
static_assert(kPalette[254] == Rgb{255, 255, 255} && kPalette[255] == Rgb{0, 0, 0});

}  // namespace

const Palette& DefaultPalette() {
  return kPalette;
}

Rgb AciToRgb(std::int32_t index, const Palette& palette) {
  if (index < 0 || index > 255) {
    return {};
  }
  return palette[static_cast<std::size_t>(index)];
}

Rgb RgbOfWord(std::uint32_t word) {
  return {static_cast<std::uint8_t>(word >> 16U), static_cast<std::uint8_t>(word >> 8U),
          static_cast<std::uint8_t>(word)};
}

void AppendRgb(JsonOut& out, Rgb rgb) {
  AppendIntKey(out, "{\"r\":", rgb.red);
  AppendIntKey(out, ",\"g\":", rgb.green);
  AppendIntKey(out, ",\"b\":", rgb.blue);
}
