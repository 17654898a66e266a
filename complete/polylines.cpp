#include "complete/polylines.hpp"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "complete/common_keys.hpp"
#include "complete/plane_keys.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"
#include "entities/polyline.hpp"

namespace {

constexpr unsigned kLwConstantWidth = 4;
// A DWG sets the first; the reader of texts leaves closed polylines the second.
constexpr unsigned kLwLinetypeGeneration = 256 | 128;

constexpr unsigned kCurveFit = 2;
constexpr unsigned kSplineFit = 4;
constexpr unsigned kLinetypeGeneration = 128;
constexpr unsigned kFramePoint = 16;

// A DWG numbers the curves of three-dimensional polylines from 1.
constexpr unsigned kFirstCurveType = 5;
constexpr unsigned kBezier = 8;

using VertexList = std::vector<const Dwg_Object*>;

struct PolylineVertices {
  VertexList points;
  VertexList frame;

  // Those that the record has as `points`.
  const VertexList& shown() const { return points.empty() ? frame : points; }
  bool hasFrameApart() const { return !points.empty() && !frame.empty(); }
};

template <typename T>
void AddVertex(PolylineVertices& vertices, const Dwg_Object& object, DWG_OBJECT_TYPE type,
               T* EntityTio::*member) {
  if (object.fixedtype != type) {
    return;
  }
  if (const T* vertex = EntityData(object, member)) {
    ((vertex->flag & kFramePoint) != 0 ? vertices.frame : vertices.points).push_back(&object);
  }
}

// Drawings of 2004 and later list the vertices' handles; before that the vertices name
// their owner.
template <typename Polyline, typename T>
PolylineVertices OwnVertices(const Polyline& polyline, const Dwg_Object& object,
                             const CompleteContext& context, DWG_OBJECT_TYPE type,
                             T* EntityTio::*member) {
  PolylineVertices vertices;
  if (context.dwg().object_map != nullptr) {
    for (const Dwg_Object_Ref* reference : SpanOf<BITCODE_H>(polyline.vertex, polyline.num_owned)) {
      const Handle handle = HandleOf(reference);
      const Dwg_Object* found =
          handle == 0 ? nullptr : dwg_resolve_handle_silent(&context.dwg(), handle);
      if (found != nullptr) {
        AddVertex(vertices, *found, type, member);
      }
    }
  }
  if (vertices.shown().empty() && object.handle.value != 0) {
    for (const Dwg_Object* part : context.tables.polylineParts.Of(object.handle.value)) {
      AddVertex(vertices, *part, type, member);
    }
  }
  return vertices;
}

PolylineVertices VerticesOf(const Dwg_Entity_POLYLINE_2D& polyline, const Dwg_Object& object,
                            const CompleteContext& context) {
  PolylineVertices vertices =
      OwnVertices(polyline, object, context, DWG_TYPE_VERTEX_2D, &EntityTio::VERTEX_2D);
  if (vertices.shown().empty()) {
    const VertexIndex& index = FollowingVertices(context.base);
    const auto points = index.PointsAfter(object);
    const auto frame = index.FramePointsAfter(object);
    vertices.points.assign(points.begin(), points.end());
    vertices.frame.assign(frame.begin(), frame.end());
  }
  return vertices;
}

PolylineVertices VerticesOf(const Dwg_Entity_POLYLINE_3D& polyline, const Dwg_Object& object,
                            const CompleteContext& context) {
  PolylineVertices vertices =
      OwnVertices(polyline, object, context, DWG_TYPE_VERTEX_3D, &EntityTio::VERTEX_3D);
  if (vertices.shown().empty()) {
    for (const Dwg_Object* follower : FollowingVertices(context.base).SpatialPointsAfter(object)) {
      AddVertex(vertices, *follower, DWG_TYPE_VERTEX_3D, &EntityTio::VERTEX_3D);
    }
  }
  return vertices;
}

struct Width {
  double start;
  double end;
};

// Nothing when all are 0. `widthAt` gives the width at each position below `count`.
template <typename WidthAt>
void AppendWidths(JsonOut& out, std::size_t count, WidthAt widthAt) {
  const std::size_t start = out.size();
  bool isWide = false;
  JsonList widths(out, ",\"widths\":[");
  for (std::size_t i = 0; i < count; ++i) {
    const Width width = widthAt(i);
    isWide = isWide || width.start != 0 || width.end != 0;
    widths.Point(width.start, width.end);
  }
  widths.Close();
  if (!isWide) {
    out.Truncate(start);
  }
}

const Dwg_Entity_VERTEX_2D& Vertex2d(const Dwg_Object& object) {
  return KnownEntityData(object, &EntityTio::VERTEX_2D);
}

void AppendVertexFlags(JsonOut& out, std::span<const Dwg_Object* const> vertices) {
  if (std::all_of(vertices.begin(), vertices.end(),
                  [](const Dwg_Object* vertex) { return Vertex2d(*vertex).flag == 0; })) {
    return;
  }
  JsonList flags(out, ",\"vertexFlags\":[");
  for (const Dwg_Object* vertex : vertices) {
    flags.Item([&] { AppendInt(out, Vertex2d(*vertex).flag); });
  }
  flags.Close();
}

// Of a curve-fit polyline, by vertex.
void AppendTangents(JsonOut& out, std::span<const Dwg_Object* const> vertices) {
  if (std::all_of(vertices.begin(), vertices.end(),
                  [](const Dwg_Object* vertex) { return Vertex2d(*vertex).tangent_dir == 0; })) {
    return;
  }
  JsonList tangents(out, ",\"tangents\":[");
  for (const Dwg_Object* vertex : vertices) {
    tangents.Number(Vertex2d(*vertex).tangent_dir);
  }
  tangents.Close();
}

void AppendCurveType(JsonOut& out, unsigned type) {
  if (type != 0) {
    AppendIntKey(out, ",\"curveType\":", type);
  }
}

// Which widths a vertex before release 13 has of its own.
constexpr unsigned kOldStartWidth = 1;
constexpr unsigned kOldEndWidth = 2;

// A vertex without a width takes the polyline's. Texts leave it out, which the reader
// says by a width below 0; old drawings say it by flags; others have them all.
Width WidthOf(const Dwg_Object& object, const Dwg_Entity_POLYLINE_2D& polyline, bool isOld) {
  const Dwg_Entity_VERTEX_2D& vertex = Vertex2d(object);
  // A vertex has entity data: Vertex2d is in it.
  const unsigned own = object.tio.entity->opts_r11;
  const bool hasStart = isOld ? (own & kOldStartWidth) != 0 : !(vertex.start_width < 0);
  const bool hasEnd = isOld ? (own & kOldEndWidth) != 0 : !(vertex.end_width < 0);
  return {hasStart ? vertex.start_width : polyline.start_width,
          hasEnd ? vertex.end_width : polyline.end_width};
}

unsigned CurveType3d(unsigned stored) {
  return stored == 0 || stored >= kFirstCurveType ? stored
                                                  : std::min(stored + kFirstCurveType - 1, kBezier);
}

}  // namespace

