// Records of linear, aligned and radius dimensions: their points, the measured
// value, the override text and what the dimension style says about drawing
// them. The dimension's block is not written.
#pragma once

#include <dwg.h>

#include <string>
#include <string_view>

#include "entities/entity_context.hpp"

void AppendLinearDimensionRecord(JsonOut& out, const Dwg_Entity_DIMENSION_LINEAR& dimension,
                                 std::string_view layer, EntityContext& context);
void AppendAlignedDimensionRecord(JsonOut& out, const Dwg_Entity_DIMENSION_ALIGNED& dimension,
                                  std::string_view layer, EntityContext& context);
void AppendRadiusDimensionRecord(JsonOut& out, const Dwg_Entity_DIMENSION_RADIUS& dimension,
                                 std::string_view layer, EntityContext& context);

// Appends the keys that the dimension style adds to a record, each with its
// leading comma; nothing when the reference or the style is missing. Text height
// and arrow size are scaled by the style's overall scale (1 when not positive).
void AppendDimStyleKeys(JsonOut& out, const Dwg_Object_Ref* dimStyle,
                        const HandleMap<DimStyleEntry>& dimStyles,
                        const HandleMap<std::string>& styleFonts);
