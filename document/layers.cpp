#include "document/layers.hpp"

#include <cstdint>

#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "encode/palette.hpp"
#include "entities/color.hpp"

namespace {

constexpr Rgb kUnknownColor = {128, 128, 128};
constexpr std::int32_t kForeground = 7;

}  // namespace

std::int32_t LayerColorIndex(const Dwg_Color& color) {
  const auto lowByte = static_cast<std::int32_t>(color.rgb & 0xFFU);
  if (ColorMethod(color) == kMethodIndexed && lowByte != 0) {
    return lowByte;
  }
  if (color.index >= 1 && color.index <= 255) {
    return color.index;
  }
  const bool isBareIndex = (color.rgb & 0x00FFFF00U) == 0;
  return isBareIndex ? lowByte : 0;
}

namespace {

Rgb LayerColor(const Dwg_Color& color) {
  if (ColorMethod(color) == kMethodTrueColor) {
    return RgbOfWord(color.rgb);
  }
  const std::int32_t index = LayerColorIndex(color);
  if (index == 0) {
    return kUnknownColor;
  }
  // Black, not the palette's white: consumers depend on it.
  return index == kForeground ? Rgb{0, 0, 0} : AciToRgb(index);
}

}  // namespace

void BeginLayer(JsonOut& out, const LayerEntry& entry, Rgb color, std::uint8_t lineweight,
                bool verbose) {
  const Dwg_Object_LAYER& layer = *entry.record;
  out += "{\"name\":";
  out += entry.quoted;
  AppendBoolKey(out, ",\"visible\":", layer.off == 0);
  AppendBoolKey(out, ",\"locked\":", layer.locked != 0);
  out += ",\"color\":";
  AppendRgb(out, color);
  out += "},\"lw\":";
  AppendLineweight(out, lineweight);
  if (HasExplicitAlpha(layer.color)) {
    AppendIntKey(out, ",\"alpha\":", AlphaValue(layer.color));
  }
  if (verbose) {
    AppendColorDebug(out, layer.color);
  }
}

void AppendLayers(JsonOut& out, const EntityContext& context) {
  JsonList list(out);
  for (const LayerEntry& layer : context.tables.layers.All()) {
    if (layer.record != nullptr && !layer.name.empty()) {
      list.Item([&] {
        BeginLayer(out, layer, LayerColor(layer.record->color), layer.record->linewt,
                   context.verbose);
        out += '}';
      });
    }
  }
  list.Close();
}