void AppendLwPolylineFurtherKeys(JsonOut& out, const Dwg_Entity_LWPOLYLINE& polyline) {
  const auto points = SpanOf(polyline.points, polyline.num_points);
  const auto widths = SpanOf(polyline.widths, polyline.num_widths);
  if ((polyline.flag & kLwConstantWidth) != 0 && polyline.const_width != 0) {
    AppendNumberKey(out, ",\"constWidth\":", polyline.const_width);
  } else if (!widths.empty()) {
    AppendWidths(out, points.size(), [&](std::size_t i) {
      return i < widths.size() ? Width{widths[i].start, widths[i].end} : Width{0, 0};
    });
  }
  AppendTrueKey(out, ",\"linetypeGeneration\":", (polyline.flag & kLwLinetypeGeneration) != 0);
  const auto ids = SpanOf(polyline.vertexids, polyline.num_vertexids);
  if (std::any_of(ids.begin(), ids.end(), [](BITCODE_BL id) { return id != 0; })) {
    JsonList list(out, ",\"vertexIds\":[");
    for (const BITCODE_BL id : ids) {
      list.Item([&] { AppendInt(out, id); });
    }
    list.Close();
  }
  AppendPlaneKeys(out, polyline.elevation, polyline.thickness, polyline.extrusion);
  AppendWorld(out, polyline.extrusion, [&](const EntityPlane& plane) {
    JsonList list(out, ",\"points\":[");
    for (const BITCODE_2RD& point : points) {
      AddPoint(list, plane.ToWorld(point.x, point.y, polyline.elevation));
    }
    list.Close();
  });
}

