#include "complete/extended_data.hpp"

namespace {

std::span<const Dwg_Eed> AllOf(const Dwg_Object& object) {
  if (IsEntity(object)) {
    const Dwg_Object_Entity* entity = object.tio.entity;
    return entity == nullptr ? std::span<const Dwg_Eed>{}
                             : SpanOf<Dwg_Eed>(entity->eed, entity->num_eed);
  }
  const Dwg_Object_Object* data = object.tio.object;
  return object.supertype != DWG_SUPERTYPE_OBJECT || data == nullptr
             ? std::span<const Dwg_Eed>{}
             : SpanOf<Dwg_Eed>(data->eed, data->num_eed);
}

// The first item of an application has its handle.
bool Begins(const Dwg_Eed& item) {
  return item.handle.value != 0;
}

}  // namespace

std::span<const Dwg_Eed> ExtendedDataOf(const Dwg_Object& object, Handle application) {
  const auto all = AllOf(object);
  std::size_t begin = 0;
  while (begin < all.size() && (application == 0 || all[begin].handle.value != application)) {
    ++begin;
  }
  std::size_t end = begin;
  while (end < all.size() &&
         (end == begin || !Begins(all[end]) || all[end].handle.value == application)) {
    ++end;
  }
  return all.subspan(begin, end - begin);
}

std::string ExtendedText(const Dwg_Eed& item, const CompleteContext& context) {
  const bool isWide = context.base.drawing.textForm == TextForm::kUtf16;
  if (item.data == nullptr || item.data->code != 0 || (item.data->u.eed_0.is_tu != 0) != isWide) {
    return {};
  }
  // LibreDWG ends the text with zeros.
  return context.Decode(item.data->u.eed_0.string).Take();
}
