#include "text/leader.hpp"

#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"

void AppendLeader(JsonOut& out, const Dwg_Entity_LEADER& leader) {
  const auto points = SpanOf(leader.points, leader.num_points);
  if (points.size() < 2) {
    return;
  }
  JsonList list(out, ",\"points\":[");
  for (const BITCODE_3DPOINT& point : points) {
    list.Point(point.x, point.y);
  }
  list.Close();
  AppendBoolKey(out, ",\"arrowOn\":", leader.arrowhead_on != 0);
  AppendNumberKey(out, ",\"arrowSize\":", leader.dimasz);
}
