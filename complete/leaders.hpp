// Records of leaders and multileaders, and what those records lack.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// The keys of the plain form with the arrow's size as it is drawn: DIMASZ times
// DIMSCALE, from the leader itself, its dimension style or the drawing.
void AppendSizedLeader(JsonOut& out, const Dwg_Entity_LEADER& leader,
                       const CompleteContext& context, const EntityOrigin& origin);

// `z` (heights of the points), `dimStyle`, `spline`, `annotationType`, `annotation`,
// `hookLine`, `textWidth`, `textHeight`, `xDirection`, `arrowBlock`, `extrusion`.
void AppendLeaderFurtherKeys(JsonOut& out, const Dwg_Entity_LEADER& leader,
                             const CompleteContext& context, const EntityOrigin& origin);

// The keys of the plain form; also for a multileader with content and without lines.
void AppendAnyMultileader(JsonOut& out, const Dwg_Entity_MULTILEADER& multileader,
                          const CompleteContext& context);

// Every leader with its lines, and the content in full; the page of the complete
// document lists the keys.
void AppendMultileaderFurtherKeys(JsonOut& out, const Dwg_Entity_MULTILEADER& multileader,
                                  const CompleteContext& context);
