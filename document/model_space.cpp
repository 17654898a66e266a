#include "document/model_space.hpp"

#include "encode/json_list.hpp"
#include "entities/convert_entity.hpp"
#include "entities/walk_entities.hpp"

namespace {

void AppendOwned(JsonList& list, Handle owner, const EntityContext& context) {
  WalkEntities(context.tables.OwnedBy(owner), [&](const Dwg_Object& entity) {
    AppendEntityWithAttributes(list, entity, context);
  });
}

}  // namespace

void AppendModelSpace(JsonOut& out, const EntityContext& context) {
  JsonList list(out);
  if (context.tables.modelSpace != 0) {
    AppendOwned(list, context.tables.modelSpace, context);
  }
  // Old drawings and DXF files leave entities without an owner.
  AppendOwned(list, 0, context);
  list.Close();
}
