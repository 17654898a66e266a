#include "text/dimension.hpp"

#include <string_view>

#include "encode/json_text.hpp"

namespace {

template <typename Dimension>
void AppendExtensionLines(JsonOut& out, const Dimension& dimension) {
  AppendNumberKey(out, ",\"x1\":", dimension.xline1_pt.x);
  AppendNumberKey(out, ",\"y1\":", dimension.xline1_pt.y);
  AppendNumberKey(out, ",\"x2\":", dimension.xline2_pt.x);
  AppendNumberKey(out, ",\"y2\":", dimension.xline2_pt.y);
}

template <typename Dimension>
void AppendDefinitionPoint(JsonOut& out, const Dimension& dimension) {
  AppendNumberKey(out, ",\"defX\":", dimension.def_pt.x);
  AppendNumberKey(out, ",\"defY\":", dimension.def_pt.y);
}

void AppendSizes(JsonOut& out, const DimStyleEntry& style) {
  const double scale = style.overallScale > 0 ? style.overallScale : 1;
  if (style.textHeight > 0) {
    AppendNumberKey(out, ",\"textHeight\":", style.textHeight * scale);
  }
  if (style.arrowSize > 0) {
    AppendNumberKey(out, ",\"arrowSize\":", style.arrowSize * scale);
  }
}

void AppendAppearance(JsonOut& out, const DimStyleEntry& style, const LookupTables& tables) {
  const std::string_view font = tables.FontFamily(style.textStyle);
  if (!font.empty()) {
    AppendQuotedKey(out, ",\"fontFamily\":", font);
  }
  if (!style.textColor.empty()) {
    out += ",\"textColorRgb\":";
    out += style.textColor;
  }
  if (!style.lineColor.empty()) {
    out += ",\"lineColorRgb\":";
    out += style.lineColor;
  }
}

void AppendFormat(JsonOut& out, const DimStyleEntry& style) {
  if (style.decimalPlaces >= 0) {
    AppendIntKey(out, ",\"dimDec\":", style.decimalPlaces);
  }
  if (style.linearFactor != 1 && style.linearFactor != 0) {
    AppendNumberKey(out, ",\"dimLFac\":", style.linearFactor);
  }
  if (style.rounding > 0) {
    AppendNumberKey(out, ",\"dimRnd\":", style.rounding);
  }
  if (style.zeroSuppression != 0) {
    AppendIntKey(out, ",\"dimZin\":", style.zeroSuppression);
  }
  if (style.linearUnit != 0) {
    AppendIntKey(out, ",\"dimLUnit\":", style.linearUnit);
  }
  if (!style.postfix.empty()) {
    AppendQuotedKey(out, ",\"dimPost\":", style.postfix);
  }
}

}  // namespace

void AppendDimensionStyleKeys(JsonOut& out, const Dwg_Object_Ref* reference,
                              const LookupTables& tables) {
  const DimStyleEntry* style =
      reference == nullptr ? nullptr : tables.dimStyles.Find(reference->absolute_ref);
  if (style == nullptr) {
    return;
  }
  AppendSizes(out, *style);
  AppendAppearance(out, *style, tables);
  AppendFormat(out, *style);
}

void AppendLinearDimension(JsonOut& out, const Dwg_Entity_DIMENSION_LINEAR& dimension,
                           const EntityContext& context) {
  AppendExtensionLines(out, dimension);
  AppendDefinitionPoint(out, dimension);
  AppendNumberKey(out, ",\"dimRotationRad\":", dimension.dim_rotation);
  AppendDimensionTail(out, dimension, context);
}

void AppendAlignedDimension(JsonOut& out, const Dwg_Entity_DIMENSION_ALIGNED& dimension,
                            const EntityContext& context) {
  AppendExtensionLines(out, dimension);
  AppendDefinitionPoint(out, dimension);
  AppendDimensionTail(out, dimension, context);
}

void AppendRadiusDimension(JsonOut& out, const Dwg_Entity_DIMENSION_RADIUS& dimension,
                           const EntityContext& context) {
  AppendDefinitionPoint(out, dimension);
  AppendNumberKey(out, ",\"arcX\":", dimension.first_arc_pt.x);
  AppendNumberKey(out, ",\"arcY\":", dimension.first_arc_pt.y);
  AppendNumberKey(out, ",\"leaderLen\":", dimension.leader_len);
  AppendDimensionTail(out, dimension, context);
}
