#include "entities/insert.hpp"

#include <string>
#include <string_view>

#include "encode/json_text.hpp"
#include "entities/block_names.hpp"

namespace {

// The name of the referenced block; empty when the reference is not written.
std::string_view ReferencedBlock(const Dwg_Object_Ref* header, const LookupTables& tables) {
  if (header == nullptr) {
    return {};
  }
  const std::string* name = tables.blockNames.Find(header->absolute_ref);
  return name == nullptr || IsLayoutBlockName(*name) ? std::string_view{} : *name;
}

template <typename Insert>
void AppendReference(JsonOut& out, const Insert& insert, std::string_view block) {
  AppendQuotedKey(out, ",\"blockName\":", block);
  AppendNumberKey(out, ",\"x\":", insert.ins_pt.x);
  AppendNumberKey(out, ",\"y\":", insert.ins_pt.y);
  AppendNumberKey(out, ",\"rotationRad\":", insert.rotation);
  AppendNumberKey(out, ",\"scaleX\":", insert.scale.x);
  AppendNumberKey(out, ",\"scaleY\":", insert.scale.y);
  AppendNumberKey(out, ",\"scaleZ\":", insert.scale.z);
}

}  // namespace

void AppendInsert(JsonOut& out, const Dwg_Entity_INSERT& insert, const EntityContext& context) {
  const std::string_view block = ReferencedBlock(insert.block_header, context.tables);
  if (!block.empty()) {
    AppendReference(out, insert, block);
  }
}

std::string_view AppendFirstCell(JsonOut& out, const Dwg_Entity_MINSERT& insert,
                                 const EntityContext& context) {
  const std::string_view block = ReferencedBlock(insert.block_header, context.tables);
  if (!block.empty()) {
    AppendReference(out, insert, block);
  }
  return block;
}

void AppendArrayedInsert(JsonOut& out, const Dwg_Entity_MINSERT& insert,
                         const EntityContext& context) {
  const std::string_view block = AppendFirstCell(out, insert, context);
  if (!block.empty()) {
    context.Warn("MINSERT \"" + std::string(block) +
                 "\" treated as single INSERT (grid not supported)");
  }
}
