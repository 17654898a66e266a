// Records of linear, aligned and radius dimensions: their points, the measured
// value, the override text and what the dimension style says about drawing
// them. Text height and arrow size are scaled by the style's overall scale (1
// when not positive). The dimension's block is not written.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"
#include "entities/entity_context.hpp"

void AppendLinearDimension(JsonOut& out, const Dwg_Entity_DIMENSION_LINEAR& dimension,
                           const EntityContext& context);
void AppendAlignedDimension(JsonOut& out, const Dwg_Entity_DIMENSION_ALIGNED& dimension,
                            const EntityContext& context);
void AppendRadiusDimension(JsonOut& out, const Dwg_Entity_DIMENSION_RADIUS& dimension,
                           const EntityContext& context);
