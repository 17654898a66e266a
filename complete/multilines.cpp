#include "complete/multilines.hpp"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "complete/common_keys.hpp"
#include "complete/lookup.hpp"
#include "complete/property_color.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"

namespace {

using Vertices = std::span<const Dwg_MLINE_vertex>;
using Point = BITCODE_3BD;

// Bits of the entity's flags.
constexpr unsigned kClosed = 2;
constexpr unsigned kNoStartCaps = 4;
constexpr unsigned kNoEndCaps = 8;

// Bits of the style's flags.
constexpr unsigned kFilled = 1;
constexpr unsigned kShowsMiters = 2;
constexpr unsigned kStartCaps = 16;
constexpr unsigned kEndCaps = 256;

Point Along(const Point& from, const Point& direction, double distance) {
  return {from.x + direction.x * distance, from.y + direction.y * distance,
          from.z + direction.z * distance};
}

// Where an element crosses the miter of a vertex, and the distances along the
// segment behind it at which the element begins and ends in turn.
// A text may leave out the distances along the miters: then they follow from the
// style's offsets, which are measured across the path.
class Offsets {
 public:
  Offsets(const Dwg_Entity_MLINE& multiline, std::span<const Dwg_MLINESTYLE_line> elements)
      : elements_(elements), scale_(multiline.scale), normal_(multiline.extrusion) {
    const auto byOffset = [](const auto& a, const auto& b) { return a.offset < b.offset; };
    const auto [least, greatest] = std::minmax_element(elements.begin(), elements.end(), byOffset);
    constexpr unsigned kTop = 0;
    constexpr unsigned kBottom = 2;
    if (!elements.empty() && multiline.justification == kTop) {
      base_ = greatest->offset;
    } else if (!elements.empty() && multiline.justification == kBottom) {
      base_ = least->offset;
    }
  }

  // Along the vertex' miter; 0 where that runs along the path.
  double Along(const Dwg_MLINE_vertex& vertex, std::size_t element) const {
    if (element >= elements_.size()) {
      return 0;
    }
    const Point& direction = vertex.vertex_direction;
    const Point& miter = vertex.miter_direction;
    const double across = miter.x * (normal_.y * direction.z - normal_.z * direction.y) +
                          miter.y * (normal_.z * direction.x - normal_.x * direction.z) +
                          miter.z * (normal_.x * direction.y - normal_.y * direction.x);
    return across == 0 ? 0 : (elements_[element].offset - base_) * scale_ / across;
  }

 private:
  std::span<const Dwg_MLINESTYLE_line> elements_;
  double scale_;
  Point normal_;
  double base_ = 0;
};

struct Path {
  Vertices vertices;
  bool isClosed;
  Offsets offsets;
  bool hasDistances;  // along the miters
};

struct Crossing {
  Point point;
  std::span<const double> changes;
};

Crossing CrossingOf(const Dwg_MLINE_vertex& vertex, std::size_t element, const Path& path) {
  if (!path.hasDistances) {
    const double distance = path.offsets.Along(vertex, element);
    return {.point = Along(vertex.vertex, vertex.miter_direction, distance), .changes = {}};
  }
  const auto lines = SpanOf(vertex.lines, vertex.num_lines);
  if (element >= lines.size()) {
    return {.point = vertex.vertex, .changes = {}};
  }
  const auto parameters = SpanOf(lines[element].segparms, lines[element].num_segparms);
  if (parameters.empty()) {
    return {.point = vertex.vertex, .changes = {}};
  }
  return {.point = Along(vertex.vertex, vertex.miter_direction, parameters.front()),
          .changes = parameters.subspan(1)};
}

// Collects the drawn stretches of one element, joining those that touch at a vertex.
class Stretches {
 public:
  explicit Stretches(JsonOut& out) : out_(out), list_(out, ",\"lines\":[") {}

  void Add(const Point& start, const Point& end, bool continues) {
    if (!continues || points_.empty()) {
      Flush();
      points_.push_back(start);
    }
    points_.push_back(end);
  }

  void Close() {
    Flush();
    list_.Close();
  }

