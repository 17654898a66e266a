// What the records of block references lack.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `z`, `extrusion`, `dynamicBlock` (the name of the block of which an anonymous block
// shows a state), `attributes`, `clip`; `world` with `position`.
void AppendInsertFurtherKeys(JsonOut& out, const Dwg_Entity_INSERT& insert,
                             const CompleteContext& context, const EntityOrigin& origin);
void AppendArrayedInsertFurtherKeys(JsonOut& out, const Dwg_Entity_MINSERT& insert,
                                    const CompleteContext& context, const EntityOrigin& origin);
