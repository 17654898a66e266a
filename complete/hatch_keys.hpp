// What the records of HATCH lack: pattern, gradient, islands and exact boundaries.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `pattern`, `gradient` (when it is one), `background` (when it has one), `islandStyle`,
// `associative` (when it is), `boundary`, `seeds`, the keys of the plane, `world`.
void AppendHatchFurtherKeys(JsonOut& out, const Dwg_Entity_HATCH& hatch,
                            const CompleteContext& context, const EntityOrigin& origin);

// The same of an MPOLYGON, which a DXF file has as a kind of hatch, and `fillColor` when
// one is stored.
void AppendMpolygonFurtherKeys(JsonOut& out, const Dwg_Entity_HATCH& polygon,
                               const CompleteContext& context, const EntityOrigin& origin);
