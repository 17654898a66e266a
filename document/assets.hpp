// The document's `assets` array: the block definitions.
#pragma once

#include <dwg.h>

#include <string>
#include <string_view>

#include "encode/json_out.hpp"
#include "entities/block_names.hpp"
#include "entities/drawing_access.hpp"
#include "entities/entity_context.hpp"

// Appends a record for every named block but those of model space and the
// sheets, in object order. Attribute definitions whose value varies from insert
// to insert are left out.
void AppendAssets(JsonOut& out, const EntityContext& context);

// Begins such a record: its brace, `name` and the base point.
void AppendAssetStart(JsonOut& out, const Dwg_Object_BLOCK_HEADER& block, std::string_view name);

// Whether the object is an attribute definition of that kind.
bool IsVariableAttribute(const Dwg_Object& object);

// Calls `each` with every block that has a record: its object, data and name.
template <typename Each>
void ForEachAsset(const EntityContext& context, Each each) {
  for (const Dwg_Object& object : Objects(context.dwg())) {
    const auto* block = TableRecord(object, DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER);
    const std::string* name =
        block == nullptr ? nullptr : context.tables.blockNames.Find(object.handle.value);
    if (name != nullptr && !name->empty() && !IsLayoutBlockName(*name)) {
      each(object, *block, *name);
    }
  }
}
