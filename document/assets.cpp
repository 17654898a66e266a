#include "document/assets.hpp"

#include <string>
#include <string_view>

#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/block_names.hpp"
#include "entities/convert_entity.hpp"
#include "entities/drawing_access.hpp"
#include "entities/walk_entities.hpp"

namespace {

constexpr unsigned kConstantAttribute = 0x02;

// Empty for a block without a name.
std::string_view BlockName(const Dwg_Object& object, const LookupTables& tables) {
  const std::string* name = tables.blockNames.Find(object.handle.value);
  return name == nullptr ? std::string_view{} : *name;
}

bool IsVariableAttribute(const Dwg_Object& object) {
  if (object.fixedtype != DWG_TYPE_ATTDEF) {
    return false;
  }
  const auto* definition = EntityData(object, &EntityTio::ATTDEF);
  return definition != nullptr && (definition->flags & kConstantAttribute) == 0;
}

void AppendAsset(JsonOut& out, const Dwg_Object& object, const Dwg_Object_BLOCK_HEADER& block,
                 std::string_view name, const EntityContext& context) {
  AppendQuotedKey(out, "{\"name\":", name);
  if (block.base_pt.x != 0 || block.base_pt.y != 0) {
    AppendNumberKey(out, ",\"baseX\":", block.base_pt.x);
    AppendNumberKey(out, ",\"baseY\":", block.base_pt.y);
  }
  JsonList entities(out, ",\"entities\":[");
  WalkEntities(context.tables.OwnedBy(object), [&](const Dwg_Object& entity) {
    if (!IsVariableAttribute(entity)) {
      AppendEntity(entities, entity, context);
    }
  });
  entities.Close();
  out += '}';
}

}  // namespace

void AppendAssets(JsonOut& out, const EntityContext& context) {
  JsonList list(out);
  for (const Dwg_Object& object : Objects(context.dwg)) {
    const auto* block = TableRecord(object, DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER);
    if (block == nullptr) {
      continue;
    }
    const std::string_view name = BlockName(object, context.tables);
    if (!name.empty() && !IsLayoutBlockName(name)) {
      list.Item([&] { AppendAsset(out, object, *block, name, context); });
    }
  }
  list.Close();
}
