#include "complete/spaces.hpp"

#include "complete/common_keys.hpp"
#include "complete/convert_entity.hpp"
#include "complete/sheet_keys.hpp"
#include "complete/viewports.hpp"
#include "document/layouts.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/walk_entities.hpp"

namespace {

void AppendOwned(JsonList& list, Handle owner, const CompleteContext& context) {
  WalkEntities(context.base.tables.OwnedBy(owner), [&](const Dwg_Object& entity) {
    AppendCompleteEntityWithAttributes(list, entity, context);
  });
}

// A clip outline of a viewport is written inside the viewport only.
void AppendSheetEntities(JsonList& list, Handle block, const CompleteContext& context) {
  if (block == 0) {
    return;
  }
  WalkEntities(context.base.tables.OwnedBy(block), [&](const Dwg_Object& entity) {
    if (!context.base.tables.clipBoundaries.contains(entity.handle.value)) {
      AppendCompleteEntityWithAttributes(list, entity, context);
    }
  });
}

void AppendSheet(JsonOut& out, Handle block, const CompleteContext& context) {
  const auto* const* found = context.base.tables.layoutsByBlock.Find(block);
  const Dwg_Object_LAYOUT* layout = found == nullptr ? nullptr : *found;
  AppendQuotedKey(out, "{\"name\":", SheetName(block, layout, context.base));
  if (layout != nullptr) {
    AppendPlotSettings(out, *layout);
  }
  JsonList entities(out, ",\"entities\":[");
  AppendSheetEntities(entities, block, context);
  entities.Close();
  AppendHandleKey(out, ",\"block\":", block);
  AppendBoolKey(out, ",\"active\":", block == context.tables.activeSheet);
  if (layout != nullptr) {
    AppendSheetKeys(out, *layout, context);
  }
  AppendSheetViewport(out, block, context);
  out += '}';
}

}  // namespace

void AppendCompleteModelSpace(JsonOut& out, const CompleteContext& context) {
  JsonList list(out);
  if (context.base.tables.modelSpace != 0) {
    AppendOwned(list, context.base.tables.modelSpace, context);
  }
  // Old drawings and DXF files leave entities without an owner.
  AppendOwned(list, 0, context);
  list.Close();
}

void AppendCompleteLayouts(JsonOut& out, const CompleteContext& context) {
  JsonList list(out);
  for (const Handle block : context.base.tables.paperSpaces) {
    list.Item([&] { AppendSheet(out, block, context); });
  }
  list.Close();
}
