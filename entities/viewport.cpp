#include "entities/viewport.hpp"

#include <algorithm>

#include "encode/json_text.hpp"
#include "entities/convert_entity.hpp"
#include "entities/drawing_access.hpp"
#include "entities/hatch_debug.hpp"
#include "entities/stored_flags.hpp"

namespace {

constexpr unsigned kOverallViewportId = 1;
constexpr std::size_t kMaxClipDepth = 8;

void AppendView(std::string& out, const Dwg_Entity_VIEWPORT& viewport) {
  AppendNumberKey(out, ",\"cx\":", viewport.center.x);
  AppendNumberKey(out, ",\"cy\":", viewport.center.y);
  AppendNumberKey(out, ",\"width\":", viewport.width);
  AppendNumberKey(out, ",\"height\":", viewport.height);
  AppendNumberKey(out, ",\"viewCtrX\":", viewport.VIEWCTR.x);
  AppendNumberKey(out, ",\"viewCtrY\":", viewport.VIEWCTR.y);
  AppendNumberKey(out, ",\"viewSize\":", viewport.VIEWSIZE);
  AppendNumberKey(out, ",\"targetX\":", viewport.view_target.x);
  AppendNumberKey(out, ",\"targetY\":", viewport.view_target.y);
  AppendNumberKey(out, ",\"targetZ\":", viewport.view_target.z);
  AppendNumberKey(out, ",\"dirX\":", viewport.VIEWDIR.x);
  AppendNumberKey(out, ",\"dirY\":", viewport.VIEWDIR.y);
  AppendNumberKey(out, ",\"dirZ\":", viewport.VIEWDIR.z);
  AppendNumberKey(out, ",\"twist\":", viewport.VIEWTWIST);
  AppendIntKey(out, ",\"status\":", viewport.status_flag);
}

void AppendFrozenLayers(std::string& out, const Dwg_Entity_VIEWPORT& viewport,
                        const LookupTables& tables) {
  out += ",\"frozenLayers\":[";
  ListCursor names{out};
  for (const Dwg_Object_Ref* layer : SpanOf(viewport.frozen_layers, viewport.num_frozen_layers)) {
    const auto found =
        layer == nullptr ? tables.layerNames.end() : tables.layerNames.find(layer->absolute_ref);
    if (found != tables.layerNames.end()) {
      AppendListQuoted(names, found->second);
    }
  }
  out += ']';
}

// The entity that clips the viewport, null when there is none to be written.
const Dwg_Object* ClipEntity(const Dwg_Entity_VIEWPORT& viewport, const Dwg_Object& object,
                             const EntityContext& context) {
  const Handle handle = ClipBoundaryOf(viewport);
  if (handle == 0 || context.dwg.object_map == nullptr) {
    return nullptr;
  }
  const Dwg_Object* clip = dwg_resolve_handle(&context.dwg, handle);
  return clip == nullptr || clip == &object || !IsEntity(*clip) ? nullptr : clip;
}

// Types that may take long and still give a short record, or none. The dump of
// hatches tells of every conversion.
bool IsCostly(const Dwg_Object& clip) {
  switch (clip.fixedtype) {
    case DWG_TYPE_SPLINE:
    case DWG_TYPE_MULTILEADER: return true;
    case DWG_TYPE_HATCH: return !HatchDebugEnabled();
    default: return false;
  }
}

// Remembered only when it warned of nothing: a warning counts every time.
std::string ConvertClip(const Dwg_Object& clip, EntityContext& context) {
  if (const auto known = context.clipRecords.find(&clip); known != context.clipRecords.end()) {
    return known->second;
  }
  const std::size_t warnings = context.warnings.size();
  std::string record = convertEntity(clip, context);
  if (IsCostly(clip) && context.warnings.size() == warnings) {
    context.clipRecords[&clip] = record;
  }
  return record;
}

// Converting a clip outline is the converter's only recursion. A viewport whose
// conversion is under way is not entered again, and the depth is bounded.
std::string ClipRecord(const Dwg_Entity_VIEWPORT& viewport, const Dwg_Object& object,
                       EntityContext& context) {
  auto& open = context.openViewports;
  const Dwg_Object* clip = ClipEntity(viewport, object, context);
  if (clip == nullptr || open.size() >= kMaxClipDepth ||
      std::find(open.begin(), open.end(), clip) != open.end()) {
    return {};
  }
  open.push_back(&object);
  std::string record = ConvertClip(*clip, context);
  open.pop_back();
  return record;
}

}  // namespace

std::string ViewportRecord(const Dwg_Entity_VIEWPORT& viewport, std::string_view layer,
                           EntityContext& context, const Dwg_Object& object) {
  if (viewport.id == kOverallViewportId || !(viewport.width > 0) || !(viewport.height > 0)) {
    return {};
  }
  std::string out = BeginRecord("VIEWPORT", layer);
  AppendView(out, viewport);
  AppendFrozenLayers(out, viewport, context.tables);
  const std::string clip = ClipRecord(viewport, object, context);
  if (!clip.empty()) {
    out += ",\"clip\":";
    out += clip;
  }
  out += '}';
  return out;
}
