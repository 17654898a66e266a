#include "entities/layer_table.hpp"

#include <utility>

#include "encode/json_text.hpp"

namespace {

std::string Quoted(std::string_view text) {
  JsonOut out;
  AppendQuoted(out, text);
  return out.Text();
}

}  // namespace

LayerEntry::LayerEntry(std::string_view layerName, const Dwg_Object_LAYER* layerRecord)
    : name(layerName), quoted(Quoted(name)), record(layerRecord) {}

void LayerTable::Add(Handle handle, LayerEntry entry) {
  positions_[handle] = static_cast<std::uint32_t>(entries_.size());
  entries_.push_back(std::move(entry));
}

const LayerEntry* LayerTable::Find(const Dwg_Object_Ref* reference) const {
  const std::uint32_t* position =
      reference == nullptr ? nullptr : positions_.Find(reference->absolute_ref);
  return position == nullptr ? nullptr : &entries_[*position];
}

const LayerEntry& LayerTable::Of(const Dwg_Object_Entity& entity) const {
  const LayerEntry* entry = Find(entity.layer);
  return entry == nullptr ? zero_ : *entry;
}
