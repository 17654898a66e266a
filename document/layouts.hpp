// The document's `layouts` array: the paper-space sheets.
#pragma once

#include <dwg.h>

#include <string>

#include "encode/json_out.hpp"
#include "entities/drawing_access.hpp"
#include "entities/entity_context.hpp"

// Appends a record for every sheet that carries at least one entity, in the
// object order of their blocks. Sizes and margins are in the units that the
// drawing stores. A viewport's clip outline is written inside the viewport only.
void AppendLayouts(JsonOut& out, const EntityContext& context);

// The parts of such a record: what a sheet is called, and the keys of its plot
// settings.
std::string SheetName(Handle block, const Dwg_Object_LAYOUT* layout, const EntityContext& context);
void AppendPlotSettings(JsonOut& out, const Dwg_Object_LAYOUT& layout);
