// Records of VIEWPORT: the frames on a sheet that show model space.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"
#include "entities/entity_context.hpp"

// Nothing for the overall viewport, which stands for the sheet itself, and for
// a frame without size. A non-rectangular viewport carries the bare record of
// its clip outline; outlines nest at most eight deep and never in a circle.
void AppendViewport(JsonOut& out, const Dwg_Entity_VIEWPORT& viewport, const EntityContext& context,
                    const EntityOrigin& origin);
