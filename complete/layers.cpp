#include "complete/layers.hpp"

#include <string>
#include <string_view>
#include <utility>

#include "complete/attached_data.hpp"
#include "complete/common_keys.hpp"
#include "document/layers.hpp"
#include "encode/ascii.hpp"
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

// The layer of the points that dimensions are defined by never is.
bool IsPlotted(const LayerEntry& entry, const Dwg_Data& dwg) {
  return LowerAscii(entry.name) != "defpoints" &&
         (dwg.header.version < R_2000b || entry.record->plotflag != 0);
}

// The second text that a program for building design attaches to layers.
void AppendDescription(JsonOut& out, const Dwg_Object& object, const CompleteContext& context) {
  std::string description;
  const auto take = [&](const Dwg_Eed_Data& value) {
    std::string text = AttachedText(value, context.base.drawing);
    if (!text.empty()) {
      description = std::move(text);
    }
  };
  ForEachAttached(AttachedDataOf(object), context.tables.layerApplication, take);
  if (!description.empty()) {
    AppendQuotedKey(out, ",\"description\":", description);
  }
}

void AppendLayer(JsonOut& out, const LayerEntry& entry, const Dwg_Object& object,
                 const CompleteContext& context) {
  const Dwg_Object_LAYER& layer = *entry.record;
  BeginLayer(out, entry, LayerColor(layer.color, context.base.drawing.palette),
             context.tables.holdsLineweights ? layer.linewt : kInheritedLineweight,
             context.base.verbose);
  AppendBoolKey(out, ",\"frozen\":", layer.frozen != 0 || (layer.flag & kFrozenFlag) != 0);
  AppendBoolKey(out, ",\"plotted\":", IsPlotted(entry, context.dwg()));
  const std::string* linetype = context.tables.linetypes.Find(HandleOf(layer.ltype));
  out += ",\"linetype\":";
  out += linetype == nullptr ? std::string_view("\"Continuous\"") : std::string_view(*linetype);
  AppendHandleKey(out, ",\"handle\":", object.handle.value);
  AppendDescription(out, object, context);
  out += '}';
}

}  // namespace

void AppendCompleteLayers(JsonOut& out, const CompleteContext& context) {
  JsonList list(out);
  const auto& layers = context.base.tables.layers.All();
  const auto& objects = context.tables.objects.layers;
  for (std::size_t i = 0; i < layers.size() && i < objects.size(); ++i) {
    if (layers[i].record != nullptr && !layers[i].name.empty()) {
      list.Item([&] { AppendLayer(out, layers[i], *objects[i], context); });
    }
  }
  list.Close();
}
