#include "entities/polyline.hpp"

#include <algorithm>
#include <functional>
#include <span>

#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"

namespace {

constexpr unsigned kLwPolylineClosed = 512;
constexpr unsigned kPolylineClosed = 1;
constexpr unsigned kSplineFrameControlPoint = 16;

bool EndsWalk(const Dwg_Object& object) {
  return !IsEntity(object) || object.fixedtype == DWG_TYPE_SEQEND;
}

bool IsFrame(const Dwg_Entity_VERTEX_2D& vertex) {
  return (vertex.flag & kSplineFrameControlPoint) != 0;
}

VertexIndex BuildVertexIndex(std::span<const Dwg_Object> objects) {
  VertexIndex index;
  for (const Dwg_Object& object : objects) {
    if (EndsWalk(object)) {
      index.walkEnds.push_back(&object);
    } else if (object.fixedtype == DWG_TYPE_VERTEX_2D) {
      if (const auto* vertex = EntityData(object, &EntityTio::VERTEX_2D)) {
        (IsFrame(*vertex) ? index.framePoints : index.points).push_back(&object);
      }
    } else if (object.fixedtype == DWG_TYPE_VERTEX_3D &&
               EntityData(object, &EntityTio::VERTEX_3D) != nullptr) {
      index.spatialPoints.push_back(&object);
    }
  }
  return index;
}

using ObjectList = std::vector<const Dwg_Object*>;

ObjectList::const_iterator FirstFrom(const ObjectList& objects, const Dwg_Object* begin) {
  return std::lower_bound(objects.begin(), objects.end(), begin, std::less<>());
}

// The vertices of one kind that follow the polyline, up to the end of its walk.
std::span<const Dwg_Object* const> VerticesAfter(const Dwg_Object& polyline, EntityContext& context,
                                                 ObjectList VertexIndex::*kind) {
  const auto objects = Objects(context.dwg);
  const std::size_t begin = std::size_t{polyline.index} + 1;
  if (begin >= objects.size()) {
    return {};
  }
  if (!context.vertexIndex) {
    context.vertexIndex = BuildVertexIndex(objects);
  }
  const VertexIndex& index = *context.vertexIndex;
  const ObjectList& vertices = index.*kind;
  const auto first = FirstFrom(vertices, &objects[begin]);
  const auto walkEnd = FirstFrom(index.walkEnds, &objects[begin]);
  return {first, walkEnd == index.walkEnds.end() ? vertices.end() : FirstFrom(vertices, *walkEnd)};
}

struct Vertex {
  double x;
  double y;
  double bulge;
};

std::vector<Vertex> Vertices2d(const Dwg_Object& polyline, EntityContext& context) {
  auto objects = VerticesAfter(polyline, context, &VertexIndex::points);
  if (objects.empty()) {
    objects = VerticesAfter(polyline, context, &VertexIndex::framePoints);
  }
  std::vector<Vertex> vertices;
  vertices.reserve(objects.size());
  for (const Dwg_Object* object : objects) {
    const Dwg_Entity_VERTEX_2D& vertex = *object->tio.entity->tio.VERTEX_2D;
    vertices.push_back({vertex.point.x, vertex.point.y, vertex.bulge});
  }
  return vertices;
}

// The record of a two-dimensional polyline, with one bulge a point.
// `vertexAt` gives the vertex at each position below `count`.
template <typename VertexAt>
void AppendBulgedRecord(JsonOut& out, std::string_view type, std::string_view layer, bool isClosed,
                        std::size_t count, VertexAt vertexAt) {
  BeginRecord(out, type, layer);
  AppendBoolKey(out, ",\"closed\":", isClosed);
  out += ",\"points\":[";
  ListCursor points{out};
  for (std::size_t i = 0; i < count; ++i) {
    const Vertex vertex = vertexAt(i);
    AppendPoint(points, vertex.x, vertex.y);
  }
  out += "],\"bulges\":[";
  ListCursor bulges{out};
  for (std::size_t i = 0; i < count; ++i) {
    AppendListNumber(bulges, vertexAt(i).bulge);
  }
  out += "]}";
}

}  // namespace

void AppendLwPolylineRecord(JsonOut& out, const Dwg_Entity_LWPOLYLINE& polyline,
                            std::string_view layer) {
  const auto points = SpanOf(polyline.points, polyline.num_points);
  const auto bulges = SpanOf(polyline.bulges, polyline.num_bulges);
  if (points.empty()) {
    return;
  }
  AppendBulgedRecord(out, "LWPOLYLINE", layer, (polyline.flag & kLwPolylineClosed) != 0,
                     points.size(), [&](std::size_t i) {
                       return Vertex{points[i].x, points[i].y, i < bulges.size() ? bulges[i] : 0};
                     });
}

void AppendPolyline2dRecord(JsonOut& out, const Dwg_Entity_POLYLINE_2D& polyline,
                            std::string_view layer, EntityContext& context,
                            const Dwg_Object& object) {
  const std::vector<Vertex> vertices = Vertices2d(object, context);
  if (vertices.empty()) {
    return;
  }
  AppendBulgedRecord(out, "POLYLINE_2D", layer, (polyline.flag & kPolylineClosed) != 0,
                     vertices.size(), [&](std::size_t i) { return vertices[i]; });
}

void AppendPolyline3dRecord(JsonOut& out, const Dwg_Entity_POLYLINE_3D& polyline,
                            std::string_view layer, EntityContext& context,
                            const Dwg_Object& object) {
  const auto vertices = VerticesAfter(object, context, &VertexIndex::spatialPoints);
  if (vertices.empty()) {
    return;
  }
  BeginRecord(out, "POLYLINE_3D", layer);
  AppendBoolKey(out, ",\"closed\":", (polyline.flag & kPolylineClosed) != 0);
  out += ",\"points\":[";
  ListCursor points{out};
  for (const Dwg_Object* vertex : vertices) {
    const BITCODE_3BD& point = vertex->tio.entity->tio.VERTEX_3D->point;
    AppendPoint(points, point.x, point.y, point.z);
  }
  out += "]}";
}
