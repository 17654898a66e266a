#include "complete/blocks.hpp"

#include <string>

#include "complete/block_keys.hpp"
#include "complete/convert_entity.hpp"
#include "document/assets.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/walk_entities.hpp"

namespace {

void AppendBlock(JsonOut& out, const Dwg_Object& object, const Dwg_Object_BLOCK_HEADER& block,
                 const std::string& name, const CompleteContext& context) {
  AppendAssetStart(out, block, name);
  JsonList entities(out, ",\"entities\":[");
  WalkEntities(context.base.tables.OwnedBy(object), [&](const Dwg_Object& entity) {
    if (!IsVariableAttribute(entity)) {
      AppendCompleteEntityWithAttributes(entities, entity, context);
    }
  });
  entities.Close();
  AppendBlockKeys(out, object, block, context);
  out += '}';
}

}  // namespace

void AppendCompleteAssets(JsonOut& out, const CompleteContext& context) {
  JsonList list(out);
  ForEachAsset(context.base, [&](const Dwg_Object& object, const Dwg_Object_BLOCK_HEADER& block,
                                 const std::string& name) {
    list.Item([&] { AppendBlock(out, object, block, name, context); });
  });
  list.Close();
}
