#include "text/single_line_text.hpp"

#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"
#include "text/text_codes.hpp"

namespace {

double HeightOf(double height, Handle style, const LookupTables& tables) {
  const double* fixedHeight = height == 0 ? tables.FixedTextHeight(style) : nullptr;
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
  const std::string_view family = tables.FontFamily(HandleOf(style));
  if (!family.empty()) {
    AppendQuotedKey(out, ",\"fontFamily\":", family);
  }
}

}  // namespace

void AppendText(JsonOut& out, const Dwg_Entity_TEXT& text, const EntityContext& context) {
  AppendPlacedText(out, text, context.Decode(text.text_value), context.tables);
  if (text.horiz_alignment != 0 || text.vert_alignment != 0) {
    AppendIntKey(out, ",\"halign\":", text.horiz_alignment);
    AppendIntKey(out, ",\"valign\":", text.vert_alignment);
    AppendNumberKey(out, ",\"ax\":", text.alignment_pt.x);
    AppendNumberKey(out, ",\"ay\":", text.alignment_pt.y);
  }
  AppendFontFamily(out, text.style, context.tables);
}

void AppendAttribute(JsonOut& out, const Dwg_Entity_ATTRIB& attribute,
                     const EntityContext& context) {
  out += ",\"kind\":\"attrib\"";
  AppendPlacedText(out, attribute, context.Decode(attribute.text_value), context.tables);
  AppendFontFamily(out, attribute.style, context.tables);
  AppendQuotedKey(out, ",\"tag\":", context.Decode(attribute.tag));
  AppendIntKey(out, ",\"flags\":", attribute.flags);
}

void AppendAttributeDefinition(JsonOut& out, const Dwg_Entity_ATTDEF& definition,
                               const EntityContext& context) {
  const DecodedText value = context.Decode(definition.default_value);
  const DecodedText prompt = context.Decode(definition.prompt);
  out += ",\"kind\":\"attdef\"";
  AppendPlacedText(out, definition, value, context.tables);
  AppendFontFamily(out, definition.style, context.tables);
  AppendQuotedKey(out, ",\"tag\":", context.Decode(definition.tag));
  if (!prompt.view().empty()) {
    AppendQuotedKey(out, ",\"prompt\":", prompt);
  }
  AppendQuotedKey(out, ",\"defaultValue\":", value);
  AppendIntKey(out, ",\"flags\":", definition.flags);
}
