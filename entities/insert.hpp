// Records of INSERT and MINSERT: references to block definitions.
#pragma once

#include <dwg.h>

#include <string_view>

#include "encode/json_out.hpp"
#include "entities/entity_context.hpp"

// Nothing when the referenced block is unknown, nameless or a layout block.
void AppendInsert(JsonOut& out, const Dwg_Entity_INSERT& insert, const EntityContext& context);

// The first cell of the array. The name of its block, empty when nothing is written.
std::string_view AppendFirstCell(JsonOut& out, const Dwg_Entity_MINSERT& insert,
                                 const EntityContext& context);

// The first cell of the array as a plain INSERT record, with a warning.
void AppendArrayedInsert(JsonOut& out, const Dwg_Entity_MINSERT& insert,
                         const EntityContext& context);
