#include "complete/block_clip.hpp"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "complete/plane_keys.hpp"
#include "encode/fast/portable_math.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"

namespace {

constexpr std::size_t kMatrixSize = 12;

// As many as are looked at: any number of clips may name one dictionary.
constexpr std::size_t kMostItems = 16;
constexpr std::size_t kMostValues = 256;

constexpr std::string_view kInvertedClip = "ACAD_INVERTEDCLIP_ROUNDTRIP";

const Dwg_Object* Resolve(const CompleteContext& context, const Dwg_Object_Ref* reference) {
  const Handle handle = HandleOf(reference);
  return handle == 0 || context.dwg().object_map == nullptr
             ? nullptr
             : dwg_resolve_handle_silent(&context.dwg(), handle);
}

bool IsTextGroup(int group) {
  return (group >= 0 && group < 10) || (group >= 100 && group <= 105) ||
         (group >= 300 && group < 310);
}

template <typename Unit>
bool StartsWith(const Unit* text, std::size_t size, std::string_view start) {
  if (text == nullptr || size < start.size()) {
    return false;
  }
  return std::equal(start.begin(), start.end(), text,
                    [](char c, Unit unit) { return static_cast<Unit>(c) == unit; });
}

// Whether the value is the name of the section that holds an inverted clip.
bool NamesInvertedClip(const Dwg_Resbuf& value) {
  if (!IsTextGroup(value.type)) {
    return false;
  }
  const auto& text = value.value.str;
  return text.is_tu != 0 ? StartsWith(text.u.wdata, text.size, kInvertedClip)
                         : StartsWith(text.u.data, text.size, kInvertedClip);
}

bool HoldsInvertedClip(const Dwg_Object& object) {
  const auto* record =
      object.fixedtype == DWG_TYPE_XRECORD ? ObjectData(object, &ObjectTio::XRECORD) : nullptr;
  if (record == nullptr) {
    return false;
  }
  const Dwg_Resbuf* value = record->xdata;
  for (std::size_t i = 0; value != nullptr && i < kMostValues; ++i, value = value->nextrb) {
    if (NamesInvertedClip(*value)) {
      return true;
    }
  }
  return false;
}

// A record in the filter's extension dictionary says so.
bool IsInverted(const Dwg_Object& filter, const CompleteContext& context) {
  const Dwg_Object* object = Resolve(context, filter.tio.object->xdicobjhandle);
  if (object == nullptr || object->fixedtype != DWG_TYPE_DICTIONARY) {
    return false;
  }
  const auto* dictionary = ObjectData(*object, &ObjectTio::DICTIONARY);
  if (dictionary == nullptr) {
    return false;
  }
  const auto items = SpanOf(dictionary->itemhandles, dictionary->numitems);
  const auto first = items.first(std::min(items.size(), kMostItems));
  return std::any_of(first.begin(), first.end(), [&](const Dwg_Object_Ref* item) {
    const Dwg_Object* record = Resolve(context, item);
    return record != nullptr && HoldsInvertedClip(*record);
  });
}

// Three rows of four, the last of each the translation; the identity where none is
// stored.
SpacePoint Transformed(const double* matrix, const SpacePoint& p) {
  if (matrix == nullptr) {
    return p;
  }
  const std::span<const double> m(matrix, kMatrixSize);
  return {m[0] * p.x + m[1] * p.y + m[2] * p.z + m[3], m[4] * p.x + m[5] * p.y + m[6] * p.z + m[7],
          m[8] * p.x + m[9] * p.y + m[10] * p.z + m[11]};
}

// The corners in the block's system. Two stand for a rectangle.
std::vector<SpacePoint> BlockCorners(const Dwg_Object_SPATIAL_FILTER& filter) {
  const auto stored = SpanOf(filter.clip_verts, filter.num_clip_verts);
  std::vector<BITCODE_2RD> corners(stored.begin(), stored.end());
  if (corners.size() == 2) {
    corners = {stored[0], {stored[1].x, stored[0].y}, stored[1], {stored[0].x, stored[1].y}};
  }
  const EntityPlane plane(filter.extrusion);
  std::vector<SpacePoint> points;
  points.reserve(corners.size());
  for (const BITCODE_2RD& corner : corners) {
    points.push_back(Transformed(filter.inverse_transform, plane.ToWorld(corner.x, corner.y, 0)));
  }
  return points;
}

BITCODE_3DPOINT BasePoint(Handle handle, const CompleteContext& context) {
  const Dwg_Object* object = handle == 0 || context.dwg().object_map == nullptr
                                 ? nullptr
                                 : dwg_resolve_handle_silent(&context.dwg(), handle);
  const auto* block = object == nullptr || object->fixedtype != DWG_TYPE_BLOCK_HEADER
                          ? nullptr
                          : ObjectData(*object, &ObjectTio::BLOCK_HEADER);
  return block == nullptr ? BITCODE_3DPOINT{} : block->base_pt;
}

void AppendPoints(JsonOut& out, std::string_view opening, std::span<const SpacePoint> points) {
  JsonList list(out, opening);
  for (const SpacePoint& point : points) {
    AddPoint(list, point);
  }
  list.Close();
}

// Takes points of the block to where the reference puts them.
void Place(std::span<SpacePoint> points, const BlockPlacement& placement,
           const CompleteContext& context) {
  const BITCODE_3DPOINT base = BasePoint(placement.block, context);
  const SineAndCosine turn = PortableSinCos(placement.rotation);
  const EntityPlane plane(placement.extrusion);
  for (SpacePoint& point : points) {
    const double x = (point.x - base.x) * placement.scale.x;
    const double y = (point.y - base.y) * placement.scale.y;
    const double z = (point.z - base.z) * placement.scale.z;
    point = plane.ToWorld(placement.position.x + x * turn.cosine - y * turn.sine,
                          placement.position.y + x * turn.sine + y * turn.cosine,
                          placement.position.z + z);
  }
}

}  // namespace

void AppendBlockClip(JsonOut& out, const Dwg_Object& filter, const BlockPlacement& placement,
                     const CompleteContext& context) {
  const auto& data = *filter.tio.object->tio.SPATIAL_FILTER;
  AppendBoolKey(out, ",\"clip\":{\"on\":", data.display_boundary_on != 0);
  AppendBoolKey(out, ",\"inverted\":", IsInverted(filter, context));
  JsonList boundary(out, ",\"boundary\":[");
  for (const BITCODE_2RD& corner : SpanOf(data.clip_verts, data.num_clip_verts)) {
    boundary.Point(corner.x, corner.y);
  }
  boundary.Close();
  std::vector<SpacePoint> corners = BlockCorners(data);
  AppendPoints(out, ",\"block\":[", corners);
  Place(corners, placement, context);
  AppendPoints(out, ",\"world\":[", corners);
  if (data.front_clip_on != 0) {
    AppendNumberKey(out, ",\"front\":", data.front_clip_z);
  }
  if (data.back_clip_on != 0) {
    AppendNumberKey(out, ",\"back\":", data.back_clip_z);
  }
  out += '}';
}
