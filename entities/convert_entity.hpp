// Turns drawing objects into entity records. The only place where entity types
// are told apart.
#pragma once

#include <dwg.h>

#include "entities/entity_context.hpp"

// Appends one complete record, without its colour keys, or nothing when the
// object is not written. Types without a writer are counted in the context;
// findings of the writers go to its warnings. Never fails.
void convertEntity(JsonOut& out, const Dwg_Object& object, EntityContext& context);

// A growing array of finished records. Several runs of calls can fill one.
struct EntityList {
  JsonOut& out;
  bool debugColors = false;
  bool first = true;
};

// Converts the object and appends its record with the colour keys, behind a
// comma unless it is the list's first.
void AppendEntity(EntityList& list, const Dwg_Object& object, EntityContext& context);

// Appends every entity that the given object owns, in object order.
void AppendOwnedEntities(EntityList& list, const Dwg_Object& owner, EntityContext& context);

// Appends the entity and, after a block reference, the attributes it owns.
void AppendEntityWithAttributes(EntityList& list, const Dwg_Object& object, EntityContext& context);
