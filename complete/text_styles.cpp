#include "complete/text_styles.hpp"

#include "complete/common_keys.hpp"
#include "complete/table_section.hpp"
#include "encode/json_text.hpp"

namespace {

// Bits of group 70 and of group 71.
constexpr unsigned kShapeFile = 1;
constexpr unsigned kVertical = 4;
constexpr unsigned kBackward = 2;
constexpr unsigned kUpsideDown = 4;

void AppendStyle(JsonOut& out, const Dwg_Object& object, const Dwg_Object_STYLE& style,
                 const CompleteContext& context) {
  AppendQuotedKey(out, "{\"name\":", context.Decode(style.name));
  AppendHandleKey(out, ",\"handle\":", object.handle.value);
  AppendQuotedKey(out, ",\"font\":", context.Decode(style.font_file));
  AppendQuotedKey(out, ",\"bigFont\":", context.Decode(style.bigfont_file));
  AppendNumberKey(out, ",\"height\":", style.text_size);
  AppendNumberKey(out, ",\"lastHeight\":", style.last_height);
  AppendNumberKey(out, ",\"widthFactor\":", style.width_factor);
  AppendNumberKey(out, ",\"obliqueRad\":", style.oblique_angle);
  AppendBoolKey(out, ",\"mirroredX\":", (style.generation & kBackward) != 0);
  AppendBoolKey(out, ",\"mirroredY\":", (style.generation & kUpsideDown) != 0);
  AppendBoolKey(out, ",\"vertical\":", style.is_vertical != 0 || (style.flag & kVertical) != 0);
  AppendBoolKey(out, ",\"shapes\":", style.is_shape != 0 || (style.flag & kShapeFile) != 0);
  out += '}';
}

}  // namespace

void AppendTextStyles(JsonOut& out, const CompleteContext& context) {
  AppendTableSection(out, ",\"textStyles\":[", context.tables.objects.textStyles, &ObjectTio::STYLE,
                     AppendStyle, context);
}
