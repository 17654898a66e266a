#include "entities/wipeout.hpp"

#include "encode/json_list.hpp"
#include "entities/drawing_access.hpp"

namespace {

constexpr unsigned kShow = 1;

}  // namespace

void AppendWipeout(JsonOut& out, const Dwg_Entity_WIPEOUT& wipeout) {
  const auto vertices = SpanOf(wipeout.clip_verts, wipeout.num_clip_verts);
  if ((wipeout.display_props & kShow) == 0 || vertices.empty()) {
    return;
  }
  JsonList points(out, ",\"verts\":[");
  for (const BITCODE_2RD& vertex : vertices) {
    // The unit frame has its origin in the centre and its v axis downward.
    const double a = vertex.x + 0.5;
    const double b = 0.5 - vertex.y;
    points.Point(wipeout.pt0.x + a * wipeout.uvec.x + b * wipeout.vvec.x,
                 wipeout.pt0.y + a * wipeout.uvec.y + b * wipeout.vvec.y);
  }
  points.Close();
}