void AppendOwnPolyline2d(JsonOut& out, const Dwg_Entity_POLYLINE_2D& polyline,
                         const CompleteContext& context, const EntityOrigin& origin) {
  AppendVertices2d(out, polyline.flag, VerticesOf(polyline, origin.object, context).shown());
}

void AppendOwnPolyline3d(JsonOut& out, const Dwg_Entity_POLYLINE_3D& polyline,
                         const CompleteContext& context, const EntityOrigin& origin) {
  AppendVertices3d(out, polyline.flag, VerticesOf(polyline, origin.object, context).shown());
}

void AppendPolyline2dFurtherKeys(JsonOut& out, const Dwg_Entity_POLYLINE_2D& polyline,
                                 const CompleteContext& context, const EntityOrigin& origin) {
  const PolylineVertices vertices = VerticesOf(polyline, origin.object, context);
  const VertexList& shown = vertices.shown();
  AppendNonZeroKey(out, ",\"startWidth\":", polyline.start_width);
  AppendNonZeroKey(out, ",\"endWidth\":", polyline.end_width);
  const bool isOld = !context.tables.isDxf && context.dwg().header.from_version < R_13b1;
  AppendWidths(out, shown.size(),
               [&](std::size_t i) { return WidthOf(*shown[i], polyline, isOld); });
  AppendVertexFlags(out, shown);
  AppendTangents(out, shown);
  AppendTrueKey(out, ",\"curveFit\":", (polyline.flag & kCurveFit) != 0);
  AppendTrueKey(out, ",\"splineFit\":", (polyline.flag & kSplineFit) != 0);
  AppendTrueKey(out, ",\"linetypeGeneration\":", (polyline.flag & kLinetypeGeneration) != 0);
  AppendCurveType(out, polyline.curve_type);
  if (vertices.hasFrameApart()) {
    JsonList frame(out, ",\"frame\":[");
    for (const Dwg_Object* vertex : vertices.frame) {
      frame.Point(Vertex2d(*vertex).point.x, Vertex2d(*vertex).point.y);
    }
    frame.Close();
  }
  AppendPlaneKeys(out, polyline.elevation, polyline.thickness, polyline.extrusion);
  AppendWorld(out, polyline.extrusion, [&](const EntityPlane& plane) {
    JsonList list(out, ",\"points\":[");
    for (const Dwg_Object* vertex : shown) {
      const BITCODE_3BD& point = Vertex2d(*vertex).point;
      AddPoint(list, plane.ToWorld(point.x, point.y, polyline.elevation));
    }
    list.Close();
  });
}

void AppendPolyline3dFurtherKeys(JsonOut& out, const Dwg_Entity_POLYLINE_3D& polyline,
                                 const CompleteContext& context, const EntityOrigin& origin) {
  const PolylineVertices vertices = VerticesOf(polyline, origin.object, context);
  const unsigned type = CurveType3d(polyline.curve_type);
  AppendTrueKey(out, ",\"splineFit\":", (polyline.flag & kSplineFit) != 0 || type != 0);
  AppendCurveType(out, type);
  if (vertices.hasFrameApart()) {
    JsonList frame(out, ",\"frame\":[");
    for (const Dwg_Object* vertex : vertices.frame) {
      const BITCODE_3BD& point = KnownEntityData(*vertex, &EntityTio::VERTEX_3D).point;
      frame.Point(point.x, point.y, point.z);
    }
    frame.Close();
  }
}
