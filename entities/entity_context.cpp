#include "entities/entity_context.hpp"

namespace {

bool inputIsDxf = false;

}  // namespace

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
  const std::string* name = context.tables.layerNames.Find(entity.layer->absolute_ref);
  return name == nullptr ? std::string_view{"0"} : *name;
}

std::string_view FontFamilyOf(Handle style, const LookupTables& tables) {
  if (style == 0) {
    return {};
  }
  const std::string* family = tables.styleFonts.Find(style);
  return family == nullptr ? std::string_view{} : *family;
}
