// The document's `layers` array.
#pragma once

#include <dwg.h>

#include <cstdint>

#include "encode/json_out.hpp"
#include "encode/palette.hpp"
#include "entities/entity_context.hpp"

// Appends a record for every named layer, in object order. A layer's colour is
// always red, green and blue, never a tag, by a rule of its own that differs
// from the entities'; its frozen flag is not looked at.
void AppendLayers(JsonOut& out, const EntityContext& context);

// The colour index that the layer's fields agree on best; 0 when there is none.
std::int32_t LayerColorIndex(const Dwg_Color& color);

// Appends the keys that a layer's record begins with in either form, drawn in that colour
// and of that lineweight. The entry has a record.
void BeginLayer(JsonOut& out, const LayerEntry& entry, Rgb color, std::uint8_t lineweight,
                bool verbose);
