#include "complete/text_keys.hpp"

#include <algorithm>
#include <string_view>

#include "complete/common_keys.hpp"
#include "complete/plane_keys.hpp"
#include "complete/text_columns.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/color.hpp"

namespace {

// Bits of group 71.
constexpr unsigned kBackward = 2;
constexpr unsigned kUpsideDown = 4;

void AppendStyle(JsonOut& out, const Dwg_Object_Ref* style, const CompleteContext& context) {
  if (const std::string* name = context.tables.textStyles.Find(HandleOf(style))) {
    out += ",\"textStyle\":";
    out += *name;
  }
}

void AppendFlag(JsonOut& out, std::string_view key, bool isSet) {
  if (isSet) {
    AppendBoolKey(out, key, true);
  }
}

// A drawing leaves out a width factor of 1.
double WidthFactor(double stored) {
  return stored == 0 ? 1 : stored;
}

template <typename Text>
void AppendShape(JsonOut& out, const Text& text, const CompleteContext& context) {
  AppendStyle(out, text.style, context);
  AppendNumberKey(out, ",\"widthFactor\":", WidthFactor(text.width_factor));
  AppendNumberKey(out, ",\"obliqueRad\":", text.oblique_angle);
  AppendFlag(out, ",\"mirroredX\":", (text.generation & kBackward) != 0);
  AppendFlag(out, ",\"mirroredY\":", (text.generation & kUpsideDown) != 0);
}

// LibreDWG has two fields for it, of which its DXF reader sets the one that in a DWG is
// the version of the record.
template <typename Text>
bool IsLocked(const Text& attribute, const CompleteContext& context) {
  const bool isDxf = context.base.drawing.dxfHeader != nullptr;
  return (isDxf ? attribute.is_locked_in_block : attribute.lock_position_flag) != 0;
}

template <typename Text>
void AppendAttributeKeys(JsonOut& out, const Text& attribute, const CompleteContext& context) {
  if (attribute.horiz_alignment != 0 || attribute.vert_alignment != 0) {
    AppendIntKey(out, ",\"halign\":", attribute.horiz_alignment);
    AppendIntKey(out, ",\"valign\":", attribute.vert_alignment);
    AppendNumberKey(out, ",\"ax\":", attribute.alignment_pt.x);
    AppendNumberKey(out, ",\"ay\":", attribute.alignment_pt.y);
  }
  AppendShape(out, attribute, context);
  AppendIntKey(out, ",\"fieldLength\":", attribute.field_length);
  AppendFlag(out, ",\"lockedPosition\":", IsLocked(attribute, context));
  constexpr unsigned kSingleLine = 1;
  AppendFlag(out, ",\"multiline\":", attribute.mtext_type > kSingleLine);
  AppendPlaneKeys(out, attribute.elevation, attribute.thickness, attribute.extrusion);
}

// Bits of group 90.
constexpr unsigned kFillColor = 1;
constexpr unsigned kFillWindow = 2;
constexpr unsigned kFrame = 16;

void AppendBackground(JsonOut& out, const Dwg_Entity_MTEXT& mtext, const CompleteContext& context) {
  const unsigned flags = mtext.bg_fill_flag;
  if ((flags & (kFillColor | kFillWindow | kFrame)) == 0) {
    return;
  }
  const bool isWindow = (flags & kFillWindow) != 0;
  const bool isFilled = isWindow || (flags & kFillColor) != 0;
  out += ",\"background\":{\"fill\":";
  out += !isFilled ? "\"none\"" : isWindow ? "\"window\"" : "\"color\"";
  if (isFilled && !isWindow) {
    out += ",\"color\":";
    AppendColor(out, mtext.bg_fill_color, context.base.drawing.palette);
  }
  AppendNumberKey(out, ",\"scale\":", mtext.bg_fill_scale);
  AppendBoolKey(out, ",\"frame\":", (flags & kFrame) != 0);
  out += '}';
}

void AppendColumns(JsonOut& out, const TextColumns& columns) {
  constexpr unsigned kStatic = 1;
  constexpr unsigned kDynamic = 2;
  if (columns.type != kStatic && columns.type != kDynamic) {
    return;
  }
  out += ",\"columns\":{\"type\":";
  out += columns.type == kStatic ? "\"static\"" : "\"dynamic\"";
  AppendIntKey(out, ",\"count\":", columns.count);
  AppendNumberKey(out, ",\"width\":", columns.width);
  AppendNumberKey(out, ",\"gutter\":", columns.gutter);
  AppendBoolKey(out, ",\"autoHeight\":", columns.hasAutoHeight);
  AppendBoolKey(out, ",\"reversed\":", columns.isReversed);
  if (!columns.heights.empty()) {
    JsonList list(out, ",\"heights\":[");
    for (const double height : columns.heights) {
      list.Number(height);
    }
    list.Close();
  }
  if (!columns.linked.empty()) {
    JsonList list(out, ",\"linked\":[");
    for (const Handle handle : columns.linked) {
      list.Item([&] { AppendHandleKey(out, "", handle); });
    }
    list.Close();
  }
  out += '}';
}

void AppendLength(JsonOut& out, std::string_view key, double length) {
  if (length != 0) {
    AppendNumberKey(out, key, length);
  }
}

}  // namespace

void AppendTextFurtherKeys(JsonOut& out, const Dwg_Entity_TEXT& text,
                           const CompleteContext& context) {
  AppendShape(out, text, context);
  AppendPlaneKeys(out, text.elevation, text.thickness, text.extrusion);
}

void AppendAttributeFurtherKeys(JsonOut& out, const Dwg_Entity_ATTRIB& attribute,
                                const CompleteContext& context) {
  AppendAttributeKeys(out, attribute, context);
}

void AppendAttributeDefinitionFurtherKeys(JsonOut& out, const Dwg_Entity_ATTDEF& definition,
                                          const CompleteContext& context) {
  AppendAttributeKeys(out, definition, context);
}

void AppendMtextFurtherKeys(JsonOut& out, const Dwg_Entity_MTEXT& mtext,
                            const CompleteContext& context, const EntityOrigin& origin) {
  AppendStyle(out, mtext.style, context);
  constexpr unsigned kAtLeast = 1;
  AppendIntKey(out, ",\"lineSpacingStyle\":", std::max<unsigned>(mtext.linespace_style, kAtLeast));
  AppendNumberKey(
      out, ",\"lineSpacingFactor\":", mtext.linespace_factor == 0 ? 1 : mtext.linespace_factor);
  AppendIntKey(out, ",\"flowDirection\":", std::max<unsigned>(mtext.flow_dir, 1));
  AppendLength(out, ",\"extentsWidth\":", mtext.extents_width);
  AppendLength(out, ",\"extentsHeight\":", mtext.extents_height);
  AppendLength(out, ",\"frameHeight\":", mtext.rect_height);
  AppendBackground(out, mtext, context);
  AppendColumns(out, TextColumnsOf(mtext, origin.object, context));
  AppendPlaneKeys(out, mtext.ins_pt.z, 0, mtext.extrusion);
}
