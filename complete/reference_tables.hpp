// What drawings keep about block references outside of them: clips, and the blocks
// that anonymous ones were made from.
#pragma once

#include <dwg.h>

#include <span>

#include "entities/drawing_access.hpp"
#include "entities/handle_map.hpp"
#include "entities/lookup_tables.hpp"

struct ReferenceTables {
  // By the handle of the reference.
  HandleMap<const Dwg_Object*> clips;  // SPATIAL_FILTER objects with data
  HandleMap<Handle> representedBlocks;

  // The dynamic block of which an anonymous block shows one state.
  HandleMap<Handle> sourceBlocks;

  // The dynamic block that a reference shows a state of; 0 for any other.
  Handle DynamicBlockOf(Handle reference, Handle block) const;
};

// `objects` are those of the drawing that are no entities.
ReferenceTables BuildReferenceTables(const Dwg_Data& dwg,
                                     std::span<const Dwg_Object* const> objects,
                                     Handle blockRepresentationApplication);
