// The bundle that the writers of the complete form receive, built once per drawing.
#pragma once

#include <string_view>

#include "complete/complete_tables.hpp"
#include "entities/entity_context.hpp"

struct CompleteContext {
  // What the writers in entities/ and text/ get; its tables have the owners of
  // CompleteTables.
  const EntityContext& base;
  const CompleteTables& tables;

  const Dwg_Data& dwg() const { return base.dwg(); }
  DecodedText Decode(const char* text) const { return base.Decode(text); }
};
