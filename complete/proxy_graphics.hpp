// The graphics that a drawing stores for entities that only another program knows.
#pragma once

#include <dwg.h>

#include <string_view>

#include "complete/complete_context.hpp"
#include "complete/stored_bytes.hpp"
#include "encode/json_out.hpp"

// The stored graphics of an entity; empty without any.
StoredBytes StoredGraphics(const Dwg_Object_Entity& entity);

// `,"graphics":[...]`: one item for each thing drawn, in its order, with what is set
// when it is drawn and differs from the entity's own: `color`, `layer`, `linetype`,
// `linetypeScale`, `lw`, `thickness`, `filled`. Points are in the world's system, under
// the matrices that PUSH_MATRIX items put on and POP_MATRIX items take off. What is cut
// off, or of no known kind, is left out. Nothing at all when no item is left.
void AppendStoredGraphics(JsonOut& out, StoredBytes bytes, const CompleteContext& context);
