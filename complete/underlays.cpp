#include "complete/underlays.hpp"

#include <span>
#include <string>
#include <string_view>

#include "complete/lookup.hpp"
#include "complete/plane_keys.hpp"
#include "document/pdf_files.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"

namespace {

// Bits of group 280.
constexpr unsigned kClipped = 1;
constexpr unsigned kShown = 2;
constexpr unsigned kMonochrome = 4;
constexpr unsigned kAdjusted = 8;
constexpr unsigned kInverted = 16;

// Definitions of all three kinds have the same data.
const Dwg_Object_UNDERLAYDEFINITION* DefinitionOf(const Dwg_Entity_UNDERLAY& underlay,
                                                  const CompleteContext& context) {
  const Dwg_Object* object = ObjectAt(HandleOf(underlay.definition_id), context);
  if (object == nullptr) {
    return nullptr;
  }
  switch (object->fixedtype) {
    case DWG_TYPE_PDFDEFINITION: return ObjectData(*object, &ObjectTio::PDFDEFINITION);
    case DWG_TYPE_DWFDEFINITION: return ObjectData(*object, &ObjectTio::DWFDEFINITION);
    case DWG_TYPE_DGNDEFINITION: return ObjectData(*object, &ObjectTio::DGNDEFINITION);
    default: return nullptr;
  }
}

void AppendOutline(JsonOut& out, std::string_view key, std::span<const BITCODE_2RD> points) {
  if (points.empty()) {
    return;
  }
  JsonList list(out, key);
  for (const BITCODE_2RD& point : points) {
    list.Point(point.x, point.y);
  }
  list.Close();
}

}  // namespace

void AppendUnderlay(JsonOut& out, const Dwg_Entity_UNDERLAY& underlay,
                    const CompleteContext& context) {
  const auto* definition = DefinitionOf(underlay, context);
  if (definition == nullptr) {
    return;
  }
  const std::string declared(context.Decode(definition->filename));
  const std::string sheet(context.Decode(definition->name));
  const std::string found = ResolvePdf(declared, context.base.drawing.folder);
  AppendQuotedKey(out, ",\"path\":", found.empty() ? declared : found);
  AppendIntKey(out, ",\"page\":", PdfPage(sheet));
  AppendNumberKey(out, ",\"ix\":", underlay.ins_pt.x);
  AppendNumberKey(out, ",\"iy\":", underlay.ins_pt.y);
  AppendNumberKey(out, ",\"sx\":", underlay.scale.x);
  AppendNumberKey(out, ",\"sy\":", underlay.scale.y);
  AppendNumberKey(out, ",\"angle\":", underlay.angle);
  AppendQuotedKey(out, ",\"sheet\":", sheet);
  AppendBoolKey(out, ",\"found\":", !found.empty());
}

void AppendUnderlayFurtherKeys(JsonOut& out, const Dwg_Entity_UNDERLAY& underlay) {
  AppendBoolKey(out, ",\"shown\":", (underlay.flag & kShown) != 0);
  AppendIntKey(out, ",\"contrast\":", underlay.contrast);
  AppendIntKey(out, ",\"fade\":", underlay.fade);
  AppendBoolKey(out, ",\"isMonochrome\":", (underlay.flag & kMonochrome) != 0);
  AppendBoolKey(out, ",\"isAdjustedToBackground\":", (underlay.flag & kAdjusted) != 0);
  if ((underlay.flag & kClipped) != 0) {
    AppendOutline(out, ",\"clip\":[", SpanOf(underlay.clip_verts, underlay.num_clip_verts));
    AppendOutline(out, ",\"clipHole\":[", SpanOf(underlay.clip_inverts, underlay.num_clip_inverts));
    AppendBoolKey(out, ",\"isClipInverted\":", (underlay.flag & kInverted) != 0);
  }
  AppendPlaneKeys(out, underlay.ins_pt.z, 0, underlay.extrusion);
}
