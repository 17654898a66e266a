#include "complete/layers.hpp"

#include <string>

#include "complete/common_keys.hpp"
#include "document/layers.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "encode/palette.hpp"
#include "entities/color.hpp"

namespace {

constexpr unsigned kFrozenFlag = 1;
constexpr std::int32_t kForeground = 7;

// A layer without a usable colour is drawn in the foreground's.
Rgb LayerColor(const Dwg_Color& color, const Palette& palette) {
  if (ColorMethod(color) == kMethodTrueColor) {
    return RgbOfWord(color.rgb);
  }
  const std::int32_t index = LayerColorIndex(color);
  return AciToRgb(index == 0 ? kForeground : index, palette);
}

void AppendLayer(JsonOut& out, const LayerEntry& entry, const CompleteContext& context) {
  const Dwg_Object_LAYER& layer = *entry.record;
  out += "{\"name\":";
  out += entry.quoted;
  AppendBoolKey(out, ",\"visible\":", layer.off == 0);
  AppendBoolKey(out, ",\"locked\":", layer.locked != 0);
  out += ",\"color\":";
  AppendRgb(out, LayerColor(layer.color, context.base.drawing.palette));
  out += "},\"lw\":";
  AppendLineweight(out, layer.linewt);
  if (HasExplicitAlpha(layer.color)) {
    AppendIntKey(out, ",\"alpha\":", AlphaValue(layer.color));
  }
  if (context.base.verbose) {
    AppendColorDebug(out, layer.color);
  }
  AppendBoolKey(out, ",\"frozen\":", layer.frozen != 0 || (layer.flag & kFrozenFlag) != 0);
  AppendBoolKey(out, ",\"plotted\":", layer.plotflag != 0);
  if (const std::string* name = context.tables.linetypes.Find(HandleOf(layer.ltype))) {
    out += ",\"linetype\":";
    out += *name;
  }
  out += '}';
}

}  // namespace

void AppendCompleteLayers(JsonOut& out, const CompleteContext& context) {
  JsonList list(out);
  for (const LayerEntry& layer : context.base.tables.layers.All()) {
    if (layer.record != nullptr && !layer.name.empty()) {
      list.Item([&] { AppendLayer(out, layer, context); });
    }
  }
  list.Close();
}
