#include "complete/variables.hpp"

#include <cstdint>
#include <string>

#include "entities/color.hpp"

void AppendValue(JsonOut& out, const char* text, const CompleteContext& context) {
  AppendQuoted(out, context.Decode(text));
}

namespace {

// Colours of tables since release 2004 have a word with a method instead of an index.
Dwg_Color Settled(Dwg_Color color) {
  constexpr std::uint32_t kMethodByLayer = 0xC0;
  constexpr BITCODE_BSd kIndexByLayer = 256;
  constexpr BITCODE_BSd kIndexTrueColor = 257;
  if (color.index != 0) {
    return color;
  }
  switch (ColorMethod(color)) {
    case kMethodByLayer: color.index = kIndexByLayer; break;
    case kMethodTrueColor: color.index = kIndexTrueColor; break;
    case kMethodIndexed: color.index = static_cast<BITCODE_BSd>(color.rgb & 0xFFU); break;
    default: break;
  }
  return color;
}

}  // namespace

void AppendValue(JsonOut& out, const Dwg_Color& color, const CompleteContext& context) {
  AppendColor(out, Settled(color), context.base.drawing.palette);
}

void AppendValue(JsonOut& out, const Dwg_Object_Ref* reference, const CompleteContext& context) {
  const Handle handle = HandleOf(reference);
  if (handle == 0) {
    return;
  }
  const CompleteTables& tables = context.tables;
  for (const auto* names : {&tables.linetypes, &tables.textStyles, &tables.dimensionStyles,
                            &tables.coordinateSystems}) {
    if (const std::string* name = names->Find(handle)) {
      out += *name;
      return;
    }
  }
  if (const std::string* name = context.base.tables.blockNames.Find(handle)) {
    AppendQuoted(out, *name);
  } else if (const LayerEntry* layer = context.base.tables.layers.Find(reference)) {
    out += layer->quoted;
  }
}
