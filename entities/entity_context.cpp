#include "entities/entity_context.hpp"

#include "encode/json_text.hpp"
#include "encode/text_decoding.hpp"

namespace {

bool inputIsDxf = false;

// Enough for most records, so that they grow only once.
constexpr std::size_t kTypicalRecordSize = 256;

}  // namespace

std::string EntityContext::Decode(const char* text) const {
  return DecodeText(unicodeText, text);
}

void SetInputIsDxf(bool value) {
  inputIsDxf = value;
}

bool InputIsDxf() {
  return inputIsDxf;
}

std::string_view LayerNameOf(const Dwg_Object_Entity& entity, const EntityContext& context) {
  if (entity.layer == nullptr) {
    return "0";
  }
  const auto found = context.tables.layerNames.find(entity.layer->absolute_ref);
  return found == context.tables.layerNames.end() ? std::string_view{"0"} : found->second;
}

std::string BeginRecord(std::string_view type, std::string_view layer) {
  std::string record;
  record.reserve(kTypicalRecordSize);
  record += "{\"type\":\"";
  record += type;
  record += "\",\"layer\":";
  AppendQuoted(record, layer);
  return record;
}

std::string_view FontFamilyOf(Handle style, const LookupTables& tables) {
  if (style == 0) {
    return {};
  }
  const auto found = tables.styleFonts.find(style);
  return found == tables.styleFonts.end() ? std::string_view{} : found->second;
}
