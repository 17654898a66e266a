#include "entities/polyline.hpp"

#include <cstddef>
#include <vector>

#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"
#include "entities/writer_memory.hpp"

namespace {

constexpr unsigned kLwPolylineClosed = 512;
constexpr unsigned kPolylineClosed = 1;

struct Vertex {
  double x;
  double y;
  double bulge;
};

std::vector<Vertex> StoredVertices(VertexIndex::Vertices objects) {
  std::vector<Vertex> vertices;
  vertices.reserve(objects.size());
  for (const Dwg_Object* object : objects) {
    const auto& vertex = KnownEntityData(*object, &EntityTio::VERTEX_2D);
    vertices.push_back({vertex.point.x, vertex.point.y, vertex.bulge});
  }
  return vertices;
}

// What a two-dimensional polyline has behind its flag, with one bulge a point.
// `vertexAt` gives the vertex at each position below `count`.
template <typename VertexAt>
void AppendBulgedPoints(JsonOut& out, bool isClosed, std::size_t count, VertexAt vertexAt) {
  AppendBoolKey(out, ",\"closed\":", isClosed);
  JsonList points(out, ",\"points\":[");
  for (std::size_t i = 0; i < count; ++i) {
    const Vertex vertex = vertexAt(i);
    points.Point(vertex.x, vertex.y);
  }
  points.Close();
  JsonList bulges(out, ",\"bulges\":[");
  for (std::size_t i = 0; i < count; ++i) {
    bulges.Number(vertexAt(i).bulge);
  }
  bulges.Close();
}

}  // namespace

void AppendLwPolyline(JsonOut& out, const Dwg_Entity_LWPOLYLINE& polyline) {
  const auto points = SpanOf(polyline.points, polyline.num_points);
  const auto bulges = SpanOf(polyline.bulges, polyline.num_bulges);
  if (points.empty()) {
    return;
  }
  AppendBulgedPoints(out, (polyline.flag & kLwPolylineClosed) != 0, points.size(),
                     [&](std::size_t i) {
                       return Vertex{points[i].x, points[i].y, i < bulges.size() ? bulges[i] : 0};
                     });
}

const VertexIndex& FollowingVertices(const EntityContext& context) {
  auto& vertices = context.memory.vertices;
  if (!vertices) {
    vertices.emplace(Objects(context.dwg()));
  }
  return *vertices;
}

void AppendVertices2d(JsonOut& out, unsigned flag, VertexIndex::Vertices objects) {
  const std::vector<Vertex> vertices = StoredVertices(objects);
  if (vertices.empty()) {
    return;
  }
  AppendBulgedPoints(out, (flag & kPolylineClosed) != 0, vertices.size(),
                     [&](std::size_t i) { return vertices[i]; });
}

void AppendVertices3d(JsonOut& out, unsigned flag, VertexIndex::Vertices vertices) {
  if (vertices.empty()) {
    return;
  }
  AppendBoolKey(out, ",\"closed\":", (flag & kPolylineClosed) != 0);
  JsonList points(out, ",\"points\":[");
  for (const Dwg_Object* vertex : vertices) {
    const BITCODE_3BD& point = KnownEntityData(*vertex, &EntityTio::VERTEX_3D).point;
    points.Point(point.x, point.y, point.z);
  }
  points.Close();
}

void AppendPolyline2d(JsonOut& out, const Dwg_Entity_POLYLINE_2D& polyline,
                      const EntityContext& context, const EntityOrigin& origin) {
  const VertexIndex& index = FollowingVertices(context);
  auto vertices = index.PointsAfter(origin.object);
  if (vertices.empty()) {
    vertices = index.FramePointsAfter(origin.object);
  }
  AppendVertices2d(out, polyline.flag, vertices);
}

void AppendPolyline3d(JsonOut& out, const Dwg_Entity_POLYLINE_3D& polyline,
                      const EntityContext& context, const EntityOrigin& origin) {
  AppendVertices3d(out, polyline.flag,
                   FollowingVertices(context).SpatialPointsAfter(origin.object));
}
