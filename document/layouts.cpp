#include "document/layouts.hpp"

#include <cstddef>
#include <string>
#include <string_view>

#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/convert_entity.hpp"
#include "entities/drawing_access.hpp"
#include "entities/walk_entities.hpp"

namespace {

const Dwg_Object_LAYOUT* LayoutOf(Handle block, const LookupTables& tables) {
  const auto* const* layout = tables.layoutsByBlock.Find(block);
  return layout == nullptr ? nullptr : *layout;
}

}  // namespace

std::string SheetName(Handle block, const Dwg_Object_LAYOUT* layout, const EntityContext& context) {
  std::string name(layout == nullptr ? std::string_view{} : context.Decode(layout->layout_name));
  if (!name.empty()) {
    return name;
  }
  const std::string* blockName = context.tables.blockNames.Find(block);
  return blockName == nullptr ? "Layout" : *blockName;
}

void AppendPlotSettings(JsonOut& out, const Dwg_Object_LAYOUT& layout) {
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

namespace {

// A block without a handle owns nothing: under 0 are the entities without an
// owner, which stand in model space.
void AppendSheetEntities(JsonList& list, Handle block, const EntityContext& context) {
  if (block == 0) {
    return;
  }
  WalkEntities(context.tables.OwnedBy(block), [&](const Dwg_Object& entity) {
    if (!context.tables.clipBoundaries.contains(entity.handle.value)) {
      AppendEntityWithAttributes(list, entity, context);
    }
  });
}

// Nothing for a sheet without entities.
void AppendSheet(JsonOut& out, Handle block, const EntityContext& context) {
  const std::size_t start = out.size();
  const Dwg_Object_LAYOUT* layout = LayoutOf(block, context.tables);
  AppendQuotedKey(out, "{\"name\":", SheetName(block, layout, context));
  if (layout != nullptr) {
    AppendPlotSettings(out, *layout);
  }
  JsonList entities(out, ",\"entities\":[");
  AppendSheetEntities(entities, block, context);
  if (entities.IsEmpty()) {
    out.Truncate(start);
    return;
  }
  entities.Close();
  out += '}';
}

}  // namespace

void AppendLayouts(JsonOut& out, const EntityContext& context) {
  JsonList list(out);
  for (const Handle block : context.tables.paperSpaces) {
    list.Item([&] { AppendSheet(out, block, context); });
  }
  list.Close();
}
