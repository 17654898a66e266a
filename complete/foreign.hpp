// Records of entities whose type the library does not read: proxies, and classes of
// other programs.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// The class' names and the stored graphics. Nothing without graphics: then the entity
// counts as left out, under the name of its class.
void AppendProxy(JsonOut& out, const Dwg_Entity_PROXY_ENTITY& proxy, const CompleteContext& context,
                 const EntityOrigin& origin);
void AppendUnknown(JsonOut& out, const Dwg_Object_Entity& entity, const CompleteContext& context,
                   const EntityOrigin& origin);
