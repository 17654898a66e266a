// The colour-index (ACI) palette, and red, green and blue as JSON.
#pragma once

#include <array>
#include <cstdint>

#include "encode/json_out.hpp"

struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  friend bool operator==(const Rgb&, const Rgb&) = default;
};

// By colour index.
using Palette = std::array<Rgb, 256>;

// Its channels are truncated, not rounded: consumers depend on these values.
const Palette& DefaultPalette();

// The palette's colour of an index from 0 to 255; black for any other.
Rgb AciToRgb(std::int32_t index, const Palette& palette = DefaultPalette());

// Red, green and blue of a colour word 0xMMRRGGBB, M being the colour method.
Rgb RgbOfWord(std::uint32_t word);

// `{"r":R,"g":G,"b":B` without the closing brace.
void AppendRgb(JsonOut& out, Rgb rgb);
