#include "complete/leaders.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "complete/attached_data.hpp"
#include "complete/common_keys.hpp"
#include "complete/lookup.hpp"
#include "complete/plane_keys.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/color.hpp"
#include "entities/drawing_access.hpp"
#include "text/leader.hpp"
#include "text/multileader.hpp"

namespace {

// Texts leave out variables that have their default.
constexpr double kDefaultArrowSize = 0.18;

constexpr std::int32_t kGroupScale = 40;
constexpr std::int32_t kGroupArrowSize = 41;
constexpr std::int32_t kGroupLeaderArrow = 341;

// The dimension variables that draw a leader's arrow.
struct ArrowVariables {
  double size = 0;
  double scale = 1;
  Handle block = 0;

  // A scale of 0 is one that follows the sheet.
  double drawnSize() const { return size * (scale == 0 ? 1 : scale); }
};

ArrowVariables ArrowOf(const Dwg_Entity_LEADER& leader, const CompleteContext& context,
                       const EntityOrigin& origin) {
  const Dwg_Header_Variables& vars = context.dwg().header_vars;
  ArrowVariables arrow{vars.DIMASZ, vars.DIMSCALE, HandleOf(vars.DIMLDRBLK)};
  if (const auto* style =
          ReferencedObject(leader.dimstyle, DWG_TYPE_DIMSTYLE, &ObjectTio::DIMSTYLE, context)) {
    arrow = {style->DIMASZ, style->DIMSCALE, HandleOf(style->DIMLDRBLK)};
  }
  if (arrow.size == 0 && context.tables.isDxf) {
    arrow.size = kDefaultArrowSize;
  }
  ForEachOverride(AttachedDataOf(origin.object),
                  [&](std::int32_t group, const Dwg_Eed_Data& value) {
                    if (group == kGroupScale && value.code == kAttachedReal) {
                      arrow.scale = value.u.eed_40.real;
                    } else if (group == kGroupArrowSize && value.code == kAttachedReal) {
                      arrow.size = value.u.eed_40.real;
                    } else if (group == kGroupLeaderArrow && value.code == kAttachedHandle) {
                      arrow.block = value.u.eed_5.entity;
                    }
                  });
  return arrow;
}

void AppendBlockName(JsonOut& out, std::string_view key, Handle block,
                     const CompleteContext& context) {
  if (const std::string* name = context.base.tables.blockNames.Find(block)) {
    AppendQuotedKey(out, key, *name);
  }
}

void AppendHeights(JsonOut& out, std::span<const BITCODE_3DPOINT> points) {
  if (std::all_of(points.begin(), points.end(), [](const auto& point) { return point.z == 0; })) {
    return;
  }
  JsonList heights(out, ",\"z\":[");
  for (const BITCODE_3DPOINT& point : points) {
    heights.Number(point.z);
  }
  heights.Close();
}

void AppendDirection(JsonOut& out, std::string_view key, const BITCODE_3BD& direction) {
  AppendPointKey(out, key, direction.x, direction.y, direction.z);
}

// LibreDWG reads what follows the points of a leader wrongly from a DWG of 2010 and
// later: it leaves out a point that stands before the size of the annotation.
bool HasAnnotationBox(const CompleteContext& context) {
  return context.tables.isDxf || context.dwg().header.from_version < R_2010b;
}

// A text leaves out an arrow that there is, and says by the bit before it whether it
// names the arrow at all.
bool HasArrow(const Dwg_Entity_LEADER& leader, const CompleteContext& context) {
  return leader.arrowhead_on != 0 || (context.tables.isDxf && leader.unknown_bit_1 == 0);
}

// Texts leave out that there is no annotation, which then looks like one of the first kind.
unsigned AnnotationTypeOf(const Dwg_Entity_LEADER& leader, const CompleteContext& context) {
  constexpr unsigned kNone = 3;
  const bool isLeftOut =
      context.tables.isDxf && leader.annot_type == 0 && HandleOf(leader.associated_annotation) == 0;
  return isLeftOut ? kNone : leader.annot_type;
}

// Texts leave out the x axis.
void AppendXDirection(JsonOut& out, const BITCODE_3BD& direction) {
  const bool isMissing = direction.x == 0 && direction.y == 0 && direction.z == 0;
  AppendDirection(out, ",\"xDirection\":", isMissing ? BITCODE_3BD{1, 0, 0} : direction);
}

}  // namespace

