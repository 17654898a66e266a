// Records of the dimensions that the plain form lacks, and what all dimensions have
// besides.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"
#include "text/dimension.hpp"

// What the plain form's dimensions have from `measurement` on. Which points a dimension is
// drawn from is among the further keys.
template <typename Dimension>
void AppendDimension(JsonOut& out, const Dimension& dimension, const CompleteContext& context) {
  AppendDimensionTail(out, dimension, context.base);
}

// Behind the common keys: the points in the world, the value measured, the text
// shown, the style and what the dimension sets otherwise, the block with the drawn
// geometry.
void AppendLinearDimensionFurtherKeys(JsonOut& out, const Dwg_Entity_DIMENSION_LINEAR& dimension,
                                      const CompleteContext& context, const EntityOrigin& origin);
void AppendAlignedDimensionFurtherKeys(JsonOut& out, const Dwg_Entity_DIMENSION_ALIGNED& dimension,
                                       const CompleteContext& context, const EntityOrigin& origin);
void AppendRadiusDimensionFurtherKeys(JsonOut& out, const Dwg_Entity_DIMENSION_RADIUS& dimension,
                                      const CompleteContext& context, const EntityOrigin& origin);
void AppendDiameterDimensionFurtherKeys(JsonOut& out,
                                        const Dwg_Entity_DIMENSION_DIAMETER& dimension,
                                        const CompleteContext& context, const EntityOrigin& origin);
void AppendTwoLineAngularFurtherKeys(JsonOut& out, const Dwg_Entity_DIMENSION_ANG2LN& dimension,
                                     const CompleteContext& context, const EntityOrigin& origin);
void AppendThreePointAngularFurtherKeys(JsonOut& out, const Dwg_Entity_DIMENSION_ANG3PT& dimension,
                                        const CompleteContext& context, const EntityOrigin& origin);
void AppendOrdinateFurtherKeys(JsonOut& out, const Dwg_Entity_DIMENSION_ORDINATE& dimension,
                               const CompleteContext& context, const EntityOrigin& origin);
void AppendArcDimensionFurtherKeys(JsonOut& out, const Dwg_Entity_ARC_DIMENSION& dimension,
                                   const CompleteContext& context, const EntityOrigin& origin);
void AppendJoggedFurtherKeys(JsonOut& out, const Dwg_Entity_LARGE_RADIAL_DIMENSION& dimension,
                             const CompleteContext& context, const EntityOrigin& origin);