 private:
  void Flush() {
    if (points_.empty()) {
      return;
    }
    list_.Item([&] {
      JsonList line(out_);
      for (const Point& point : points_) {
        line.Point(point.x, point.y, point.z);
      }
      line.Close();
    });
    points_.clear();
  }

  JsonOut& out_;
  JsonList list_;
  std::vector<Point> points_;
};

// Adds one segment's stretches. `continues` says whether the element reached the
// segment's start; the result, whether it reaches its end.
bool AddSegment(Stretches& stretches, const Crossing& from, const Crossing& to,
                const Point& direction, bool continues) {
  const auto changes = from.changes;
  if (changes.empty()) {
    stretches.Add(from.point, to.point, continues);
    return true;
  }
  bool reachesEnd = false;
  for (std::size_t i = 0; i < changes.size(); i += 2) {
    const bool startsAtVertex = i == 0 && changes[0] == 0;
    const Point start = startsAtVertex ? from.point : Along(from.point, direction, changes[i]);
    reachesEnd = i + 1 == changes.size();
    const Point end = reachesEnd ? to.point : Along(from.point, direction, changes[i + 1]);
    stretches.Add(start, end, startsAtVertex && continues);
  }
  return reachesEnd;
}

void AppendElementLines(JsonOut& out, const Path& path, std::size_t element) {
  const Vertices vertices = path.vertices;
  Stretches stretches(out);
  bool continues = false;
  const std::size_t segments = path.isClosed ? vertices.size() : vertices.size() - 1;
  for (std::size_t i = 0; i < segments; ++i) {
    const Dwg_MLINE_vertex& next = vertices[i + 1 == vertices.size() ? 0 : i + 1];
    continues =
        AddSegment(stretches, CrossingOf(vertices[i], element, path),
                   CrossingOf(next, element, path), vertices[i].vertex_direction, continues);
  }
  stretches.Close();
}

// Up to release 2018 an index among the drawing's line types, with two that stand
// for layer and block.
void AppendElementLinetype(JsonOut& out, const Dwg_MLINESTYLE_line& element,
                           const CompleteContext& context) {
  constexpr int kByLayer = 32767;
  constexpr int kByBlock = 32766;
  if (const std::string* name = context.tables.linetypes.Find(HandleOf(element.lt_ltype))) {
    out += *name;
    return;
  }
  if (element.lt_index == kByLayer || element.lt_index == kByBlock) {
    out += element.lt_index == kByLayer ? "\"L\"" : "\"K\"";
    return;
  }
  const auto* control =
      ReferencedObject(context.dwg().header_vars.LTYPE_CONTROL_OBJECT, DWG_TYPE_LTYPE_CONTROL,
                       &ObjectTio::LTYPE_CONTROL, context);
  const auto entries = control == nullptr
                           ? std::span<const BITCODE_H>{}
                           : SpanOf<BITCODE_H>(control->entries, control->num_entries);
  const auto index = static_cast<std::size_t>(element.lt_index);
  const std::string* name = element.lt_index > 0 && index < entries.size()
                                ? context.tables.linetypes.Find(HandleOf(entries[index]))
                                : nullptr;
  out += name == nullptr ? std::string_view{"\"Continuous\""} : std::string_view{*name};
}

void AppendElement(JsonOut& out, const Dwg_MLINESTYLE_line* style, const Path& path,
                   std::size_t element, const CompleteContext& context) {
  AppendNumberKey(out, "{\"offset\":", style == nullptr ? 0 : style->offset);
  out += ",\"color\":";
  if (style == nullptr) {
    out += "\"K\",\"linetype\":\"K\"";
  } else {
    AppendPropertyColor(out, style->color, context);
    out += ",\"linetype\":";
    AppendElementLinetype(out, *style, context);
  }
  AppendElementLines(out, path, element);
  out += '}';
}

// Whether any element lies beside the path.
bool HasDistances(Vertices vertices) {
  for (const Dwg_MLINE_vertex& vertex : vertices) {
    for (const Dwg_MLINE_line& line : SpanOf(vertex.lines, vertex.num_lines)) {
      const auto parameters = SpanOf(line.segparms, line.num_segparms);
      if (!parameters.empty() && parameters.front() != 0) {
        return true;
      }
    }
  }
  return false;
}

void AppendPath(JsonOut& out, Vertices vertices) {
  JsonList points(out, ",\"points\":[");
  for (const Dwg_MLINE_vertex& vertex : vertices) {
    points.Point(vertex.vertex.x, vertex.vertex.y, vertex.vertex.z);
  }
  points.Close();
  JsonList directions(out, ",\"directions\":[");
  for (const Dwg_MLINE_vertex& vertex : vertices) {
    directions.Point(vertex.vertex_direction.x, vertex.vertex_direction.y,
                     vertex.vertex_direction.z);
  }
  directions.Close();
  JsonList miters(out, ",\"miters\":[");
  for (const Dwg_MLINE_vertex& vertex : vertices) {
    miters.Point(vertex.miter_direction.x, vertex.miter_direction.y, vertex.miter_direction.z);
  }
  miters.Close();
}

// The three kinds of caps have neighbouring bits, with one unused after the first.
void AppendCaps(JsonOut& out, std::string_view key, unsigned flags, double angle) {
  constexpr unsigned kLine = 1;
  constexpr unsigned kInnerArcs = 2;
  constexpr unsigned kOuterArc = 4;
  out += key;
  AppendBoolKey(out, "{\"line\":", (flags & kLine) != 0);
  AppendBoolKey(out, ",\"innerArcs\":", (flags & kInnerArcs) != 0);
  AppendBoolKey(out, ",\"outerArc\":", (flags & kOuterArc) != 0);
  AppendNumberKey(out, ",\"angleRad\":", angle);
  out += '}';
}

void AppendStyle(JsonOut& out, const Dwg_Object_MLINESTYLE& style, unsigned flags,
                 const CompleteContext& context) {
  AppendQuotedKey(out, ",\"style\":", context.Decode(style.name));
  if ((style.flag & kFilled) != 0) {
    out += ",\"fillColor\":";
    AppendPropertyColor(out, style.fill_color, context);
  }
  AppendBoolKey(out, ",\"showsMiters\":", (style.flag & kShowsMiters) != 0);
  const unsigned start = (flags & kNoStartCaps) != 0 ? 0 : style.flag / kStartCaps;
  const unsigned end = (flags & kNoEndCaps) != 0 ? 0 : style.flag / kEndCaps;
  AppendCaps(out, ",\"startCaps\":", start, style.start_angle);
  AppendCaps(out, ",\"endCaps\":", end, style.end_angle);
}

}  // namespace

