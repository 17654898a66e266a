// Records of TEXT and of block attributes and attribute definitions (DYNTEXT).
//
// A height of 0 takes the text style's fixed height. Nothing is filtered by an
// attribute's flags: consumers decide.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"
#include "entities/entity_context.hpp"

void AppendText(JsonOut& out, const Dwg_Entity_TEXT& text, const EntityContext& context);
void AppendAttribute(JsonOut& out, const Dwg_Entity_ATTRIB& attribute,
                     const EntityContext& context);
void AppendAttributeDefinition(JsonOut& out, const Dwg_Entity_ATTDEF& definition,
                               const EntityContext& context);
