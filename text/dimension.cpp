#include "text/dimension.hpp"

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

// What ends the record of every kind.
template <typename Dimension>
void AppendTail(JsonOut& out, const Dimension& dimension, const EntityContext& context) {
  AppendNumberKey(out, ",\"measurement\":", dimension.act_measurement);
  AppendQuotedKey(out, ",\"userText\":", context.Decode(dimension.user_text));
  AppendNumberKey(out, ",\"textMidX\":", dimension.text_midpt.x);
  AppendNumberKey(out, ",\"textMidY\":", dimension.text_midpt.y);
  AppendDimStyleKeys(out, dimension.dimstyle, context.tables.dimStyles, context.tables.styleFonts);
  out += '}';
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

void AppendAppearance(JsonOut& out, const DimStyleEntry& style,
                      const HandleMap<std::string>& styleFonts) {
  const std::string* font = style.textStyle == 0 ? nullptr : styleFonts.Find(style.textStyle);
  if (font != nullptr && !font->empty()) {
    AppendQuotedKey(out, ",\"fontFamily\":", *font);
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

void AppendLinearDimensionRecord(JsonOut& out, const Dwg_Entity_DIMENSION_LINEAR& dimension,
                                 std::string_view layer, EntityContext& context) {
  BeginRecord(out, "DIMENSION_LINEAR", layer);
  AppendExtensionLines(out, dimension);
  AppendDefinitionPoint(out, dimension);
  AppendNumberKey(out, ",\"dimRotationRad\":", dimension.dim_rotation);
  AppendTail(out, dimension, context);
}

void AppendAlignedDimensionRecord(JsonOut& out, const Dwg_Entity_DIMENSION_ALIGNED& dimension,
                                  std::string_view layer, EntityContext& context) {
  BeginRecord(out, "DIMENSION_ALIGNED", layer);
  AppendExtensionLines(out, dimension);
  AppendDefinitionPoint(out, dimension);
  AppendTail(out, dimension, context);
}

void AppendRadiusDimensionRecord(JsonOut& out, const Dwg_Entity_DIMENSION_RADIUS& dimension,
                                 std::string_view layer, EntityContext& context) {
  BeginRecord(out, "DIMENSION_RADIUS", layer);
  AppendDefinitionPoint(out, dimension);
  AppendNumberKey(out, ",\"arcX\":", dimension.first_arc_pt.x);
  AppendNumberKey(out, ",\"arcY\":", dimension.first_arc_pt.y);
  AppendNumberKey(out, ",\"leaderLen\":", dimension.leader_len);
  AppendTail(out, dimension, context);
}

void AppendDimStyleKeys(JsonOut& out, const Dwg_Object_Ref* dimStyle,
                        const HandleMap<DimStyleEntry>& dimStyles,
                        const HandleMap<std::string>& styleFonts) {
  const DimStyleEntry* style =
      dimStyle == nullptr ? nullptr : dimStyles.Find(dimStyle->absolute_ref);
  if (style == nullptr) {
    return;
  }
  AppendSizes(out, *style);
  AppendAppearance(out, *style, styleFonts);
  AppendFormat(out, *style);
}
