#include "document/layouts.hpp"

#include "encode/json_text.hpp"
#include "entities/convert_entity.hpp"
#include "entities/drawing_access.hpp"

namespace {

const Dwg_Object_LAYOUT* LayoutOf(Handle block, const LookupTables& tables) {
  const auto found = tables.layoutsByBlock.find(block);
  return found == tables.layoutsByBlock.end() ? nullptr : found->second;
}

std::string SheetName(Handle block, const Dwg_Object_LAYOUT* layout, const EntityContext& context) {
  std::string name = layout == nullptr ? std::string{} : context.Decode(layout->layout_name);
  if (!name.empty()) {
    return name;
  }
  const auto found = context.tables.blockNames.find(block);
  return found == context.tables.blockNames.end() ? "Layout" : found->second;
}

std::string SheetEntities(Handle block, EntityContext& context, bool debug) {
  std::string entities;
  EntityList list{entities, debug};
  for (const Dwg_Object* entity : context.tables.OwnedBy(block)) {
    if (!context.tables.clipBoundaries.contains(entity->handle.value)) {
      AppendEntityWithAttributes(list, *entity, context);
    }
  }
  return entities;
}

void AppendPlotSettings(std::string& out, const Dwg_Object_LAYOUT& layout) {
  const Dwg_Object_PLOTSETTINGS& plot = layout.plotsettings;
  AppendIntKey(out, ",\"tabOrder\":", layout.tab_order);
  AppendNumberKey(out, ",\"paperW\":", plot.paper_width);
  AppendNumberKey(out, ",\"paperH\":", plot.paper_height);
  AppendNumberKey(out, ",\"marginL\":", plot.left_margin);
  AppendNumberKey(out, ",\"marginB\":", plot.bottom_margin);
  AppendNumberKey(out, ",\"marginR\":", plot.right_margin);
  AppendNumberKey(out, ",\"marginT\":", plot.top_margin);
  AppendNumberKey(out, ",\"plotOriginX\":", plot.plot_origin.x);
  AppendNumberKey(out, ",\"plotOriginY\":", plot.plot_origin.y);
  AppendIntKey(out, ",\"paperUnit\":", plot.plot_paper_unit);
  AppendIntKey(out, ",\"rotation\":", plot.plot_rotation_mode);
  AppendNumberKey(out, ",\"scaleNum\":", plot.paper_units);
  AppendNumberKey(out, ",\"scaleDen\":", plot.drawing_units);
  AppendNumberKey(out, ",\"limMinX\":", layout.LIMMIN.x);
  AppendNumberKey(out, ",\"limMinY\":", layout.LIMMIN.y);
  AppendNumberKey(out, ",\"limMaxX\":", layout.LIMMAX.x);
  AppendNumberKey(out, ",\"limMaxY\":", layout.LIMMAX.y);
  AppendNumberKey(out, ",\"extMinX\":", layout.EXTMIN.x);
  AppendNumberKey(out, ",\"extMinY\":", layout.EXTMIN.y);
  AppendNumberKey(out, ",\"extMaxX\":", layout.EXTMAX.x);
  AppendNumberKey(out, ",\"extMaxY\":", layout.EXTMAX.y);
}

}  // namespace

void AppendLayouts(std::string& out, EntityContext& context, bool debug) {
  bool first = true;
  for (const Handle block : context.tables.paperSpaces) {
    const std::string entities = SheetEntities(block, context, debug);
    if (entities.empty()) {
      continue;
    }
    if (!first) {
      out += ',';
    }
    first = false;
    const Dwg_Object_LAYOUT* layout = LayoutOf(block, context.tables);
    AppendQuotedKey(out, "{\"name\":", SheetName(block, layout, context));
    if (layout != nullptr) {
      AppendPlotSettings(out, *layout);
    }
    out += ",\"entities\":[";
    out += entities;
    out += "]}";
  }
}