void AppendSizedLeader(JsonOut& out, const Dwg_Entity_LEADER& leader,
                       const CompleteContext& context, const EntityOrigin& origin) {
  Dwg_Entity_LEADER sized = leader;
  sized.dimasz = ArrowOf(leader, context, origin).drawnSize();
  sized.arrowhead_on = HasArrow(leader, context) ? 1 : 0;
  AppendLeader(out, sized);
}

void AppendLeaderFurtherKeys(JsonOut& out, const Dwg_Entity_LEADER& leader,
                             const CompleteContext& context, const EntityOrigin& origin) {
  AppendHeights(out, SpanOf(leader.points, leader.num_points));
  if (const std::string* style = context.tables.dimensionStyles.Find(HandleOf(leader.dimstyle))) {
    out += ",\"dimStyle\":";
    out += *style;
  }
  AppendTrueKey(out, ",\"spline\":", leader.path_type == 1);
  AppendIntKey(out, ",\"annotationType\":", AnnotationTypeOf(leader, context));
  AppendHandleKey(out, ",\"annotation\":", HandleOf(leader.associated_annotation));
  if (HasAnnotationBox(context)) {
    AppendBoolKey(out, ",\"hookLine\":", leader.hookline_on != 0);
    AppendNonZeroKey(out, ",\"textHeight\":", leader.box_height);
    AppendNonZeroKey(out, ",\"textWidth\":", leader.box_width);
  }
  AppendXDirection(out, leader.x_direction);
  AppendBlockName(out, ",\"arrowBlock\":", ArrowOf(leader, context, origin).block, context);
  AppendPlaneKeys(out, 0, 0, leader.extrusion);
}

