#include "complete/viewports.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "complete/attached_data.hpp"
#include "complete/common_keys.hpp"
#include "complete/plane_keys.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"
#include "entities/stored_flags.hpp"
#include "entities/viewport.hpp"

namespace {

constexpr unsigned kPerspective = 0x1;
constexpr unsigned kFrontClip = 0x2;
constexpr unsigned kBackClip = 0x4;
constexpr unsigned kLocked = 0x4000;
constexpr unsigned kOff = 0x20000;
constexpr std::int32_t kOverall = 1;

// The values that drawings before 2000 list behind the text MVIEW, by kind.
struct ListedView {
  std::vector<SpacePoint> points;
  std::vector<double> numbers;
  std::vector<int> flags;
  std::vector<Handle> frozenLayers;

  // Target and direction; twist, height, centre, lens and the two planes; the mode
  // behind the version.
  bool isWhole() const { return points.size() >= 2 && numbers.size() >= 7 && flags.size() >= 2; }
};

// A value of a packed structure, which no reference may be bound to.
template <typename T>
T Copy(T value) {
  return value;
}

ListedView ListedViewOf(const Dwg_Object& object, Handle application) {
  ListedView view;
  bool isView = false;
  ForEachAttached(AttachedDataOf(object), application, [&](const Dwg_Eed_Data& value) {
    isView = isView || IsAttachedText(value, "MVIEW");
    if (!isView) {
      return;
    }
    switch (value.code) {
      case kAttachedPoint: {
        const BITCODE_3RD point = value.u.eed_10.point;
        view.points.push_back({point.x, point.y, point.z});
        break;
      }
      case kAttachedReal: view.numbers.push_back(Copy(value.u.eed_40.real)); break;
      case kAttachedShort: view.flags.push_back(Copy(value.u.eed_70.rs)); break;
      case kAttachedLayer: view.frozenLayers.push_back(Copy(value.u.eed_3.layer)); break;
      default: break;
    }
  });
  return view;
}

// A viewport with its view, wherever the drawing keeps that.
class SettledViewport {
 public:
  SettledViewport(const Dwg_Entity_VIEWPORT& viewport, const Dwg_Object& object,
                  const CompleteContext& context)
      : viewport_(viewport) {
    if (const std::int32_t* id = context.tables.viewportIds.ids.Find(object.handle.value)) {
      viewport_.id = static_cast<BITCODE_RS>(*id);
    }
    if (context.dwg().header.from_version < R_2000b && viewport.VIEWSIZE == 0) {
      TakeView(ListedViewOf(object, context.tables.acadApplication));
    }
  }
  SettledViewport(const SettledViewport&) = delete;
  SettledViewport& operator=(const SettledViewport&) = delete;

  const Dwg_Entity_VIEWPORT& data() const { return viewport_; }

 private:
  void TakeView(const ListedView& view) {
    if (!view.isWhole()) {
      return;
    }
    viewport_.view_target = {view.points[0].x, view.points[0].y, view.points[0].z};
    viewport_.VIEWDIR = {view.points[1].x, view.points[1].y, view.points[1].z};
    viewport_.VIEWTWIST = view.numbers[0];
    viewport_.VIEWSIZE = view.numbers[1];
    viewport_.VIEWCTR = {view.numbers[2], view.numbers[3]};
    viewport_.LENSLENGTH = view.numbers[4];
    viewport_.FRONTZ = view.numbers[5];
    viewport_.BACKZ = view.numbers[6];
    viewport_.status_flag |= static_cast<unsigned>(view.flags[1]) & 7U;
    layers_.resize(view.frozenLayers.size());
    for (std::size_t i = 0; i < layers_.size(); ++i) {
      layers_[i].absolute_ref = view.frozenLayers[i];
      references_.push_back(&layers_[i]);
    }
    viewport_.frozen_layers = references_.data();
    viewport_.num_frozen_layers = static_cast<BITCODE_BL>(references_.size());
  }

