#include "document/assets.hpp"

#include <string>
#include <string_view>

#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/convert_entity.hpp"
#include "entities/drawing_access.hpp"
#include "entities/walk_entities.hpp"

namespace {

constexpr unsigned kConstantAttribute = 0x02;

}  // namespace

void AppendAssetStart(JsonOut& out, const Dwg_Object_BLOCK_HEADER& block, std::string_view name) {
  AppendQuotedKey(out, "{\"name\":", name);
  if (block.base_pt.x != 0 || block.base_pt.y != 0) {
    AppendNumberKey(out, ",\"baseX\":", block.base_pt.x);
    AppendNumberKey(out, ",\"baseY\":", block.base_pt.y);
  }
}

bool IsVariableAttribute(const Dwg_Object& object) {
  if (object.fixedtype != DWG_TYPE_ATTDEF) {
    return false;
  }
  const auto* definition = EntityData(object, &EntityTio::ATTDEF);
  return definition != nullptr && (definition->flags & kConstantAttribute) == 0;
}

namespace {

void AppendAsset(JsonOut& out, const Dwg_Object& object, const Dwg_Object_BLOCK_HEADER& block,
                 std::string_view name, const EntityContext& context) {
  AppendAssetStart(out, block, name);
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
  ForEachAsset(context, [&](const Dwg_Object& object, const Dwg_Object_BLOCK_HEADER& block,
                            const std::string& name) {
    list.Item([&] { AppendAsset(out, object, block, name, context); });
  });
  list.Close();
}
