#include "text/multileader.hpp"

#include <cstddef>

#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"
#include "text/mtext_to_html.hpp"

namespace {

// Nothing for a line of one point.
void AppendLeaderLine(JsonOut& out, const Dwg_LEADER_Line& line) {
  const auto points = SpanOf(line.points, line.num_points);
  if (points.size() < 2) {
    return;
  }
  JsonList coordinates(out);
  for (const BITCODE_3DPOINT& point : points) {
    coordinates.Pair(point.x, point.y);
  }
  coordinates.Close();
}

void AppendDogleg(JsonOut& out, const Dwg_LEADER_Node& root) {
  if (root.has_dogleg == 0 || root.dogleg_length == 0) {
    return;
  }
  const BITCODE_3BD& start = root.lastleaderlinepoint;
  JsonList coordinates(out);
  coordinates.Pair(start.x, start.y);
  coordinates.Pair(start.x + root.dogleg_vector.x * root.dogleg_length,
                   start.y + root.dogleg_vector.y * root.dogleg_length);
  coordinates.Close();
}

void AppendText(JsonOut& out, const Dwg_MLEADER_AnnotContext& annotation,
                const EntityContext& context) {
  if (annotation.has_content_txt == 0) {
    return;
  }
  const Dwg_MLEADER_Content_MText& content = annotation.content.txt;
  const DecodedText text = context.Decode(content.default_text);
  if (text.view().empty()) {
    return;
  }
  const double height = content.height > 0 ? content.height : annotation.text_height;
  MtextLayout layout;  // what HTML cannot carry is not written for multileaders
  out += ",\"text\":{\"html\":\"";
  std::string room;
  AppendMtextHtml(out, context.drawing.Shown(text.view(), room), height, layout,
                  context.drawing.palette);
  out += '"';
  AppendNumberKey(out, ",\"x\":", content.location.x);
  AppendNumberKey(out, ",\"y\":", content.location.y);
  AppendNumberKey(out, ",\"height\":", height);
  AppendNumberKey(out, ",\"rotationRad\":", content.rotation);
  out += '}';
}

}  // namespace

void AppendMultileaderContent(JsonOut& out, const Dwg_Entity_MULTILEADER& multileader,
                              const EntityContext& context) {
  const Dwg_MLEADER_AnnotContext& annotation = multileader.ctx;
  AppendNumberKey(out, ",\"arrowSize\":",
                  annotation.arrow_size > 0 ? annotation.arrow_size : multileader.arrow_size);
  AppendText(out, annotation, context);
}

void AppendMultileader(JsonOut& out, const Dwg_Entity_MULTILEADER& multileader,
                       const EntityContext& context) {
  const Dwg_MLEADER_AnnotContext& annotation = multileader.ctx;
  const std::size_t start = out.size();
  JsonList lines(out, ",\"lines\":[");
  for (const Dwg_LEADER_Node& root : SpanOf(annotation.leaders, annotation.num_leaders)) {
    for (const Dwg_LEADER_Line& line : SpanOf(root.lines, root.num_lines)) {
      lines.Item([&] { AppendLeaderLine(out, line); });
    }
    lines.Item([&] { AppendDogleg(out, root); });
  }
  if (lines.IsEmpty()) {
    out.Truncate(start);
    return;
  }
  lines.Close();
  AppendMultileaderContent(out, multileader, context);
}
