#include "complete/linetypes.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <string>

#include "complete/common_keys.hpp"
#include "complete/table_section.hpp"
#include "encode/json_text.hpp"

namespace {

// Bits of group 74.
constexpr unsigned kAbsoluteRotation = 1;
constexpr unsigned kText = 2;
constexpr unsigned kShape = 4;

// Texts lie in an area of the line type, of which the last need not end in a NUL;
// those of a DXF file stand alone.
std::string TextOf(const Dwg_LTYPE_dash& dash, const Dwg_Object_LTYPE& linetype,
                   const CompleteContext& context) {
  constexpr std::size_t kArea = 256;
  if (dash.text == nullptr) {
    return {};
  }
  const bool isWide = context.base.drawing.textForm == TextForm::kUtf16;
  const char* area = linetype.strings_area == nullptr
                         ? nullptr
                         : reinterpret_cast<const char*>(linetype.strings_area);
  const char* end = area == nullptr ? nullptr : area + (isWide ? 2 * kArea : kArea);
  const std::less<> before;
  if (area == nullptr || before(dash.text, area) || !before(dash.text, end)) {
    return context.Decode(dash.text).Take();
  }
  std::string stored(dash.text, static_cast<std::size_t>(end - dash.text));
  stored.append(2, '\0');
  return std::string(context.Decode(stored.c_str()));
}

void AppendStyle(JsonOut& out, const Dwg_LTYPE_dash& dash, const CompleteContext& context) {
  if (const std::string* name = context.tables.textStyles.Find(HandleOf(dash.style))) {
    out += ",\"textStyle\":";
    out += *name;
  }
}

void AppendDash(JsonOut& out, const Dwg_LTYPE_dash& dash, const Dwg_Object_LTYPE& linetype,
                const CompleteContext& context) {
  AppendNumberKey(out, "{\"length\":", dash.length);
  if ((dash.shape_flag & (kText | kShape)) != 0) {
    if ((dash.shape_flag & kText) != 0) {
      AppendQuotedKey(out, ",\"text\":", TextOf(dash, linetype, context));
    } else {
      AppendIntKey(out, ",\"shape\":", dash.complex_shapecode);
    }
    AppendStyle(out, dash, context);
    AppendNumberKey(out, ",\"scale\":", dash.scale);
    AppendNumberKey(out, ",\"rotationRad\":", dash.rotation);
    AppendBoolKey(out, ",\"absoluteRotation\":", (dash.shape_flag & kAbsoluteRotation) != 0);
    AppendNumberKey(out, ",\"x\":", dash.x_offset);
    AppendNumberKey(out, ",\"y\":", dash.y_offset);
  }
  out += '}';
}

// Before release 13 a DWG has room for twelve lengths.
void AppendOldDashes(JsonList& dashes, const Dwg_Object_LTYPE& linetype) {
  const std::size_t count =
      std::min<std::size_t>(linetype.numdashes, std::size(linetype.dashes_r11));
  for (std::size_t i = 0; i < count; ++i) {
    dashes.Item([&] {
      AppendNumberKey(dashes.out(), "{\"length\":", linetype.dashes_r11[i]);
      dashes.out() += '}';
    });
  }
}

void AppendLinetype(JsonOut& out, const Dwg_Object& object, const Dwg_Object_LTYPE& linetype,
                    const CompleteContext& context) {
  AppendQuotedKey(out, "{\"name\":", context.Decode(linetype.name));
  AppendHandleKey(out, ",\"handle\":", object.handle.value);
  AppendQuotedKey(out, ",\"description\":", context.Decode(linetype.description));
  AppendNumberKey(out, ",\"length\":", linetype.pattern_len);
  JsonList dashes(out, ",\"dashes\":[");
  if (linetype.dashes == nullptr) {
    AppendOldDashes(dashes, linetype);
  }
  for (const Dwg_LTYPE_dash& dash : SpanOf<Dwg_LTYPE_dash>(linetype.dashes, linetype.numdashes)) {
    dashes.Item([&] { AppendDash(out, dash, linetype, context); });
  }
  dashes.Close();
  out += '}';
}

}  // namespace

void AppendLinetypes(JsonOut& out, const CompleteContext& context) {
  AppendTableSection(out, ",\"linetypes\":[", context.tables.objects.linetypes, &ObjectTio::LTYPE,
                     AppendLinetype, context);
}
