#include "document/assets.hpp"

#include "encode/json_text.hpp"
#include "entities/convert_entity.hpp"
#include "entities/drawing_access.hpp"
#include "entities/insert.hpp"
#include "entities/walk_entities.hpp"

namespace {

constexpr unsigned kConstantAttribute = 0x02;

std::string BlockName(const Dwg_Object& object, const Dwg_Object_BLOCK_HEADER& block,
                      const EntityContext& context) {
  const std::string* name = context.tables.blockNames.Find(object.handle.value);
  return name == nullptr ? std::string(context.Decode(block.name)) : *name;
}

bool IsVariableAttribute(const Dwg_Object& object) {
  if (object.fixedtype != DWG_TYPE_ATTDEF) {
    return false;
  }
  const auto* definition = EntityData(object, &EntityTio::ATTDEF);
  return definition != nullptr && (definition->flags & kConstantAttribute) == 0;
}

void AppendAsset(JsonOut& out, const Dwg_Object& object, const Dwg_Object_BLOCK_HEADER& block,
                 std::string_view name, EntityContext& context, bool debug) {
  AppendQuotedKey(out, "{\"name\":", name);
  if (block.base_pt.x != 0 || block.base_pt.y != 0) {
    AppendNumberKey(out, ",\"baseX\":", block.base_pt.x);
    AppendNumberKey(out, ",\"baseY\":", block.base_pt.y);
  }
  out += ",\"entities\":[";
  EntityList list{out, debug};
  WalkEntities(context.tables.OwnedBy(object), [&](const Dwg_Object& entity) {
    if (!IsVariableAttribute(entity)) {
      AppendEntity(list, entity, context);
    }
  });
  out += "]}";
}

}  // namespace

void AppendAssets(JsonOut& out, EntityContext& context, bool debug) {
  bool first = true;
  for (const Dwg_Object& object : Objects(context.dwg)) {
    const auto* block = TableRecord(object, DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER);
    if (block == nullptr) {
      continue;
    }
    const std::string name = BlockName(object, *block, context);
    if (name.empty() || IsLayoutBlockName(name)) {
      continue;
    }
    if (!first) {
      out += ',';
    }
    first = false;
    AppendAsset(out, object, *block, name, context, debug);
  }
}
