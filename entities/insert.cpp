#include "entities/insert.hpp"

#include "encode/ascii.hpp"
#include "encode/json_text.hpp"

namespace {

// The name of the referenced block; empty when the reference is not written.
std::string_view ReferencedBlock(const Dwg_Object_Ref* header, const LookupTables& tables) {
  if (header == nullptr) {
    return {};
  }
  const std::string* name = tables.blockNames.Find(header->absolute_ref);
  return name == nullptr || IsLayoutBlockName(*name) ? std::string_view{} : *name;
}

// The DXF reader gives a missing scale the insertion point's coordinate.
double ScaleOf(double scale, double coordinate) {
  return InputIsDxf() && scale == coordinate ? 1.0 : scale;
}

template <typename Insert>
void AppendRecord(JsonOut& out, const Insert& insert, std::string_view layer,
                  std::string_view block) {
  BeginRecord(out, "INSERT", layer);
  AppendQuotedKey(out, ",\"blockName\":", block);
  AppendNumberKey(out, ",\"x\":", insert.ins_pt.x);
  AppendNumberKey(out, ",\"y\":", insert.ins_pt.y);
  AppendNumberKey(out, ",\"rotationRad\":", insert.rotation);
  AppendNumberKey(out, ",\"scaleX\":", insert.scale.x);
  AppendNumberKey(out, ",\"scaleY\":", ScaleOf(insert.scale.y, insert.ins_pt.y));
  AppendNumberKey(out, ",\"scaleZ\":", ScaleOf(insert.scale.z, insert.ins_pt.z));
  out += '}';
}

}  // namespace

bool IsLayoutBlockName(std::string_view name) {
  return StartsWithIgnoringCase(name, "*model_space") ||
         StartsWithIgnoringCase(name, "*paper_space");
}

void AppendInsertRecord(JsonOut& out, const Dwg_Entity_INSERT& insert, std::string_view layer,
                        EntityContext& context) {
  const std::string_view block = ReferencedBlock(insert.block_header, context.tables);
  if (!block.empty()) {
    AppendRecord(out, insert, layer, block);
  }
}

void AppendArrayedInsertRecord(JsonOut& out, const Dwg_Entity_MINSERT& insert,
                               std::string_view layer, EntityContext& context) {
  const std::string_view block = ReferencedBlock(insert.block_header, context.tables);
  if (block.empty()) {
    return;
  }
  context.warnings.push_back("MINSERT \"" + std::string(block) +
                             "\" treated as single INSERT (grid not supported)");
  AppendRecord(out, insert, layer, block);
}