namespace {

// What a leader line has of its own.
constexpr unsigned kOwnType = 1;
constexpr unsigned kOwnColor = 2;
constexpr unsigned kOwnLinetype = 4;
constexpr unsigned kOwnLineweight = 8;
constexpr unsigned kOwnArrowSize = 16;
constexpr unsigned kOwnArrow = 32;

// Hundredths of a millimetre; below 0 stand layer, block and default.
void AppendWidth(JsonOut& out, std::string_view key, std::int32_t lineweight) {
  // Texts have 16 bits, which the reader does not extend.
  if (static_cast<std::int16_t>(lineweight) < 0) {
    out += key;
    out += "\"L\"";
  } else {
    AppendIntKey(out, key, lineweight);
  }
}

// A text's lines have the code of the width instead.
void AppendLineWidth(JsonOut& out, const Dwg_LEADER_Line& line, const CompleteContext& context) {
  if (context.tables.isDxf) {
    out += ",\"lw\":";
    AppendLineweight(out, static_cast<std::uint8_t>(line.linewt));
  } else {
    AppendWidth(out, ",\"lw\":", line.linewt);
  }
}

void AppendLinetypeName(JsonOut& out, std::string_view key, Handle linetype,
                        const CompleteContext& context) {
  if (const std::string* name = context.tables.linetypes.Find(linetype)) {
    out += key;
    out += *name;
  }
}

void AppendBreaks(JsonOut& out, std::span<const Dwg_LEADER_Break> breaks) {
  if (breaks.empty()) {
    return;
  }
  JsonList list(out, ",\"breaks\":[");
  for (const Dwg_LEADER_Break& gap : breaks) {
    list.Item([&] {
      JsonList ends(out);
      ends.Point(gap.start.x, gap.start.y, gap.start.z);
      ends.Point(gap.end.x, gap.end.y, gap.end.z);
      ends.Close();
    });
  }
  list.Close();
}

void AppendOwnLook(JsonOut& out, const Dwg_LEADER_Line& line, const CompleteContext& context) {
  if ((line.flags & kOwnType) != 0) {
    AppendIntKey(out, ",\"leaderType\":", line.type);
  }
  if ((line.flags & kOwnColor) != 0) {
    AppendWordColor(out, ",\"color\":", line.color, context);
  }
  if ((line.flags & kOwnLinetype) != 0) {
    AppendLinetypeName(out, ",\"linetype\":", HandleOf(line.ltype), context);
  }
  if ((line.flags & kOwnLineweight) != 0) {
    AppendLineWidth(out, line, context);
  }
  if ((line.flags & kOwnArrowSize) != 0) {
    AppendNumberKey(out, ",\"arrowSize\":", line.arrow_size);
  }
  if ((line.flags & kOwnArrow) != 0) {
    AppendBlockName(out, ",\"arrowBlock\":", HandleOf(line.arrow_handle), context);
  }
}

void AppendLeaderLine(JsonOut& out, const Dwg_LEADER_Line& line, const CompleteContext& context) {
  AppendIntKey(out, "{\"index\":", line.line_index);
  JsonList points(out, ",\"points\":[");
  for (const BITCODE_3DPOINT& point : SpanOf(line.points, line.num_points)) {
    points.Point(point.x, point.y, point.z);
  }
  points.Close();
  AppendBreaks(out, SpanOf(line.breaks, line.num_breaks));
  AppendOwnLook(out, line, context);
  out += '}';
}

void AppendLeaderNode(JsonOut& out, const Dwg_LEADER_Node& node, const CompleteContext& context) {
  AppendIntKey(out, "{\"index\":", node.branch_index);
  if (node.has_lastleaderlinepoint != 0) {
    AppendDirection(out, ",\"landing\":", node.lastleaderlinepoint);
  }
  if (node.has_dogleg != 0) {
    AppendDirection(out, ",\"doglegDirection\":", node.dogleg_vector);
    AppendNumberKey(out, ",\"doglegLength\":", node.dogleg_length);
  }
  AppendBreaks(out, SpanOf(node.breaks, node.num_breaks));
  JsonList lines(out, ",\"lines\":[");
  for (const Dwg_LEADER_Line& line : SpanOf(node.lines, node.num_lines)) {
    lines.Item([&] { AppendLeaderLine(out, line, context); });
  }
  lines.Close();
  out += '}';
}

void AppendTextContent(JsonOut& out, const Dwg_MLEADER_Content_MText& text,
                       const CompleteContext& context) {
  AppendDirection(out, ",\"textContent\":{\"position\":", text.location);
  AppendDirection(out, ",\"direction\":", text.direction);
  AppendDirection(out, ",\"normal\":", text.normal);
  if (const std::string* style = context.tables.textStyles.Find(HandleOf(text.style))) {
    out += ",\"textStyle\":";
    out += *style;
  }
  AppendWordColor(out, ",\"color\":", text.color, context);
  AppendNumberKey(out, ",\"width\":", text.width);
  AppendIntKey(out, ",\"attachment\":", text.alignment);
  AppendIntKey(out, ",\"flow\":", text.flow);
  AppendNumberKey(out, ",\"lineSpacing\":", text.line_spacing_factor);
  AppendIntKey(out, ",\"lineSpacingStyle\":", text.line_spacing_style);
  if (text.is_bg_fill != 0) {
    AppendWordColor(out, ",\"background\":{\"color\":", text.bg_color, context);
    AppendBoolKey(out, ",\"ofDrawing\":", text.is_bg_mask_fill != 0);
    AppendNumberKey(out, ",\"scale\":", text.bg_scale);
    out += '}';
  }
  out += '}';
}

void AppendLabels(JsonOut& out, const Dwg_Entity_MULTILEADER& multileader,
                  const CompleteContext& context) {
  JsonList labels(out, ",\"attributes\":[");
  for (const Dwg_LEADER_BlockLabel& label :
       SpanOf(multileader.blocklabels, multileader.num_blocklabels)) {
    labels.Item([&] {
      AppendQuotedKey(out, "{\"text\":", context.Decode(label.label_text));
      AppendHandleKey(out, ",\"definition\":", HandleOf(label.attdef));
      AppendNumberKey(out, ",\"width\":", label.width);
      out += '}';
    });
  }
  labels.Close();
}

void AppendBlockContent(JsonOut& out, const Dwg_Entity_MULTILEADER& multileader,
                        const CompleteContext& context) {
  const Dwg_MLEADER_Content_Block& block = multileader.ctx.content.blk;
  AppendDirection(out, ",\"block\":{\"position\":", block.location);
  AppendBlockName(out, ",\"blockName\":", HandleOf(block.block_table), context);
  AppendDirection(out, ",\"scale\":", block.scale);
  AppendNumberKey(out, ",\"rotationRad\":", block.rotation);
  AppendDirection(out, ",\"normal\":", block.normal);
  AppendWordColor(out, ",\"color\":", block.color, context);
  AppendLabels(out, multileader, context);
  out += '}';
}

}  // namespace

