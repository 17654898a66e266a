// Records of INSERT and MINSERT: references to block definitions.
#pragma once

#include <dwg.h>

#include <string_view>

#include "entities/entity_context.hpp"

// Whether the name belongs to model space or to a sheet, whose blocks are
// neither assets nor referenced.
bool IsLayoutBlockName(std::string_view name);

// Nothing when the referenced block is unknown, nameless or a layout block.
void AppendInsertRecord(JsonOut& out, const Dwg_Entity_INSERT& insert, std::string_view layer,
                        EntityContext& context);

// The first cell of the array as a plain INSERT record, with a warning.
void AppendArrayedInsertRecord(JsonOut& out, const Dwg_Entity_MINSERT& insert,
                               std::string_view layer, EntityContext& context);
