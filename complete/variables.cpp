#include "complete/variables.hpp"

#include <string>

#include "entities/color.hpp"

void AppendValue(JsonOut& out, const char* text, const CompleteContext& context) {
  AppendQuoted(out, context.Decode(text));
}

void AppendValue(JsonOut& out, const Dwg_Color& color, const CompleteContext& context) {
  AppendColor(out, color, context.base.drawing.palette);
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
