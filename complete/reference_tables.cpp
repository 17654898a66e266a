#include "complete/reference_tables.hpp"

#include "complete/attached_data.hpp"

namespace {

// An extension dictionary, a dictionary in it, and one more for representations.
constexpr int kMostDictionaries = 4;

Handle OwnerOfObject(const Dwg_Object& object) {
  if (object.supertype != DWG_SUPERTYPE_OBJECT || object.tio.object == nullptr) {
    return 0;
  }
  return HandleOf(object.tio.object->ownerhandle);
}

// The block reference that owns the object through its extension dictionary; 0 when
// there is none.
Handle OwningReference(const Dwg_Data& dwg, const Dwg_Object& object) {
  Handle owner = OwnerOfObject(object);
  for (int i = 0; i < kMostDictionaries && owner != 0; ++i) {
    const Dwg_Object* found = dwg_resolve_handle_silent(&dwg, owner);
    if (found == nullptr) {
      return 0;
    }
    if (IsInsert(*found)) {
      return owner;
    }
    owner = OwnerOfObject(*found);
  }
  return 0;
}

void AddSource(ReferenceTables& tables, const Dwg_Object& block, Handle application) {
  ForEachAttached(AttachedDataOf(block), application, [&](const Dwg_Eed_Data& value) {
    if (value.code == kAttachedHandle) {
      tables.sourceBlocks[block.handle.value] = value.u.eed_5.entity;
    }
  });
}

void Add(ReferenceTables& tables, const Dwg_Data& dwg, const Dwg_Object& object,
         Handle application) {
  switch (object.fixedtype) {
    case DWG_TYPE_BLOCK_HEADER: return AddSource(tables, object, application);
    case DWG_TYPE_SPATIAL_FILTER:
      if (ObjectData(object, &ObjectTio::SPATIAL_FILTER) != nullptr) {
        if (const Handle reference = OwningReference(dwg, object)) {
          tables.clips[reference] = &object;
        }
      }
      return;
    case DWG_TYPE_BLOCKREPRESENTATION:
      if (const auto* data = ObjectData(object, &ObjectTio::BLOCKREPRESENTATION)) {
        if (const Handle reference = OwningReference(dwg, object)) {
          tables.representedBlocks[reference] = HandleOf(data->block);
        }
      }
      return;
    default: return;
  }
}

}  // namespace

Handle ReferenceTables::DynamicBlockOf(Handle reference, Handle block) const {
  if (const Handle* represented = representedBlocks.Find(reference)) {
    return *represented;
  }
  const Handle* source = sourceBlocks.Find(block);
  return source == nullptr ? 0 : *source;
}

ReferenceTables BuildReferenceTables(const Dwg_Data& dwg,
                                     std::span<const Dwg_Object* const> objects,
                                     Handle blockRepresentationApplication) {
  ReferenceTables tables;
  if (dwg.object_map != nullptr) {
    for (const Dwg_Object* object : objects) {
      Add(tables, dwg, *object, blockRepresentationApplication);
    }
  }
  return tables;
}
