// The document's `entities` array: what stands in model space.
#pragma once

#include <dwg.h>

#include "entities/entity_context.hpp"

// Appends the entities of the model-space block and then those without an
// owner, each block reference followed by its attributes, without the array's
// brackets. `dwg` is the context's drawing; the library may cache a reference
// in it.
void AppendModelSpace(JsonOut& out, Dwg_Data& dwg, EntityContext& context, bool debug);
