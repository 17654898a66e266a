// The drawing's layers, whose names are decoded and quoted once for all records.
#pragma once

#include <dwg.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "entities/drawing_access.hpp"
#include "entities/handle_map.hpp"

struct LayerEntry {
  explicit LayerEntry(std::string_view layerName, const Dwg_Object_LAYER* layerRecord = nullptr);

  std::string name;
  std::string quoted;              // as a JSON literal
  const Dwg_Object_LAYER* record;  // null for one that is only referred to
};

class LayerTable {
 public:
  // Adds a layer behind those before it and for its handle in their place.
  void Add(Handle handle, LayerEntry entry);

  // In object order.
  const std::vector<LayerEntry>& All() const { return entries_; }

  // Null when no layer has the handle of the reference, or there is none.
  const LayerEntry* Find(const Dwg_Object_Ref* reference) const;

  // The layer of an entity: "0" when it has none or an unknown one.
  const LayerEntry& Of(const Dwg_Object_Entity& entity) const;

 private:
  std::vector<LayerEntry> entries_;
  HandleMap<std::uint32_t> positions_;
  LayerEntry zero_{"0"};
};
