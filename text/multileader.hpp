// Records of MULTILEADER.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"
#include "entities/entity_context.hpp"

// Every leader line and dogleg as a flat list of coordinates, and the text
// content as HTML. Nothing, not even a text, without any line.
void AppendMultileader(JsonOut& out, const Dwg_Entity_MULTILEADER& multileader,
                       const EntityContext& context);

// What stands behind the lines: `arrowSize`, and `text` when there is any.
void AppendMultileaderContent(JsonOut& out, const Dwg_Entity_MULTILEADER& multileader,
                              const EntityContext& context);
