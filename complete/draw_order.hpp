// The order in which the entities of a block are drawn, where it is not the one in which
// they are stored.
#pragma once

#include <dwg.h>

#include <cstdint>
#include <span>

#include "entities/handle_map.hpp"
#include "entities/lookup_tables.hpp"

// The place of each entity among those of its block, from 0, by its handle; only for
// blocks whose entities are not drawn in the order of `entities`. A table of sort
// handles decides (an entity that it does not name goes by its own handle), else the
// list that the block itself has, which is that of a DWG: a text has its entities in
// their order. `objects` are those of the drawing that are no entities.
HandleMap<std::uint32_t> BuildDrawOrder(std::span<const Dwg_Object* const> objects,
                                        const EntitiesByOwner& entities, bool isDxf);
