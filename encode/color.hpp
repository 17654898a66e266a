// Colours and lineweights as JSON, and the colour-index (ACI) palette.
//
// A colour is one of the tags "L" (by layer), "K" (by block) and "W" (index 7,
// white on dark and black on light backgrounds) or an object of r, g, b and,
// with an explicit transparency, a. Tags are never resolved here.
#pragma once

#include <dwg.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "encode/json_out.hpp"

struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  friend bool operator==(const Rgb&, const Rgb&) = default;
};

// The palette's colour of an index from 0 to 255; black for any other. The
// channels are truncated, not rounded: consumers depend on these values.
Rgb AciToRgb(std::int32_t index);

// Red, green and blue of a colour word 0xMMRRGGBB, M being the colour method.
Rgb RgbOfWord(std::uint32_t word);

// The colour method in the top byte of a colour word.
inline constexpr std::uint32_t kMethodTrueColor = 0xC2;
inline constexpr std::uint32_t kMethodIndexed = 0xC3;
std::uint32_t ColorMethod(const Dwg_Color& color);

// Whether the colour carries a transparency of its own, and that transparency
// (0 to 254). The stored byte is its complement.
bool HasExplicitAlpha(const Dwg_Color& color);
std::int32_t AlphaValue(const Dwg_Color& color);

// The colour value; never empty.
void AppendColor(JsonOut& out, const Dwg_Color& color);
std::string ColorJson(const Dwg_Color& color);

// As ColorJson, but empty for a colour that is inherited by layer or block.
std::string ColorJsonOrEmpty(const Dwg_Color& color);

// `{"r":R,"g":G,"b":B` without the closing brace.
void AppendRgb(JsonOut& out, Rgb rgb);

// The lineweight code as hundredths of a millimetre, or "L" for the codes by
// layer, by block and default alike.
void AppendLineweight(JsonOut& out, std::uint8_t code);

// `,"_dbg":{...}` with the colour's stored fields.
void AppendColorDebug(JsonOut& out, const Dwg_Color& color);

// Adds `color`, `lw` and, with `debug`, `_dbg` before the closing brace of the
// finished record that stands at the end of `out` from `start` on. A record that
// is empty or does not end in a brace, or an object without entity data, leaves
// it as it is.
void AppendColorAndLineweight(JsonOut& out, std::size_t start, const Dwg_Object& object,
                              bool debug);
