#include "document/layers.hpp"

#include <cstdint>

#include "encode/color.hpp"
#include "encode/json_text.hpp"
#include "encode/text_decoding.hpp"
#include "entities/drawing_access.hpp"

namespace {

constexpr Rgb kUnknownColor = {128, 128, 128};
constexpr std::int32_t kForeground = 7;

// The colour index that the layer's fields agree on best; 0 when there is none.
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

void AppendLayer(JsonOut& out, const Dwg_Object_LAYER& layer, std::string_view name, bool debug) {
  AppendQuotedKey(out, "{\"name\":", name);
  AppendBoolKey(out, ",\"visible\":", layer.off == 0);
  AppendBoolKey(out, ",\"locked\":", layer.locked != 0);
  out += ",\"color\":";
  AppendRgb(out, LayerColor(layer.color));
  out += "},\"lw\":";
  AppendLineweight(out, layer.linewt);
  if (HasExplicitAlpha(layer.color)) {
    AppendIntKey(out, ",\"alpha\":", AlphaValue(layer.color));
  }
  if (debug) {
    AppendColorDebug(out, layer.color);
  }
  out += '}';
}

}  // namespace

void AppendLayers(JsonOut& out, const Dwg_Data& dwg, bool unicodeText, bool debug) {
  bool first = true;
  for (const Dwg_Object& object : Objects(dwg)) {
    const auto* layer = TableRecord(object, DWG_TYPE_LAYER, &ObjectTio::LAYER);
    if (layer == nullptr) {
      continue;
    }
    const std::string name = DecodeText(unicodeText, layer->name);
    if (name.empty()) {
      continue;
    }
    if (!first) {
      out += ',';
    }
    first = false;
    AppendLayer(out, *layer, name, debug);
  }
}
