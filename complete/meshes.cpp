#include "complete/meshes.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <span>
#include <string_view>
#include <vector>

#include "complete/lookup.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/color.hpp"
#include "entities/drawing_access.hpp"

namespace {

// Bits of a mesh's flags.
constexpr unsigned kClosedInM = 1;
constexpr unsigned kClosedInN = 32;

// Bits of a vertex' flags.
constexpr unsigned kFitPoint = 8;
constexpr unsigned kControlPoint = 16;

bool IsMeshPart(const Dwg_Object& object) {
  switch (object.fixedtype) {
    case DWG_TYPE_VERTEX_2D:
    case DWG_TYPE_VERTEX_3D:
    case DWG_TYPE_VERTEX_MESH:
    case DWG_TYPE_VERTEX_PFACE:
    case DWG_TYPE_VERTEX_PFACE_FACE: return true;
    default: return false;
  }
}

using Parts = std::vector<const Dwg_Object*>;

// Drawings of release 2004 and later list the handles; in others the parts follow
// the mesh, up to the first object that is none.
template <typename Mesh>
Parts PartsOf(const Mesh& mesh, const Dwg_Object& object, const CompleteContext& context) {
  Parts parts;
  for (const Dwg_Object_Ref* reference : SpanOf<BITCODE_H>(mesh.vertex, mesh.num_owned)) {
    const Dwg_Object* part = ObjectAt(HandleOf(reference), context);
    if (part != nullptr && IsMeshPart(*part)) {
      parts.push_back(part);
    }
  }
  if (!parts.empty()) {
    return parts;
  }
  const auto objects = Objects(context.dwg());
  std::size_t next = object.index;
  while (++next < objects.size() && IsMeshPart(objects[next])) {
    parts.push_back(&objects[next]);
  }
  return parts;
}

struct MeshVertex {
  BITCODE_3BD point;
  unsigned flag;
};

using VertexList = std::vector<MeshVertex>;

template <typename Vertex>
void AddVertex(VertexList& vertices, const Vertex* vertex) {
  if (vertex != nullptr) {
    vertices.push_back({vertex->point, vertex->flag});
  }
}

// Of a polyface mesh, where a file lacks the markers: the library's DXF reader has then no
// place for the face's numbers.
bool IsFaceRecord(const MeshVertex& vertex) {
  constexpr unsigned kMeshVertex = 64;
  constexpr unsigned kPolyfacePart = 128;
  return (vertex.flag & (kMeshVertex | kPolyfacePart)) == kPolyfacePart;
}

// The DXF reader tells the kinds of vertices by markers that some files lack, and
// leaves those of polygon meshes as it does those of plane polylines.
VertexList VerticesOf(const Parts& parts) {
  VertexList vertices;
  for (const Dwg_Object* part : parts) {
    switch (part->fixedtype) {
      case DWG_TYPE_VERTEX_2D: AddVertex(vertices, EntityData(*part, &EntityTio::VERTEX_2D)); break;
      case DWG_TYPE_VERTEX_3D: AddVertex(vertices, EntityData(*part, &EntityTio::VERTEX_3D)); break;
      case DWG_TYPE_VERTEX_MESH:
        AddVertex(vertices, EntityData(*part, &EntityTio::VERTEX_MESH));
        break;
      case DWG_TYPE_VERTEX_PFACE:
        AddVertex(vertices, EntityData(*part, &EntityTio::VERTEX_PFACE));
        break;
      default: break;
    }
  }
  return vertices;
}

void AppendPoints(JsonOut& out, std::string_view key, const VertexList& vertices) {
  JsonList points(out, key);
  for (const MeshVertex& vertex : vertices) {
    points.Point(vertex.point.x, vertex.point.y, vertex.point.z);
  }
  points.Close();
}

// Numbers count from 1; a negative one hides the edge behind its vertex, 0 is none.
void AppendFaceEdges(JsonOut& out, const Dwg_Entity_VERTEX_PFACE_FACE& face) {
  JsonList vertices(out, "{\"vertices\":[");
  for (const BITCODE_BSd index : face.vertind) {
    if (index != 0) {
      vertices.Item([&] { AppendInt(out, std::abs(static_cast<int>(index)) - 1); });
    }
  }
  vertices.Close();
  JsonList edges(out, ",\"edges\":[");
  for (const BITCODE_BSd index : face.vertind) {
    if (index != 0) {
      edges.Item([&] { out += index > 0 ? "true" : "false"; });
    }
  }
  edges.Close();
}

void AppendFace(JsonOut& out, const Dwg_Object& object, const Dwg_Object_Entity& mesh,
                const CompleteContext& context) {
  const auto* face = EntityData(object, &EntityTio::VERTEX_PFACE_FACE);
  if (object.fixedtype != DWG_TYPE_VERTEX_PFACE_FACE || face == nullptr) {
    return;
  }
  AppendFaceEdges(out, *face);
  const Dwg_Object_Entity& entity = *object.tio.entity;
  out += ",\"color\":";
  AppendColor(out, entity.color, context.base.drawing.palette);
  if (HandleOf(entity.layer) != HandleOf(mesh.layer)) {
    out += ",\"layer\":";
    out += context.base.tables.layers.Of(entity).quoted;
  }
  out += '}';
}

// A list of counts, each before as many numbers of points.
void AppendFaceList(JsonOut& out, std::span<const BITCODE_BL> numbers) {
  JsonList faces(out, ",\"faces\":[");
  for (std::size_t at = 0; at < numbers.size();) {
    const std::size_t left = numbers.size() - at - 1;
    const std::size_t count = std::min<std::size_t>(numbers[at], left);
    faces.Item([&] {
      JsonList face(out);
      for (const BITCODE_BL index : numbers.subspan(at + 1, count)) {
        face.Item([&] { AppendInt(out, index); });
      }
      face.Close();
    });
    at += count + 1;
  }
  faces.Close();
}

void AppendEdgeList(JsonOut& out, std::span<const Dwg_MESH_edge> edges,
                    std::span<const BITCODE_BD> creases) {
  JsonList list(out, ",\"edges\":[");
  for (const Dwg_MESH_edge& edge : edges) {
    list.Item([&] {
      AppendIntKey(out, "[", edge.idxfrom);
      AppendIntKey(out, ",", edge.idxto);
      out += ']';
    });
  }
  list.Close();
  JsonList values(out, ",\"creases\":[");
  for (const BITCODE_BD crease : creases) {
    values.Number(crease);
  }
  values.Close();
}

}  // namespace

