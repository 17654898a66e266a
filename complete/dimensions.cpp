#include "complete/dimensions.hpp"

#include <string>
#include <string_view>
#include <vector>

#include "complete/common_keys.hpp"
#include "complete/dimension_format.hpp"
#include "complete/dimension_measure.hpp"
#include "complete/lookup.hpp"
#include "complete/measured_text.hpp"
#include "complete/plane_keys.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "text/mtext_to_html.hpp"

namespace {

// Bits of group 70.
constexpr unsigned kUserPositionedText = 128;

void AppendWorldPoint(JsonOut& out, std::string_view key, const BITCODE_3BD& point) {
  AppendPointKey(out, key, point.x, point.y, point.z);
}

void AppendLine(JsonOut& out, std::string_view key, const BITCODE_3BD& start,
                const BITCODE_3BD& end) {
  JsonList line(out, key);
  line.Point(start.x, start.y, start.z);
  line.Point(end.x, end.y, end.z);
  line.Close();
}

template <typename Dimension>
void AppendText(JsonOut& out, const Dimension& dimension, double measured, Measure measure,
                const DimensionFormat& format, const CompleteContext& context) {
  const std::string measuredText = MeasuredText(measured, measure, format);
  const std::string written = ShownText(context.Decode(dimension.user_text), measuredText);
  std::string room;
  const std::string_view text = context.base.drawing.Shown(written, room);
  AppendQuotedKey(out, ",\"measuredText\":", measuredText);
  AppendQuotedKey(out, ",\"text\":", text);
  out += ",\"html\":\"";
  MtextLayout layout;
  AppendMtextHtml(out, text, format.textHeight, layout, context.base.drawing.palette);
  out += '"';
}

// A DWG stores the opposite in a field of its own.
template <typename Dimension>
bool IsPlacedByUser(const Dimension& dimension) {
  return dimension.flag1 != 0 ? (dimension.flag1 & 1U) == 0
                              : (dimension.flag & kUserPositionedText) != 0;
}

template <typename Dimension>
void AppendPlacing(JsonOut& out, const Dimension& dimension) {
  AppendIntKey(out, ",\"attachment\":", dimension.attachment);
  AppendNumberKey(out, ",\"textRotationRad\":", dimension.text_rotation);
  AppendBoolKey(out, ",\"textIsPlacedByUser\":", IsPlacedByUser(dimension));
  if (dimension.horiz_dir != 0) {
    AppendNumberKey(out, ",\"horizontalDirectionRad\":", dimension.horiz_dir);
  }
  if (dimension.flip_arrow1 != 0) {
    out += ",\"flipArrow1\":true";
  }
  if (dimension.flip_arrow2 != 0) {
    out += ",\"flipArrow2\":true";
  }
}

template <typename Dimension>
void AppendStyle(JsonOut& out, const Dimension& dimension,
                 const std::vector<DimensionOverride>& overrides, const CompleteContext& context) {
  if (const std::string* name = context.tables.dimensionStyles.Find(HandleOf(dimension.dimstyle))) {
    out += ",\"dimensionStyle\":";
    out += *name;
  }
  AppendDimensionOverrides(out, overrides);
  if (const std::string* block = BlockName(dimension.block, context)) {
    AppendQuotedKey(out, ",\"blockName\":", *block);
  }
}

// What some programs store instead of a value.
constexpr double kNotMeasured = -1;

// What follows the points. Drawings of before release 2000 do not store the value.
template <typename Dimension>
void AppendRest(JsonOut& out, const Dimension& dimension, Measure measure,
                const CompleteContext& context, const EntityOrigin& origin) {
  const double stored = dimension.act_measurement;
  const double measured = stored == 0 || stored == kNotMeasured ? MeasureOf(dimension) : stored;
  const auto overrides = DimensionOverrides(*origin.object.tio.entity, context);
  const auto* style =
      ReferencedObject(dimension.dimstyle, DWG_TYPE_DIMSTYLE, &ObjectTio::DIMSTYLE, context);
  const DimensionFormat format = FormatOf(style, overrides, context);
  AppendNumberKey(out, ",\"measured\":", measured);
  AppendText(out, dimension, measured, measure, format, context);
  if (measure == Measure::kArcLength) {
    AppendIntKey(out, ",\"arcSymbol\":", format.arcSymbol);
  }
  AppendPlacing(out, dimension);
  AppendStyle(out, dimension, overrides, context);
  AppendPlaneKeys(out, dimension.elevation, 0, dimension.extrusion);
}

}  // namespace

void AppendLinearDimensionFurtherKeys(JsonOut& out, const Dwg_Entity_DIMENSION_LINEAR& dimension,
                                      const CompleteContext& context, const EntityOrigin& origin) {
  AppendWorldPoint(out, ",\"definitionPoint\":", dimension.def_pt);
  AppendWorldPoint(out, ",\"extensionPoint1\":", dimension.xline1_pt);
  AppendWorldPoint(out, ",\"extensionPoint2\":", dimension.xline2_pt);
  if (dimension.oblique_angle != 0) {
    AppendNumberKey(out, ",\"obliqueRad\":", dimension.oblique_angle);
  }
  AppendRest(out, dimension, Measure::kLength, context, origin);
}

