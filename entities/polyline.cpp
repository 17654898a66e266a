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

bool IsVertex(const Dwg_Object& object) {
  return object.fixedtype == DWG_TYPE_VERTEX_2D || object.fixedtype == DWG_TYPE_VERTEX_3D;
}

VertexRun WalkVertices(std::span<const Dwg_Object> objects, std::size_t begin) {
  VertexRun run{begin, begin, {}};
  while (run.end < objects.size() && !EndsWalk(objects[run.end])) {
    if (IsVertex(objects[run.end])) {
      run.vertices.push_back(&objects[run.end]);
    }
    ++run.end;
  }
  return run;
}

// The vertex objects that follow the polyline; valid until the next call.
std::span<const Dwg_Object* const> VerticesAfter(const Dwg_Object& polyline,
                                                 EntityContext& context) {
  const auto objects = Objects(context.dwg);
  const std::size_t begin = std::size_t{polyline.index} + 1;
  if (begin >= objects.size()) {
    return {};
  }
  VertexRun& run = context.vertexRun;
  if (begin < run.begin || begin >= run.end) {
    run = WalkVertices(objects, begin);
  }
  const auto first =
      std::lower_bound(run.vertices.begin(), run.vertices.end(), &objects[begin], std::less<>());
  return {first, run.vertices.end()};
}

struct Vertex {
  double x;
  double y;
  double bulge;
};

std::vector<Vertex> Vertices2d(std::span<const Dwg_Object* const> objects) {
  std::vector<Vertex> vertices;
  std::vector<Vertex> frame;
  for (const Dwg_Object* object : objects) {
    if (object->fixedtype != DWG_TYPE_VERTEX_2D) {
      continue;
    }
    const auto* vertex = EntityData(*object, &EntityTio::VERTEX_2D);
    if (vertex == nullptr) {
      continue;
    }
    const bool isFrame = (vertex->flag & kSplineFrameControlPoint) != 0;
    (isFrame ? frame : vertices).push_back({vertex->point.x, vertex->point.y, vertex->bulge});
  }
  return vertices.empty() ? frame : vertices;
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
  const std::vector<Vertex> vertices = Vertices2d(VerticesAfter(object, context));
  if (vertices.empty()) {
    return;
  }
  AppendBulgedRecord(out, "POLYLINE_2D", layer, (polyline.flag & kPolylineClosed) != 0,
                     vertices.size(), [&](std::size_t i) { return vertices[i]; });
}

void AppendPolyline3dRecord(JsonOut& out, const Dwg_Entity_POLYLINE_3D& polyline,
                            std::string_view layer, EntityContext& context,
                            const Dwg_Object& object) {
  const std::size_t start = out.size();
  BeginRecord(out, "POLYLINE_3D", layer);
  AppendBoolKey(out, ",\"closed\":", (polyline.flag & kPolylineClosed) != 0);
  out += ",\"points\":[";
  ListCursor points{out};
  for (const Dwg_Object* follower : VerticesAfter(object, context)) {
    if (follower->fixedtype != DWG_TYPE_VERTEX_3D) {
      continue;
    }
    if (const auto* vertex = EntityData(*follower, &EntityTio::VERTEX_3D)) {
      AppendPoint(points, vertex->point.x, vertex->point.y, vertex->point.z);
    }
  }
  if (points.first) {
    out.Truncate(start);
    return;
  }
  out += "]}";
}
