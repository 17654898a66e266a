#include "entities/viewport.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/convert_entity.hpp"
#include "entities/drawing_access.hpp"
#include "entities/hatch_debug.hpp"
#include "entities/stored_flags.hpp"
#include "entities/writer_memory.hpp"

namespace {

constexpr unsigned kOverallViewportId = 1;
constexpr std::size_t kMaxClipDepth = 8;

void AppendView(JsonOut& out, const Dwg_Entity_VIEWPORT& viewport) {
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

void AppendFrozenLayers(JsonOut& out, const Dwg_Entity_VIEWPORT& viewport,
                        const LookupTables& tables) {
  JsonList names(out, ",\"frozenLayers\":[");
  for (const Dwg_Object_Ref* reference :
       SpanOf(viewport.frozen_layers, viewport.num_frozen_layers)) {
    if (const LayerEntry* layer = tables.layers.Find(reference)) {
      names.Item([&] { out += layer->quoted; });
    }
  }
  names.Close();
}

// The entity that clips the viewport, null when there is none to be written.
const Dwg_Object* ClipEntity(const Dwg_Entity_VIEWPORT& viewport, const Dwg_Object& object,
                             const EntityContext& context) {
  const Handle handle = ClipBoundaryOf(viewport);
  if (handle == 0 || context.dwg().object_map == nullptr) {
    return nullptr;
  }
  const Dwg_Object* clip = dwg_resolve_handle(&context.dwg(), handle);
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
void AppendCostlyClip(JsonOut& out, const Dwg_Object& clip, const EntityContext& context) {
  auto& records = context.memory.clips.records;
  if (const auto known = records.find(&clip); known != records.end()) {
    out += known->second;
    return;
  }
  const std::size_t warnings = context.findings.warnings.size();
  JsonOut record;
  convertEntity(record, clip, context);
  std::string text = record.Text();
  out += text;
  if (context.findings.warnings.size() == warnings) {
    records[&clip] = std::move(text);
  }
}

// Converting a clip outline is the converter's only recursion. A viewport whose
// conversion is under way is not entered again, and the depth is bounded.
void AppendClip(JsonOut& out, const Dwg_Entity_VIEWPORT& viewport, const Dwg_Object& object,
                const EntityContext& context) {
  auto& open = context.memory.clips.openViewports;
  const Dwg_Object* clip = ClipEntity(viewport, object, context);
  if (clip == nullptr || open.size() >= kMaxClipDepth ||
      std::find(open.begin(), open.end(), clip) != open.end()) {
    return;
  }
  const std::size_t end = out.size();
  out += ",\"clip\":";
  const std::size_t start = out.size();
  open.push_back(&object);
  if (IsCostly(*clip)) {
    AppendCostlyClip(out, *clip, context);
  } else {
    convertEntity(out, *clip, context);
  }
  open.pop_back();
  if (out.size() == start) {
    out.Truncate(end);
  }
}

}  // namespace

void AppendViewport(JsonOut& out, const Dwg_Entity_VIEWPORT& viewport, const EntityContext& context,
                    const EntityOrigin& origin) {
  if (viewport.id == kOverallViewportId || !(viewport.width > 0) || !(viewport.height > 0)) {
    return;
  }
  AppendView(out, viewport);
  AppendFrozenLayers(out, viewport, context.tables);
  AppendClip(out, viewport, origin.object, context);
}