void AppendAlignedDimensionFurtherKeys(JsonOut& out, const Dwg_Entity_DIMENSION_ALIGNED& dimension,
                                       const CompleteContext& context, const EntityOrigin& origin) {
  AppendWorldPoint(out, ",\"definitionPoint\":", dimension.def_pt);
  AppendWorldPoint(out, ",\"extensionPoint1\":", dimension.xline1_pt);
  AppendWorldPoint(out, ",\"extensionPoint2\":", dimension.xline2_pt);
  if (dimension.oblique_angle != 0) {
    AppendNumberKey(out, ",\"obliqueRad\":", dimension.oblique_angle);
  }
  AppendRest(out, dimension, Measure::kLength, context, origin);
}

void AppendRadiusDimensionFurtherKeys(JsonOut& out, const Dwg_Entity_DIMENSION_RADIUS& dimension,
                                      const CompleteContext& context, const EntityOrigin& origin) {
  AppendWorldPoint(out, ",\"center\":", dimension.def_pt);
  AppendWorldPoint(out, ",\"curvePoint\":", dimension.first_arc_pt);
  AppendRest(out, dimension, Measure::kRadius, context, origin);
}

void AppendDiameterDimensionFurtherKeys(JsonOut& out,
                                        const Dwg_Entity_DIMENSION_DIAMETER& dimension,
                                        const CompleteContext& context,
                                        const EntityOrigin& origin) {
  AppendWorldPoint(out, ",\"curvePoint\":", dimension.first_arc_pt);
  AppendWorldPoint(out, ",\"farCurvePoint\":", dimension.def_pt);
  AppendNumberKey(out, ",\"leaderLen\":", dimension.leader_len);
  AppendRest(out, dimension, Measure::kDiameter, context, origin);
}

void AppendTwoLineAngularFurtherKeys(JsonOut& out, const Dwg_Entity_DIMENSION_ANG2LN& dimension,
                                     const CompleteContext& context, const EntityOrigin& origin) {
  AppendLine(out, ",\"line1\":[", dimension.xline1start_pt, dimension.xline1end_pt);
  AppendLine(out, ",\"line2\":[", dimension.xline2start_pt, dimension.def_pt);
  AppendWorldPoint(out, ",\"arcPoint\":", dimension.xline2end_pt);
  AppendRest(out, dimension, Measure::kAngle, context, origin);
}

void AppendThreePointAngularFurtherKeys(JsonOut& out, const Dwg_Entity_DIMENSION_ANG3PT& dimension,
                                        const CompleteContext& context,
                                        const EntityOrigin& origin) {
  AppendWorldPoint(out, ",\"center\":", dimension.center_pt);
  AppendWorldPoint(out, ",\"extensionPoint1\":", dimension.xline1_pt);
  AppendWorldPoint(out, ",\"extensionPoint2\":", dimension.xline2_pt);
  AppendWorldPoint(out, ",\"arcPoint\":", dimension.def_pt);
  AppendRest(out, dimension, Measure::kAngle, context, origin);
}

void AppendOrdinateFurtherKeys(JsonOut& out, const Dwg_Entity_DIMENSION_ORDINATE& dimension,
                               const CompleteContext& context, const EntityOrigin& origin) {
  AppendWorldPoint(out, ",\"origin\":", dimension.def_pt);
  AppendWorldPoint(out, ",\"featurePoint\":", dimension.feature_location_pt);
  AppendWorldPoint(out, ",\"leaderEnd\":", dimension.leader_endpt);
  AppendQuotedKey(out, ",\"axis\":", MeasuresX(dimension) ? "x" : "y");
  AppendRest(out, dimension, Measure::kLength, context, origin);
}

void AppendArcDimensionFurtherKeys(JsonOut& out, const Dwg_Entity_ARC_DIMENSION& dimension,
                                   const CompleteContext& context, const EntityOrigin& origin) {
  AppendWorldPoint(out, ",\"center\":", dimension.center_pt);
  AppendWorldPoint(out, ",\"extensionPoint1\":", dimension.xline1_pt);
  AppendWorldPoint(out, ",\"extensionPoint2\":", dimension.xline2_pt);
  AppendWorldPoint(out, ",\"arcPoint\":", dimension.def_pt);
  AppendBoolKey(out, ",\"isPartial\":", dimension.is_partial != 0);
  AppendNumberKey(out, ",\"startAngleRad\":", dimension.arc_start_param);
  AppendNumberKey(out, ",\"endAngleRad\":", dimension.arc_end_param);
  if (dimension.has_leader != 0) {
    AppendLine(out, ",\"leader\":[", dimension.leader1_pt, dimension.leader2_pt);
  }
  AppendRest(out, dimension, Measure::kArcLength, context, origin);
}

void AppendJoggedFurtherKeys(JsonOut& out, const Dwg_Entity_LARGE_RADIAL_DIMENSION& dimension,
                             const CompleteContext& context, const EntityOrigin& origin) {
  AppendWorldPoint(out, ",\"center\":", dimension.def_pt);
  AppendWorldPoint(out, ",\"curvePoint\":", dimension.chord_pt);
  AppendWorldPoint(out, ",\"overrideCenter\":", dimension.ovr_center);
  AppendWorldPoint(out, ",\"jogPoint\":", dimension.jog_pt);
  AppendNumberKey(out, ",\"jogAngleRad\":", dimension.jog_angle);
  AppendRest(out, dimension, Measure::kRadius, context, origin);
}
