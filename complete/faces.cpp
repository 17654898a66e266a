#include "complete/faces.hpp"

#include "encode/json_list.hpp"

namespace {

constexpr unsigned kEdgeCount = 4;

}  // namespace

void AppendFace(JsonOut& out, const Dwg_Entity__3DFACE& face) {
  JsonList points(out, ",\"points\":[");
  for (const BITCODE_3BD* corner : {&face.corner1, &face.corner2, &face.corner3, &face.corner4}) {
    points.Point(corner->x, corner->y, corner->z);
  }
  points.Close();
  JsonList edges(out, ",\"edges\":[");
  for (unsigned edge = 0; edge < kEdgeCount; ++edge) {
    const bool isHidden = (face.invis_flags >> edge & 1U) != 0;
    edges.Item([&] { out += isHidden ? "false" : "true"; });
  }
  edges.Close();
}

void AppendTrace(JsonOut& out, const Dwg_Entity_TRACE& trace) {
  JsonList points(out, ",\"points\":[");
  for (const BITCODE_2RD* corner :
       {&trace.corner1, &trace.corner2, &trace.corner3, &trace.corner4}) {
    points.Point(corner->x, corner->y);
  }
  points.Close();
}
