// Records of TEXT and of block attributes and attribute definitions (DYNTEXT).
//
// A height of 0 takes the text style's fixed height. Nothing is filtered by an
// attribute's flags: consumers decide.
#pragma once

#include <dwg.h>

#include <string_view>

#include "entities/entity_context.hpp"

void AppendTextRecord(JsonOut& out, const Dwg_Entity_TEXT& text, std::string_view layer,
                      EntityContext& context);
void AppendAttributeRecord(JsonOut& out, const Dwg_Entity_ATTRIB& attribute, std::string_view layer,
                           EntityContext& context);
void AppendAttributeDefinitionRecord(JsonOut& out, const Dwg_Entity_ATTDEF& definition,
                                     std::string_view layer, EntityContext& context);