void AppendPolygonMesh(JsonOut& out, const Dwg_Entity_POLYLINE_MESH& mesh,
                       const CompleteContext& context, const EntityOrigin& origin) {
  const VertexList all = VerticesOf(PartsOf(mesh, origin.object, context));
  VertexList fit;
  VertexList control;
  for (const MeshVertex& vertex : all) {
    ((vertex.flag & kControlPoint) != 0 ? control : fit).push_back(vertex);
  }
  if (all.empty()) {
    return;
  }
  const bool isSmoothed = !control.empty() && (fit.empty() || (fit.front().flag & kFitPoint) != 0);
  const bool hasDensity = isSmoothed && mesh.m_density != 0 && mesh.n_density != 0;
  AppendIntKey(out, ",\"m\":", hasDensity ? mesh.m_density : mesh.num_m_verts);
  AppendIntKey(out, ",\"n\":", hasDensity ? mesh.n_density : mesh.num_n_verts);
  AppendBoolKey(out, ",\"closedM\":", (mesh.flag & kClosedInM) != 0);
  AppendBoolKey(out, ",\"closedN\":", (mesh.flag & kClosedInN) != 0);
  AppendPoints(out, ",\"points\":[", fit.empty() ? control : fit);
  if (isSmoothed && !fit.empty()) {
    AppendIntKey(out, ",\"curveType\":", mesh.curve_type);
    AppendIntKey(out, ",\"controlM\":", mesh.num_m_verts);
    AppendIntKey(out, ",\"controlN\":", mesh.num_n_verts);
    AppendPoints(out, ",\"controlPoints\":[", control);
  }
}

void AppendPolyfaceMesh(JsonOut& out, const Dwg_Entity_POLYLINE_PFACE& mesh,
                        const CompleteContext& context, const EntityOrigin& origin) {
  const Parts parts = PartsOf(mesh, origin.object, context);
  VertexList vertices = VerticesOf(parts);
  std::erase_if(vertices, IsFaceRecord);
  if (vertices.empty()) {
    return;
  }
  AppendPoints(out, ",\"points\":[", vertices);
  JsonList faces(out, ",\"faces\":[");
  for (const Dwg_Object* part : parts) {
    faces.Item([&] { AppendFace(out, *part, *origin.object.tio.entity, context); });
  }
  faces.Close();
}

void AppendSubdivisionMesh(JsonOut& out, const Dwg_Entity_MESH& mesh) {
  const auto vertices = SpanOf(mesh.vertex, mesh.num_vertex);
  if (vertices.empty()) {
    return;
  }
  JsonList points(out, ",\"points\":[");
  for (const BITCODE_3DPOINT& vertex : vertices) {
    points.Point(vertex.x, vertex.y, vertex.z);
  }
  points.Close();
  AppendFaceList(out, SpanOf<BITCODE_BL>(mesh.faces, mesh.num_faces));
  AppendEdgeList(out, SpanOf(mesh.edges, mesh.num_edges),
                 SpanOf<BITCODE_BD>(mesh.crease, mesh.num_crease));
  AppendIntKey(out, ",\"subdivisionLevel\":", mesh.num_subdiv_vertex);
  AppendBoolKey(out, ",\"blendsCreases\":", mesh.is_watertight != 0);
}
