#include "complete/complete_tables.hpp"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "encode/ascii.hpp"
#include "encode/json_text.hpp"
#include "entities/block_names.hpp"
#include "entities/walk_entities.hpp"

namespace {

// What an entity without an owner is marked with.
constexpr unsigned kInPaperSpace = 1;
constexpr unsigned kInModelSpace = 2;

std::string Quoted(std::string_view text) {
  JsonOut out;
  AppendQuoted(out, text);
  return out.Text();
}

// The two table records that stand for what the layer or the block has.
std::string LinetypeLiteral(std::string_view name) {
  const std::string lower = LowerAscii(name);
  if (lower == "bylayer") {
    return "\"L\"";
  }
  return lower == "byblock" ? "\"K\"" : Quoted(name);
}

template <typename Record>
void AddName(HandleMap<std::string>& names, Handle handle, const Record* record,
             const Drawing& drawing, std::string (*literal)(std::string_view) = Quoted) {
  if (record != nullptr && record->name != nullptr) {
    names[handle] = literal(drawing.Decode(record->name));
  }
}

// A group's name stands in the dictionary that holds it.
void AddGroupNames(CompleteTables& tables, const Dwg_Object_DICTIONARY* dictionary,
                   const Drawing& drawing) {
  if (drawing.data.object_map == nullptr || dictionary == nullptr || dictionary->texts == nullptr ||
      dictionary->itemhandles == nullptr) {
    return;
  }
  for (std::size_t i = 0; i < dictionary->numitems; ++i) {
    const Handle handle = HandleOf(dictionary->itemhandles[i]);
    const Dwg_Object* item =
        handle == 0 ? nullptr : dwg_resolve_handle_silent(&drawing.data, handle);
    if (item != nullptr && item->fixedtype == DWG_TYPE_GROUP) {
      tables.groups[handle] = Quoted(drawing.Decode(dictionary->texts[i]));
    }
  }
}

// Those that the pre-pass takes.
void AddLayer(SectionObjects& objects, const Dwg_Object& object, const Dwg_Object_LAYER* layer) {
  if (layer != nullptr && layer->name != nullptr) {
    objects.layers.push_back(&object);
  }
}

void AddObject(CompleteTables& tables, const Dwg_Object& object, const Drawing& drawing) {
  const Handle handle = object.handle.value;
  SectionObjects& objects = tables.objects;
  switch (object.fixedtype) {
    case DWG_TYPE_LAYER: return AddLayer(objects, object, ObjectData(object, &ObjectTio::LAYER));
    case DWG_TYPE_LTYPE:
      objects.linetypes.push_back(&object);
      return AddName(tables.linetypes, handle, ObjectData(object, &ObjectTio::LTYPE), drawing,
                     LinetypeLiteral);
    case DWG_TYPE_STYLE:
      objects.textStyles.push_back(&object);
      return AddName(tables.textStyles, handle, ObjectData(object, &ObjectTio::STYLE), drawing);
    case DWG_TYPE_DIMSTYLE:
      objects.dimensionStyles.push_back(&object);
      return AddName(tables.dimensionStyles, handle, ObjectData(object, &ObjectTio::DIMSTYLE),
                     drawing);
    case DWG_TYPE_UCS:
      objects.coordinateSystems.push_back(&object);
      return AddName(tables.coordinateSystems, handle, ObjectData(object, &ObjectTio::UCS),
                     drawing);
    case DWG_TYPE_VIEW:
      objects.views.push_back(&object);
      return AddName(tables.views, handle, ObjectData(object, &ObjectTio::VIEW), drawing);
    case DWG_TYPE_GROUP: return objects.groups.push_back(&object);
    case DWG_TYPE_DICTIONARY:
      return AddGroupNames(tables, ObjectData(object, &ObjectTio::DICTIONARY), drawing);
    default: return;
  }
}

// The application of that name, 0 when the drawing names none.
Handle Application(const Drawing& drawing, std::span<const Dwg_Object* const> objects,
                   std::string_view name) {
  for (const Dwg_Object* object : objects) {
    if (object->fixedtype != DWG_TYPE_APPID) {
      continue;
    }
    const auto* application = ObjectData(*object, &ObjectTio::APPID);
    if (application != nullptr && application->name != nullptr &&
        drawing.Decode(application->name).view() == name) {
      return object->handle.value;
    }
  }
  return 0;
}

// The header's own reference; else the sheet whose block has the bare name.
Handle ActiveSheet(const Drawing& drawing, const LookupTables& base) {
  const auto& sheets = base.paperSpaces;
  const Handle named = HandleOf(drawing.data.header_vars.BLOCK_RECORD_PSPACE);
  if (std::find(sheets.begin(), sheets.end(), named) != sheets.end()) {
    return named;
  }
  const auto active = std::find_if(sheets.begin(), sheets.end(), [&](Handle sheet) {
    const std::string* name = base.blockNames.Find(sheet);
    return name != nullptr && *name == kPaperSpaceName;
  });
  return active == sheets.end() ? 0 : *active;
}

const Dwg_Object* Resolved(Handle handle, const Dwg_Data& dwg) {
  return handle == 0 || dwg.object_map == nullptr ? nullptr
                                                  : dwg_resolve_handle_silent(&dwg, handle);
}

// A layout that does not tell its block is told by the block.
void AddLayoutsOfBlocks(LookupTables& base, const Dwg_Data& dwg) {
  for (const Handle sheet : base.paperSpaces) {
    const Dwg_Object* object = Resolved(sheet, dwg);
    const auto* block = object == nullptr ? nullptr : ObjectData(*object, &ObjectTio::BLOCK_HEADER);
    if (block == nullptr || object->fixedtype != DWG_TYPE_BLOCK_HEADER ||
        base.layoutsByBlock.Find(sheet) != nullptr) {
      continue;
    }
    const Dwg_Object* layout = Resolved(HandleOf(block->layout), dwg);
    if (layout != nullptr && layout->fixedtype == DWG_TYPE_LAYOUT &&
        ObjectData(*layout, &ObjectTio::LAYOUT) != nullptr) {
      base.layoutsByBlock[sheet] = ObjectData(*layout, &ObjectTio::LAYOUT);
    }
  }
}

}  // namespace

