// Records of linear, aligned and radius dimensions: their points, the measured
// value, the override text and what the dimension style says about drawing
// them. Text height and arrow size are scaled by the style's overall scale (1
// when not positive). The dimension's block is not written.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"
#include "encode/json_text.hpp"
#include "entities/entity_context.hpp"

void AppendLinearDimension(JsonOut& out, const Dwg_Entity_DIMENSION_LINEAR& dimension,
                           const EntityContext& context);
void AppendAlignedDimension(JsonOut& out, const Dwg_Entity_DIMENSION_ALIGNED& dimension,
                            const EntityContext& context);
void AppendRadiusDimension(JsonOut& out, const Dwg_Entity_DIMENSION_RADIUS& dimension,
                           const EntityContext& context);

// The keys that a dimension style adds; none when it is missing.
void AppendDimensionStyleKeys(JsonOut& out, const Dwg_Object_Ref* reference,
                              const LookupTables& tables);

// What ends the record of every kind of dimension.
template <typename Dimension>
void AppendDimensionTail(JsonOut& out, const Dimension& dimension, const EntityContext& context) {
  AppendNumberKey(out, ",\"measurement\":", dimension.act_measurement);
  AppendQuotedKey(out, ",\"userText\":", context.Decode(dimension.user_text));
  AppendNumberKey(out, ",\"textMidX\":", dimension.text_midpt.x);
  AppendNumberKey(out, ",\"textMidY\":", dimension.text_midpt.y);
  AppendDimensionStyleKeys(out, dimension.dimstyle, context.tables);
}
