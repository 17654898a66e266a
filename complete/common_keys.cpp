#include "complete/common_keys.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/color.hpp"

namespace {

constexpr std::uint32_t kMethodByLayer = 0xC0;
constexpr std::uint32_t kMethodByBlock = 0xC1;
constexpr std::uint32_t kIndexBits = 0xFF;
constexpr BITCODE_BSd kIndexTrueColor = 257;

// How an entity tells its line type.
constexpr unsigned kByBlock = 1;
constexpr unsigned kContinuous = 2;

void AppendLinetype(JsonOut& out, const Dwg_Object_Entity& entity, const CompleteContext& context) {
  if (const std::string* name = context.tables.linetypes.Find(HandleOf(entity.ltype))) {
    out += *name;
    return;
  }
  switch (entity.ltype_flags) {
    case kByBlock: out += "\"K\""; break;
    case kContinuous: out += "\"Continuous\""; break;
    default: out += "\"L\""; break;
  }
}

}  // namespace

void AppendHandleKey(JsonOut& out, std::string_view key, Handle handle) {
  if (handle == 0) {
    return;
  }
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  constexpr unsigned kBitsOfDigit = 4;
  // From the last character to the first: the digits between two quotes.
  std::array<char, 2 * sizeof(Handle) + 2> text;
  std::size_t first = text.size();
  text[--first] = '"';
  for (; handle != 0; handle >>= kBitsOfDigit) {
    text[--first] = kDigits[handle % kDigits.size()];
  }
  text[--first] = '"';
  out += key;
  out += std::string_view(text.data() + first, text.size() - first);
}

void AppendWordColor(JsonOut& out, std::string_view key, const Dwg_Color& color,
                     const CompleteContext& context) {
  out += key;
  Dwg_Color plain = color;
  switch (ColorMethod(color)) {
    case kMethodByLayer: out += "\"L\""; return;
    case kMethodByBlock: out += "\"K\""; return;
    case kMethodTrueColor: plain.index = kIndexTrueColor; break;
    case kMethodIndexed: plain.index = static_cast<BITCODE_BSd>(color.rgb & kIndexBits); break;
    default: break;
  }
  AppendColor(out, plain, context.base.drawing.palette);
}

void AppendTrueKey(JsonOut& out, std::string_view key, bool value) {
  if (value) {
    out += key;
    out += "true";
  }
}

void AppendPointKey(JsonOut& out, std::string_view key, double x, double y, double z) {
  out += key;
  JsonList coordinates(out);
  for (const double coordinate : {x, y, z}) {
    coordinates.Number(coordinate);
  }
  coordinates.Close();
}

void AppendCommonFurtherKeys(JsonOut& out, const Dwg_Object& object,
                             const Dwg_Object_Entity& entity, const CompleteContext& context) {
  AppendHandleKey(out, ",\"handle\":", object.handle.value);
  AppendHandleKey(out,
                  ",\"owner\":", context.tables.OwnerOf(entity, context.base.tables.modelSpace));
  out += ",\"linetype\":";
  AppendLinetype(out, entity, context);
  AppendNumberKey(out, ",\"linetypeScale\":", entity.ltype_scale);
  if (entity.invisible != 0) {
    out += ",\"invisible\":true";
  }
  if (const std::uint32_t* place = context.tables.drawOrder.Find(object)) {
    AppendIntKey(out, ",\"drawOrder\":", *place);
  }
}