  Dwg_Entity_VIEWPORT viewport_;
  std::vector<Dwg_Object_Ref> layers_;
  std::vector<BITCODE_H> references_;
};

void AppendUcs(JsonOut& out, const Dwg_Entity_VIEWPORT& viewport) {
  if (viewport.UCSVP == 0) {
    return;
  }
  const auto& [x, y, z] = viewport.ucsorg;
  AppendPointKey(out, ",\"ucs\":{\"origin\":", x, y, z);
  AppendPointKey(out, ",\"xAxis\":", viewport.ucsxdir.x, viewport.ucsxdir.y, viewport.ucsxdir.z);
  AppendPointKey(out, ",\"yAxis\":", viewport.ucsydir.x, viewport.ucsydir.y, viewport.ucsydir.z);
  AppendNumberKey(out, ",\"elevation\":", viewport.ucs_elevation);
  out += '}';
}

// Drawings before 2000 say so by the number of the viewport in the stack, 0 for off;
// a DWG has the bit alone.
bool IsOn(const Dwg_Entity_VIEWPORT& viewport, const CompleteContext& context) {
  const bool tellsStack = context.tables.isDxf && context.dwg().header.from_version < R_2000b;
  return (viewport.status_flag & kOff) == 0 && !(tellsStack && viewport.on_off == 0);
}

}  // namespace

void AppendNumberedViewport(JsonOut& out, const Dwg_Entity_VIEWPORT& viewport,
                            const CompleteContext& context, const EntityOrigin& origin) {
  const SettledViewport settled(viewport, origin.object, context);
  AppendViewport(out, settled.data(), context.base, origin);
}

void AppendViewportFurtherKeys(JsonOut& out, const Dwg_Entity_VIEWPORT& viewport,
                               const CompleteContext& context, const EntityOrigin& origin) {
  const SettledViewport settled(viewport, origin.object, context);
  const Dwg_Entity_VIEWPORT& data = settled.data();
  AppendIntKey(out, ",\"id\":", data.id);
  AppendNonZeroKey(out, ",\"cz\":", data.center.z);
  AppendBoolKey(out, ",\"on\":", IsOn(data, context));
  if (data.VIEWSIZE > 0) {
    AppendNumberKey(out, ",\"scale\":", data.height / data.VIEWSIZE);
  }
  AppendNumberKey(out, ",\"lens\":", data.LENSLENGTH);
  AppendTrueKey(out, ",\"perspective\":", (data.status_flag & kPerspective) != 0);
  AppendTrueKey(out, ",\"locked\":", (data.status_flag & kLocked) != 0);
  AppendTrueKey(out, ",\"clipped\":", ClipBoundaryOf(data) != 0);
  if ((data.status_flag & kFrontClip) != 0) {
    AppendNumberKey(out, ",\"frontZ\":", data.FRONTZ);
  }
  if ((data.status_flag & kBackClip) != 0) {
    AppendNumberKey(out, ",\"backZ\":", data.BACKZ);
  }
  AppendIntKey(out, ",\"renderMode\":", data.render_mode);
  AppendIntKey(out, ",\"shadePlot\":", data.shadeplot_mode);
  AppendUcs(out, data);
}

void AppendSheetViewport(JsonOut& out, Handle sheet, const CompleteContext& context) {
  const Dwg_Object* const* found = context.tables.viewportIds.overall.Find(sheet);
  if (found == nullptr) {
    return;
  }
  const Dwg_Object& object = **found;
  const SettledViewport settled(KnownEntityData(object, &EntityTio::VIEWPORT), object, context);
  const Dwg_Entity_VIEWPORT& data = settled.data();
  AppendIntKey(out, ",\"viewport\":{\"id\":", kOverall);
  AppendHandleKey(out, ",\"handle\":", object.handle.value);
  AppendNumberKey(out, ",\"cx\":", data.center.x);
  AppendNumberKey(out, ",\"cy\":", data.center.y);
  AppendNumberKey(out, ",\"width\":", data.width);
  AppendNumberKey(out, ",\"height\":", data.height);
  AppendNumberKey(out, ",\"viewCtrX\":", data.VIEWCTR.x);
  AppendNumberKey(out, ",\"viewCtrY\":", data.VIEWCTR.y);
  AppendNumberKey(out, ",\"viewSize\":", data.VIEWSIZE);
  out += '}';
}
