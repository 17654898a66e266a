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

void AppendPropertyColor(JsonOut& out, const Dwg_Color& color, const CompleteContext& context) {
  Dwg_Color shown = color;
  shown.index = IndexOf(color);
  AppendColor(out, shown, context.base.drawing.palette);
}

void AppendColorWord(JsonOut& out, std::uint32_t word, const CompleteContext& context) {
  Dwg_Color color{};
  color.rgb = word;
  color.index = kByLayer;
  AppendPropertyColor(out, color, context);
}
