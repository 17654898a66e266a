// The document's `entities` array: what stands in model space.
#pragma once

#include "encode/json_out.hpp"
#include "entities/entity_context.hpp"

// Appends the entities of the model-space block and then those without an
// owner, each block reference followed by its attributes.
void AppendModelSpace(JsonOut& out, const EntityContext& context);
