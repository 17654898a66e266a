// Records of viewports, and what those records lack.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// The keys of the plain form, nothing for the sheet's own viewport. Drawings before
// release 2000 keep a viewport's view in extended data: it is taken from there.
void AppendNumberedViewport(JsonOut& out, const Dwg_Entity_VIEWPORT& viewport,
                            const CompleteContext& context, const EntityOrigin& origin);

// `id`, `cz`, `on`, `scale` (paper units for a unit of the drawing), `lens` (focal
// length, millimetres), `perspective`, `locked`, `clipped` (each when it is), `frontZ`,
// `backZ` (when they cut), `renderMode`, `shadePlot`, `ucs`.
void AppendViewportFurtherKeys(JsonOut& out, const Dwg_Entity_VIEWPORT& viewport,
                               const CompleteContext& context, const EntityOrigin& origin);

// `viewport`, the sheet's own: `id` 1, its handle and the part of the sheet that it
// shows. Nothing for a sheet without.
void AppendSheetViewport(JsonOut& out, Handle sheet, const CompleteContext& context);
