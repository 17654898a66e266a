// Colours that stand beside an entity's own: of styles, cells, lights.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// As AppendColor, by the colour's method where a drawing of release 2004 or later
// stores one: its index is then only what came closest.
void AppendPropertyColor(JsonOut& out, const Dwg_Color& color, const CompleteContext& context);

// A colour word as drawings store them: the method in the top byte, then a true colour
// or an index.
void AppendColorWord(JsonOut& out, std::uint32_t word, const CompleteContext& context);
