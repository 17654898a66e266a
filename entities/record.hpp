// What all entity records have in common: their start, the keys that an entity
// has whatever its type, and their end. Writers append the keys between.
#pragma once

#include <dwg.h>

#include <string_view>

#include "encode/json_out.hpp"
#include "encode/palette.hpp"

// `{"type":"TYPE","layer":"NAME"`, the name given as its JSON literal.
void BeginRecord(JsonOut& out, std::string_view type, std::string_view quotedLayer);

// `color` and `lw` and, when `verbose`, `_dbg`.
void AppendCommonKeys(JsonOut& out, const Dwg_Object_Entity& entity, bool verbose,
                      const Palette& palette = DefaultPalette());

inline void EndRecord(JsonOut& out) {
  out += '}';
}
