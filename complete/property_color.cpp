#include "complete/property_color.hpp"

#include <cstdint>

#include "entities/color.hpp"

namespace {

constexpr std::uint32_t kMethodByLayer = 0xC0;
constexpr std::uint32_t kMethodByBlock = 0xC1;

constexpr BITCODE_BSd kByBlock = 0;
constexpr BITCODE_BSd kByLayer = 256;
constexpr BITCODE_BSd kTrueColor = 257;

// The index that says what the method does.
BITCODE_BSd IndexOf(const Dwg_Color& color) {
  constexpr std::uint32_t kIndexMask = 0x1FF;
  switch (ColorMethod(color)) {
    case kMethodByLayer: return kByLayer;
    case kMethodByBlock: return kByBlock;
    case kMethodTrueColor: return kTrueColor;
    case kMethodIndexed: return static_cast<BITCODE_BSd>(color.rgb & kIndexMask);
    default: return color.index;
  }
}

}  // namespace

namespace {

// The library's DXF reader has the index in its place, and in the word the method of its
// own and what the index looks like; a true colour has no index there or none of its own.
BITCODE_BSd IndexInDxf(const Dwg_Color& color) {
  constexpr std::uint32_t kRgbMask = 0xFFFFFF;
  const std::uint32_t method = ColorMethod(color);
  const bool isTrueColor =
      (method == 0 || method == kMethodTrueColor) && (color.rgb & kRgbMask) != 0;
  return isTrueColor ? kTrueColor : color.index;
}

}  // namespace

void AppendPropertyColor(JsonOut& out, const Dwg_Color& color, const CompleteContext& context) {
  const bool isFromDxf = (context.dwg().opts & DWG_OPTS_INDXF) != 0;
  Dwg_Color shown = color;
  shown.index = isFromDxf ? IndexInDxf(color) : IndexOf(color);
  shown.rgb = shown.index == kTrueColor ? color.rgb : 0;
  AppendColor(out, shown, context.base.drawing.palette);
}

void AppendColorWord(JsonOut& out, std::uint32_t word, const CompleteContext& context) {
  Dwg_Color color{};
  color.rgb = word;
  color.index = kByLayer;
  color.index = IndexOf(color);
  AppendColor(out, color, context.base.drawing.palette);
}
