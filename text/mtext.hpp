// Records of MTEXT.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"
#include "entities/entity_context.hpp"

// The text as HTML and with its codes, the frame width, the nominal height
// (from the text style or the text's own first height code when the entity has
// none), and the runs and paragraph formats that HTML cannot carry. Warns of
// character sets that an old drawing cannot hold and of oblique codes.
void AppendMtext(JsonOut& out, const Dwg_Entity_MTEXT& mtext, const EntityContext& context,
                 const EntityOrigin& origin);
