// Records of VIEWPORT: the frames on a sheet that show model space.
#pragma once

#include <dwg.h>

#include <string_view>

#include "entities/entity_context.hpp"

// Nothing for the overall viewport, which stands for the sheet itself, and for
// a frame without size. A non-rectangular viewport carries the bare record of
// its clip outline; outlines nest at most eight deep and never in a circle.
void AppendViewportRecord(JsonOut& out, const Dwg_Entity_VIEWPORT& viewport, std::string_view layer,
                          EntityContext& context, const Dwg_Object& object);
