// A drawing's colours and lineweights as JSON.
//
// A colour is one of the tags "L" (by layer), "K" (by block) and "W" (index 7,
// white on dark and black on light backgrounds) or an object of r, g, b and,
// with an explicit transparency, a. Tags are never resolved here.
#pragma once

#include <dwg.h>

#include <cstdint>
#include <string>

#include "encode/json_out.hpp"
#include "encode/palette.hpp"

// The colour method in the top byte of a colour word.
inline constexpr std::uint32_t kMethodTrueColor = 0xC2;
inline constexpr std::uint32_t kMethodIndexed = 0xC3;
std::uint32_t ColorMethod(const Dwg_Color& color);

// Whether the colour carries a transparency of its own, and that transparency
// (1 to 255). The stored byte is its complement.
bool HasExplicitAlpha(const Dwg_Color& color);
std::int32_t AlphaValue(const Dwg_Color& color);

// The colour value; never empty.
void AppendColor(JsonOut& out, const Dwg_Color& color, const Palette& palette = DefaultPalette());

// The same as a text of its own, empty for a colour that is inherited by layer
// or block.
std::string ColorJsonOrEmpty(const Dwg_Color& color, const Palette& palette = DefaultPalette());

// Whether the colour is that of the layer.
inline bool IsByLayer(const Dwg_Color& color) {
  constexpr BITCODE_BSd kIndexByLayer = 256;
  return color.index == kIndexByLayer;
}

// Whether the code stands for a width; else for that of layer or block, or for
// the default.
inline bool HasOwnLineweight(std::uint8_t code) {
  constexpr std::uint8_t kLineweightCount = 24;
  return code < kLineweightCount;
}

// The lineweight code as hundredths of a millimetre, or "L" for the codes by
// layer, by block and default alike.
void AppendLineweight(JsonOut& out, std::uint8_t code);

// `,"_dbg":{...}` with the colour's stored fields.
void AppendColorDebug(JsonOut& out, const Dwg_Color& color);
