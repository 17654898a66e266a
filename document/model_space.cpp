#include "document/model_space.hpp"

#include "entities/convert_entity.hpp"
#include "entities/drawing_access.hpp"

namespace {

void AppendOwned(EntityList& list, Handle owner, EntityContext& context) {
  for (const Dwg_Object* entity : context.tables.OwnedBy(owner)) {
    AppendEntityWithAttributes(list, *entity, context);
  }
}

}  // namespace

void AppendModelSpace(std::string& out, Dwg_Data& dwg, EntityContext& context, bool debug) {
  EntityList list{out, debug};
  Handle block = context.tables.modelSpace;
  if (block == 0) {
    block = HandleOf(dwg_model_space_ref(&dwg));
  }
  if (block != 0) {
    AppendOwned(list, block, context);
  }
  // Old drawings and DXF files leave entities without an owner.
  AppendOwned(list, 0, context);
}
