#include "entities/insert.hpp"

#include "encode/ascii.hpp"
#include "encode/json_text.hpp"

namespace {

// The name of the referenced block; empty when the reference is not written.
std::string_view ReferencedBlock(const Dwg_Object_Ref* header, const LookupTables& tables) {
  if (header == nullptr) {
    return {};
  }
  const auto found = tables.blockNames.find(header->absolute_ref);
  if (found == tables.blockNames.end() || IsLayoutBlockName(found->second)) {
    return {};
  }
  return found->second;
}

// The DXF reader gives a missing scale the insertion point's coordinate.
double ScaleOf(double scale, double coordinate) {
  return InputIsDxf() && scale == coordinate ? 1.0 : scale;
}

template <typename Insert>
std::string Record(const Insert& insert, std::string_view layer, std::string_view block) {
  std::string out = BeginRecord("INSERT", layer);
  AppendQuotedKey(out, ",\"blockName\":", block);
  AppendNumberKey(out, ",\"x\":", insert.ins_pt.x);
  AppendNumberKey(out, ",\"y\":", insert.ins_pt.y);
  AppendNumberKey(out, ",\"rotationRad\":", insert.rotation);
  AppendNumberKey(out, ",\"scaleX\":", insert.scale.x);
  AppendNumberKey(out, ",\"scaleY\":", ScaleOf(insert.scale.y, insert.ins_pt.y));
  AppendNumberKey(out, ",\"scaleZ\":", ScaleOf(insert.scale.z, insert.ins_pt.z));
  out += '}';
  return out;
}

}  // namespace

bool IsLayoutBlockName(std::string_view name) {
  return StartsWithIgnoringCase(name, "*model_space") ||
         StartsWithIgnoringCase(name, "*paper_space");
}

std::string InsertRecord(const Dwg_Entity_INSERT& insert, std::string_view layer,
                         EntityContext& context) {
  const std::string_view block = ReferencedBlock(insert.block_header, context.tables);
  return block.empty() ? std::string{} : Record(insert, layer, block);
}

std::string ArrayedInsertRecord(const Dwg_Entity_MINSERT& insert, std::string_view layer,
                                EntityContext& context) {
  const std::string_view block = ReferencedBlock(insert.block_header, context.tables);
  if (block.empty()) {
    return {};
  }
  context.warnings.push_back("MINSERT \"" + std::string(block) +
                             "\" treated as single INSERT (grid not supported)");
  return Record(insert, layer, block);
}
