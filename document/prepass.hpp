// The one pass over a drawing's objects that fills the lookup tables.
#pragma once

#include "entities/drawing.hpp"
#include "entities/lookup_tables.hpp"

// Whether entities form groups by the owner that they name, or none: for who groups them
// by owners of its own.
enum class Grouping { kByStoredOwner, kNone };

// Fills every table in object order; a later object replaces an earlier one of
// the same handle. Missing names or data simply leave their entries out. PDF
// files that are not where the drawing says are looked for in its folder. Where no
// block is named as model space the library is asked for it, which may cache the
// answer in its data.
LookupTables BuildLookupTables(const Drawing& drawing,
                               Grouping grouping = Grouping::kByStoredOwner);