void AppendMultiline(JsonOut& out, const Dwg_Entity_MLINE& multiline,
                     const CompleteContext& context) {
  const Vertices vertices = SpanOf(multiline.verts, multiline.num_verts);
  if (vertices.empty()) {
    return;
  }
  const bool isClosed = (multiline.flags & kClosed) != 0;
  AppendBoolKey(out, ",\"closed\":", isClosed);
  AppendPath(out, vertices);
  AppendNumberKey(out, ",\"scale\":", multiline.scale);
  AppendIntKey(out, ",\"justification\":", multiline.justification);
  AppendPointKey(out, ",\"base\":", multiline.base_point.x, multiline.base_point.y,
                 multiline.base_point.z);
  const auto* style =
      ReferencedObject(multiline.mlinestyle, DWG_TYPE_MLINESTYLE, &ObjectTio::MLINESTYLE, context);
  if (style != nullptr) {
    AppendStyle(out, *style, multiline.flags, context);
  }
  const auto elements = style == nullptr ? std::span<const Dwg_MLINESTYLE_line>{}
                                         : SpanOf(style->lines, style->num_lines);
  const Path path{.vertices = vertices,
                  .isClosed = isClosed,
                  .offsets = Offsets(multiline, elements),
                  .hasDistances = HasDistances(vertices)};
  JsonList list(out, ",\"elements\":[");
  for (std::size_t i = 0; i < multiline.num_lines; ++i) {
    list.Item([&] {
      AppendElement(out, i < elements.size() ? &elements[i] : nullptr, path, i, context);
    });
  }
  list.Close();
}