void AppendAnyMultileader(JsonOut& out, const Dwg_Entity_MULTILEADER& multileader,
                          const CompleteContext& context) {
  const std::size_t start = out.size();
  AppendMultileader(out, multileader, context.base);
  const Dwg_MLEADER_AnnotContext& annotation = multileader.ctx;
  const bool hasContent = annotation.has_content_txt != 0 || annotation.has_content_blk != 0;
  if (out.size() == start && hasContent) {
    out += ",\"lines\":[]";
    AppendMultileaderContent(out, multileader, context.base);
  }
}

void AppendMultileaderFurtherKeys(JsonOut& out, const Dwg_Entity_MULTILEADER& multileader,
                                  const CompleteContext& context) {
  const Dwg_MLEADER_AnnotContext& annotation = multileader.ctx;
  AppendIntKey(out, ",\"leaderType\":", multileader.type);
  AppendWordColor(out, ",\"leaderColor\":", multileader.line_color, context);
  AppendLinetypeName(out, ",\"leaderLinetype\":", HandleOf(multileader.line_ltype), context);
  AppendWidth(out, ",\"leaderLw\":", multileader.line_linewt);
  AppendBlockName(out, ",\"arrowBlock\":", HandleOf(multileader.arrow_handle), context);
  AppendBoolKey(out, ",\"hasLanding\":", multileader.has_landing != 0);
  AppendBoolKey(out, ",\"hasDogleg\":", multileader.has_dogleg != 0);
  AppendNumberKey(out, ",\"landingGap\":", annotation.landing_gap);
  AppendNumberKey(out, ",\"scale\":", annotation.scale_factor);
  AppendIntKey(out, ",\"contentType\":", multileader.style_content);
  AppendBoolKey(out, ",\"textFrame\":", multileader.has_text_frame != 0);
  AppendIntKey(out, ",\"attachmentLeft\":", annotation.text_left);
  AppendIntKey(out, ",\"attachmentRight\":", annotation.text_right);
  AppendIntKey(out, ",\"textAlignment\":", annotation.text_alignment);
  JsonList leaders(out, ",\"leaders\":[");
  for (const Dwg_LEADER_Node& node : SpanOf(annotation.leaders, annotation.num_leaders)) {
    leaders.Item([&] { AppendLeaderNode(out, node, context); });
  }
  leaders.Close();
  if (annotation.has_content_txt != 0) {
    AppendTextContent(out, annotation.content.txt, context);
  } else if (annotation.has_content_blk != 0) {
    AppendBlockContent(out, multileader, context);
  }
}
