#include "text/dimension.hpp"

#include "encode/json_text.hpp"

namespace {

template <typename Dimension>
void AppendExtensionLines(std::string& out, const Dimension& dimension) {
  AppendNumberKey(out, ",\"x1\":", dimension.xline1_pt.x);
  AppendNumberKey(out, ",\"y1\":", dimension.xline1_pt.y);
  AppendNumberKey(out, ",\"x2\":", dimension.xline2_pt.x);
  AppendNumberKey(out, ",\"y2\":", dimension.xline2_pt.y);
}

template <typename Dimension>
void AppendDefinitionPoint(std::string& out, const Dimension& dimension) {
  AppendNumberKey(out, ",\"defX\":", dimension.def_pt.x);
  AppendNumberKey(out, ",\"defY\":", dimension.def_pt.y);
}

// What ends the record of every kind.
template <typename Dimension>
void AppendTail(std::string& out, const Dimension& dimension, const EntityContext& context) {
  AppendNumberKey(out, ",\"measurement\":", dimension.act_measurement);
  AppendQuotedKey(out, ",\"userText\":", context.Decode(dimension.user_text));
  AppendNumberKey(out, ",\"textMidX\":", dimension.text_midpt.x);
  AppendNumberKey(out, ",\"textMidY\":", dimension.text_midpt.y);
  out += DimStyleKeys(dimension.dimstyle, context.tables.dimStyles, context.tables.styleFonts);
  out += '}';
}

void AppendSizes(std::string& out, const DimStyleEntry& style) {
  const double scale = style.overallScale > 0 ? style.overallScale : 1;
  if (style.textHeight > 0) {
    AppendNumberKey(out, ",\"textHeight\":", style.textHeight * scale);
  }
  if (style.arrowSize > 0) {
    AppendNumberKey(out, ",\"arrowSize\":", style.arrowSize * scale);
  }
}

void AppendAppearance(std::string& out, const DimStyleEntry& style,
                      const HandleMap<std::string>& styleFonts) {
  const auto font = style.textStyle == 0 ? styleFonts.end() : styleFonts.find(style.textStyle);
  if (font != styleFonts.end() && !font->second.empty()) {
    AppendQuotedKey(out, ",\"fontFamily\":", font->second);
  }
  if (!style.textColor.empty()) {
    out += ",\"textColorRgb\":" + style.textColor;
  }
  if (!style.lineColor.empty()) {
    out += ",\"lineColorRgb\":" + style.lineColor;
  }
}

void AppendFormat(std::string& out, const DimStyleEntry& style) {
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

std::string LinearDimensionRecord(const Dwg_Entity_DIMENSION_LINEAR& dimension,
                                  std::string_view layer, EntityContext& context) {
  std::string out = BeginRecord("DIMENSION_LINEAR", layer);
  AppendExtensionLines(out, dimension);
  AppendDefinitionPoint(out, dimension);
  AppendNumberKey(out, ",\"dimRotationRad\":", dimension.dim_rotation);
  AppendTail(out, dimension, context);
  return out;
}

std::string AlignedDimensionRecord(const Dwg_Entity_DIMENSION_ALIGNED& dimension,
                                   std::string_view layer, EntityContext& context) {
  std::string out = BeginRecord("DIMENSION_ALIGNED", layer);
  AppendExtensionLines(out, dimension);
  AppendDefinitionPoint(out, dimension);
  AppendTail(out, dimension, context);
  return out;
}

std::string RadiusDimensionRecord(const Dwg_Entity_DIMENSION_RADIUS& dimension,
                                  std::string_view layer, EntityContext& context) {
  std::string out = BeginRecord("DIMENSION_RADIUS", layer);
  AppendDefinitionPoint(out, dimension);
  AppendNumberKey(out, ",\"arcX\":", dimension.first_arc_pt.x);
  AppendNumberKey(out, ",\"arcY\":", dimension.first_arc_pt.y);
  AppendNumberKey(out, ",\"leaderLen\":", dimension.leader_len);
  AppendTail(out, dimension, context);
  return out;
}

std::string DimStyleKeys(const Dwg_Object_Ref* dimStyle, const HandleMap<DimStyleEntry>& dimStyles,
                         const HandleMap<std::string>& styleFonts) {
  if (dimStyle == nullptr) {
    return {};
  }
  const auto found = dimStyles.find(dimStyle->absolute_ref);
  if (found == dimStyles.end()) {
    return {};
  }
  std::string out;
  AppendSizes(out, found->second);
  AppendAppearance(out, found->second, styleFonts);
  AppendFormat(out, found->second);
  return out;
}
