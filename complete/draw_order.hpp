// The order in which the entities of a block are drawn, where it is not the one in which
// they are stored.
#pragma once

#include <dwg.h>

#include <cstdint>
#include <span>
#include <vector>

#include "entities/lookup_tables.hpp"

// The place of each entity among those of its block, from 0; only for blocks whose
// entities are not drawn in their stored order.
class DrawOrder {
 public:
  DrawOrder() = default;
  explicit DrawOrder(std::span<const Dwg_Object> objects) : objects_(objects) {}

  // Null for an entity of a block that is drawn as it is stored.
  const std::uint32_t* Find(const Dwg_Object& object) const;

  // `objects` has to hold the object.
  void Set(const Dwg_Object& object, std::uint32_t place);

 private:
  std::span<const Dwg_Object> objects_;
  std::vector<std::uint32_t> places_;  // of each object, empty until one is set
};

// A table of sort handles decides (an entity that it does not name goes by its own
// handle), else the list that the block itself has, which is that of a DWG: a text has
// its entities in their order. `others` are the objects of the drawing that are no
// entities.
DrawOrder BuildDrawOrder(const Dwg_Data& dwg, std::span<const Dwg_Object* const> others,
                         const EntitiesByOwner& entities, bool isDxf);
