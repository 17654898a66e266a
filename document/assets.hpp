// The document's `assets` array: the block definitions.
#pragma once

#include "encode/json_out.hpp"
#include "entities/entity_context.hpp"

// Appends a record for every named block but those of model space and the
// sheets, in object order. Attribute definitions whose value varies from insert
// to insert are left out.
void AppendAssets(JsonOut& out, const EntityContext& context);
