// Records of MULTILEADER.
#pragma once

#include <dwg.h>

#include <string_view>

#include "entities/entity_context.hpp"

// Every leader line and dogleg as a flat list of coordinates, and the text
// content as HTML. Nothing, not even a text, without any line.
void AppendMultileaderRecord(JsonOut& out, const Dwg_Entity_MULTILEADER& multileader,
                             std::string_view layer, EntityContext& context);
