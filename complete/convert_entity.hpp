// Turns drawing objects into entity records of the complete form. The only place
// where a type chooses what the complete form adds to its record, or has a record
// of its own.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_list.hpp"

// Appends one complete record to a list, or nothing when the object is not written:
// the keys of the plain form in their order, the colour keys, those that all records
// have, those of its type.
void AppendCompleteEntity(JsonList& list, const Dwg_Object& object, const CompleteContext& context);

// Appends the entity and, after a block reference, the attributes it owns, in
// object order.
void AppendCompleteEntityWithAttributes(JsonList& list, const Dwg_Object& object,
                                        const CompleteContext& context);