Handle CompleteTables::OwnerOf(const Dwg_Object_Entity& entity, Handle modelSpace) const {
  if (entity.ownerhandle != nullptr) {
    return HandleOf(entity.ownerhandle);
  }
  if (entity.entmode == kInPaperSpace) {
    return activeSheet;
  }
  return entity.entmode == kInModelSpace ? modelSpace : 0;
}

CompleteTables BuildCompleteTables(const Drawing& drawing, LookupTables& base) {
  CompleteTables tables;
  tables.activeSheet = ActiveSheet(drawing, base);
  tables.isDxf = (drawing.data.opts & DWG_OPTS_INDXF) != 0;
  tables.holdsLineweights = drawing.data.header.from_version >= R_2000b;
  AddLayoutsOfBlocks(base, drawing.data);
  EntitiesByOwner byOwner;
  // Few beside the entities, so that they are gone through again below.
  std::vector<const Dwg_Object*> others;
  const auto objects = Objects(drawing.data);
  byOwner.Reserve(objects.size());
  for (std::size_t i = 0; i < objects.size(); ++i) {
    PrefetchOwner(objects, i);
    const Dwg_Object& object = objects[i];
    const Dwg_Object_Entity* entity = EntityOf(object);
    if (entity == nullptr) {
      AddObject(tables, object, drawing);
      others.push_back(&object);
    } else if (IsPolylinePart(object)) {
      tables.polylineParts.Add(HandleOf(entity->ownerhandle), object);
    } else {
      byOwner.Add(tables.OwnerOf(*entity, base.modelSpace), object);
    }
  }
  byOwner.Finish();
  tables.polylineParts.Finish();
  tables.acadApplication = Application(drawing, others, "ACAD");
  tables.layerApplication = Application(drawing, others, "AcAecLayerStandard");
  tables.hatchBackgroundApplication = Application(drawing, others, "HATCHBACKGROUNDCOLOR");
  tables.drawOrder = BuildDrawOrder(drawing.data, others, byOwner, tables.isDxf);
  tables.references =
      BuildReferenceTables(drawing.data, others, Application(drawing, others, "AcDbBlockRepBTag"));
  base.entitiesByOwner = std::move(byOwner);
  tables.viewportIds = NumberViewports(base, tables.drawOrder);
  return tables;
}
