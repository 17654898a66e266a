#include "text/single_line_text.hpp"

#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"
#include "text/text_codes.hpp"

namespace {

double HeightOf(double height, Handle style, const LookupTables& tables) {
  if (height != 0 || style == 0) {
    return height;
  }
  const double* fixedHeight = tables.textStyles.Find(style);
  return fixedHeight == nullptr ? height : *fixedHeight;
}

// A NUL that a code stands for ends the text, and the paragraph with it.
void AppendHtml(JsonOut& out, std::string_view text) {
  out += ",\"html\":\"<p>";
  const bool isWhole = AppendTextCodes(out, text);
  out += isWhole ? "</p>\"" : "\"";
}

// Position, HTML, height and rotation, the keys that all three types share.
template <typename Text>
void AppendPlacedText(JsonOut& out, const Text& text, std::string_view decoded,
                      const LookupTables& tables) {
  AppendNumberKey(out, ",\"x\":", text.ins_pt.x);
  AppendNumberKey(out, ",\"y\":", text.ins_pt.y);
  AppendHtml(out, decoded);
  AppendNumberKey(out, ",\"height\":", HeightOf(text.height, HandleOf(text.style), tables));
  AppendNumberKey(out, ",\"rotationRad\":", text.rotation);
}

void AppendFontFamily(JsonOut& out, const Dwg_Object_Ref* style, const LookupTables& tables) {
  const std::string_view family = FontFamilyOf(HandleOf(style), tables);
  if (!family.empty()) {
    AppendQuotedKey(out, ",\"fontFamily\":", family);
  }
}

void BeginAttribute(JsonOut& out, std::string_view kind, std::string_view layer) {
  BeginRecord(out, "DYNTEXT", layer);
  AppendQuotedKey(out, ",\"kind\":", kind);
}

}  // namespace

void AppendTextRecord(JsonOut& out, const Dwg_Entity_TEXT& text, std::string_view layer,
                      EntityContext& context) {
  BeginRecord(out, "TEXT", layer);
  AppendPlacedText(out, text, context.Decode(text.text_value), context.tables);
  if (text.horiz_alignment != 0 || text.vert_alignment != 0) {
    AppendIntKey(out, ",\"halign\":", text.horiz_alignment);
    AppendIntKey(out, ",\"valign\":", text.vert_alignment);
    AppendNumberKey(out, ",\"ax\":", text.alignment_pt.x);
    AppendNumberKey(out, ",\"ay\":", text.alignment_pt.y);
  }
  AppendFontFamily(out, text.style, context.tables);
  out += '}';
}

void AppendAttributeRecord(JsonOut& out, const Dwg_Entity_ATTRIB& attribute, std::string_view layer,
                           EntityContext& context) {
  BeginAttribute(out, "attrib", layer);
  AppendPlacedText(out, attribute, context.Decode(attribute.text_value), context.tables);
  AppendFontFamily(out, attribute.style, context.tables);
  AppendQuotedKey(out, ",\"tag\":", context.Decode(attribute.tag));
  AppendIntKey(out, ",\"flags\":", attribute.flags);
  out += '}';
}

void AppendAttributeDefinitionRecord(JsonOut& out, const Dwg_Entity_ATTDEF& definition,
                                     std::string_view layer, EntityContext& context) {
  const DecodedText value = context.Decode(definition.default_value);
  const DecodedText prompt = context.Decode(definition.prompt);
  BeginAttribute(out, "attdef", layer);
  AppendPlacedText(out, definition, value, context.tables);
  AppendFontFamily(out, definition.style, context.tables);
  AppendQuotedKey(out, ",\"tag\":", context.Decode(definition.tag));
  if (!prompt.view().empty()) {
    AppendQuotedKey(out, ",\"prompt\":", prompt);
  }
  AppendQuotedKey(out, ",\"defaultValue\":", value);
  AppendIntKey(out, ",\"flags\":", definition.flags);
  out += '}';
}
