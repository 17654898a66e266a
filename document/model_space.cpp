#include "document/model_space.hpp"

#include "entities/convert_entity.hpp"
#include "entities/drawing_access.hpp"
#include "entities/walk_entities.hpp"

namespace {

void AppendOwned(EntityList& list, Handle owner, EntityContext& context) {
  WalkEntities(context.tables.OwnedBy(owner), [&](const Dwg_Object& entity) {
    AppendEntityWithAttributes(list, entity, context);
  });
}

// The library looks for the block through its BLOCK_CONTROL, which it takes to
// have its data.
Handle ModelSpaceByLibrary(Dwg_Data& dwg) {
  for (const Dwg_Object& object : Objects(dwg)) {
    if (object.fixedtype == DWG_TYPE_BLOCK_CONTROL &&
        ObjectData(object, &ObjectTio::BLOCK_CONTROL) == nullptr) {
      return 0;
    }
  }
  return HandleOf(dwg_model_space_ref(&dwg));
}

}  // namespace

void AppendModelSpace(JsonOut& out, Dwg_Data& dwg, EntityContext& context, bool debug) {
  EntityList list{out, debug};
  Handle block = context.tables.modelSpace;
  if (block == 0) {
    block = ModelSpaceByLibrary(dwg);
  }
  if (block != 0) {
    AppendOwned(list, block, context);
  }
  // Old drawings and DXF files leave entities without an owner.
  AppendOwned(list, 0, context);
}
