// The numbers of viewports on their sheets. A DWG does not store them.
#pragma once

#include <dwg.h>

#include <cstdint>
#include <span>

#include "complete/draw_order.hpp"
#include "entities/drawing_access.hpp"
#include "entities/handle_map.hpp"
#include "entities/lookup_tables.hpp"

struct ViewportIds {
  // By the viewport's handle. 1 is the sheet's own; none for viewports that lie on no
  // sheet.
  HandleMap<std::int32_t> ids;

  // The sheet's own viewport by the sheet's block.
  HandleMap<const Dwg_Object*> overall;
};

// `base` with the entities of each sheet, `drawOrder` their places where they differ
// from the stored order. Stored numbers count where a sheet has any. Else the viewport
// that its layout lists first is its own, or without a list the first one drawn, and
// the others follow from 2.
ViewportIds NumberViewports(const LookupTables& base, const DrawOrder& drawOrder);
