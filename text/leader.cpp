#include "text/leader.hpp"

#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"
#include "entities/entity_context.hpp"

void AppendLeaderRecord(JsonOut& out, const Dwg_Entity_LEADER& leader, std::string_view layer) {
  const auto points = SpanOf(leader.points, leader.num_points);
  if (points.size() < 2) {
    return;
  }
  BeginRecord(out, "LEADER", layer);
  out += ",\"points\":[";
  ListCursor list{out};
  for (const BITCODE_3DPOINT& point : points) {
    AppendPoint(list, point.x, point.y);
  }
  out += ']';
  AppendBoolKey(out, ",\"arrowOn\":", leader.arrowhead_on != 0);
  AppendNumberKey(out, ",\"arrowSize\":", leader.dimasz);
  out += '}';
}
