// The clip of a block reference, which cuts off what lies outside of a boundary.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// Where a block reference puts its block.
struct BlockPlacement {
  const BITCODE_3DPOINT& position;
  const BITCODE_3DPOINT& scale;
  double rotation;
  const BITCODE_BE& extrusion;
  Handle block;
};

// `clip` with `on`, `inverted` (what lies inside is cut off), `boundary` (the corners
// as stored, group 10), `block` and `world` (the same in the block's system and in the
// world; a rectangle has four corners there), `front` and `back` (distances of clip
// planes, groups 40, 41) where there are any. `filter` has the data of a SPATIAL_FILTER.
void AppendBlockClip(JsonOut& out, const Dwg_Object& filter, const BlockPlacement& placement,
                     const CompleteContext& context);
