// The document's `layouts` array: the paper-space sheets.
#pragma once

#include "encode/json_out.hpp"
#include "entities/entity_context.hpp"

// Appends a record for every sheet that carries at least one entity, in the
// object order of their blocks. Sizes and margins are in the units that the
// drawing stores. A viewport's clip outline is written inside the viewport only.
void AppendLayouts(JsonOut& out, const EntityContext& context);
