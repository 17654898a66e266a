// Turns drawing objects into entity records. The only place where an entity's
// type decides which writer it gets.
#pragma once

#include <dwg.h>

#include "encode/json_list.hpp"
#include "entities/entity_context.hpp"
#include "entities/open_record.hpp"

// Appends the object's record without its colour keys and its end, or nothing
// when the object is not written. Types without a writer are counted in the
// context.
void AppendOpenRecord(const RecordSource<EntityContext>& source);

// Appends one complete record, without its colour keys, or nothing when the
// object is not written. Types without a writer are counted in the context;
// findings of the writers go to its warnings. Never fails.
void convertEntity(JsonOut& out, const Dwg_Object& object, const EntityContext& context);

// Converts the object and appends its record with the colour keys to a list, of
// which several runs of calls can fill one.
void AppendEntity(JsonList& list, const Dwg_Object& object, const EntityContext& context);

// Appends the entity and, after a block reference, the attributes it owns, in
// object order.
void AppendEntityWithAttributes(JsonList& list, const Dwg_Object& object,
                                const EntityContext& context);
