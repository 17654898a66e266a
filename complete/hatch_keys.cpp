#include "complete/hatch_keys.hpp"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

#include "complete/attached_data.hpp"
#include "complete/common_keys.hpp"
#include "complete/hatch_loops.hpp"
#include "complete/plane_keys.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/color.hpp"
#include "entities/stored_flags.hpp"

namespace {

constexpr unsigned kMethodShift = 24;

void AppendFlatPoint(JsonOut& out, std::string_view key, double x, double y) {
  out += key;
  JsonList point(out);
  point.Pair(x, y);
  point.Close();
}

void AppendPatternLine(JsonOut& out, const Dwg_HATCH_DefLine& line) {
  AppendNumberKey(out, "{\"angle\":", line.angle);
  AppendFlatPoint(out, ",\"base\":", line.pt0.x, line.pt0.y);
  AppendFlatPoint(out, ",\"offset\":", line.offset.x, line.offset.y);
  JsonList dashes(out, ",\"dashes\":[");
  for (const double dash : SpanOf(line.dashes, line.num_dashes)) {
    dashes.Number(dash);
  }
  dashes.Close();
  out += '}';
}

void AppendPattern(JsonOut& out, const Dwg_Entity_HATCH& hatch, const CompleteContext& context) {
  AppendQuotedKey(out, ",\"pattern\":{\"name\":", context.Decode(hatch.name));
  AppendIntKey(out, ",\"type\":", hatch.pattern_type);
  if (hatch.is_solid_fill == 0) {
    AppendNumberKey(out, ",\"angle\":", hatch.angle);
    AppendNumberKey(out, ",\"scale\":", hatch.scale_spacing);
    AppendBoolKey(out, ",\"double\":", hatch.double_flag != 0);
    JsonList lines(out, ",\"lines\":[");
    for (const Dwg_HATCH_DefLine& line : SpanOf(hatch.deflines, hatch.num_deflines)) {
      lines.Item([&] { AppendPatternLine(out, line); });
    }
    lines.Close();
  }
  out += '}';
}

// A text has an index and, where there is one, the true colour without its method. The
// reader gives an index the word of a colour, as if that were a true one.
Dwg_Color StopColor(const Dwg_Color& stored, const CompleteContext& context) {
  Dwg_Color color = stored;
  if (ColorMethod(color) == 0 && color.rgb != 0) {
    color.rgb |= kMethodTrueColor << kMethodShift;
  } else if (context.tables.isDxf && ColorMethod(color) == kMethodIndexed && color.index >= 0) {
    color.rgb = kMethodIndexed << kMethodShift | static_cast<std::uint32_t>(color.index);
  }
  return color;
}

void AppendGradient(JsonOut& out, const Dwg_Entity_HATCH& hatch, const CompleteContext& context) {
  if (hatch.is_gradient_fill == 0) {
    return;
  }
  AppendQuotedKey(out, ",\"gradient\":{\"name\":", context.Decode(hatch.gradient_name));
  AppendNumberKey(out, ",\"angle\":", hatch.gradient_angle);
  AppendNumberKey(out, ",\"shift\":", hatch.gradient_shift);
  AppendBoolKey(out, ",\"oneColor\":", hatch.single_color_gradient != 0);
  AppendNumberKey(out, ",\"tint\":", hatch.gradient_tint);
  JsonList colors(out, ",\"colors\":[");
  for (const Dwg_HATCH_Color& stop : SpanOf(hatch.colors, hatch.num_colors)) {
    colors.Item([&] {
      AppendNumberKey(out, "{\"at\":", stop.shift_value);
      AppendWordColor(out, ",\"color\":", StopColor(stop.color, context), context);
      out += '}';
    });
  }
  colors.Close();
  out += '}';
}

void AppendBackground(JsonOut& out, const EntityOrigin& origin, const CompleteContext& context) {
  const Dwg_Eed_Data* found = nullptr;
  ForEachAttached(AttachedDataOf(origin.object), context.tables.hatchBackgroundApplication,
                  [&](const Dwg_Eed_Data& value) {
                    if (value.code == kAttachedLong) {
                      found = &value;
                    }
                  });
  if (found == nullptr) {
    return;
  }
  Dwg_Color color{};
  color.rgb = found->u.eed_71.rl;
  const std::uint32_t method = ColorMethod(color);
  if (method == kMethodTrueColor || method == kMethodIndexed) {
    AppendWordColor(out, ",\"background\":", color, context);
  }
}

void AppendPolylineBoundary(JsonOut& out, const Dwg_HATCH_Path& path) {
  const auto vertices = SpanOf(path.polyline_paths, path.num_segs_or_paths);
  AppendBoolKey(out, ",\"closed\":", path.closed != 0);
  JsonList points(out, ",\"points\":[");
  for (const auto& vertex : vertices) {
    points.Point(vertex.point.x, vertex.point.y);
  }
  points.Close();
  if (path.bulges_present == 0 ||
      std::all_of(vertices.begin(), vertices.end(), [](const auto& v) { return v.bulge == 0; })) {
    return;
  }
  JsonList bulges(out, ",\"bulges\":[");
  for (const auto& vertex : vertices) {
    bulges.Number(vertex.bulge);
  }
  bulges.Close();
}

void AppendSweep(JsonOut& out, const Dwg_HATCH_PathSeg& segment) {
  AppendNumberKey(out, ",\"startAngleRad\":", segment.start_angle);
  AppendNumberKey(out, ",\"endAngleRad\":", segment.end_angle);
  AppendBoolKey(out, ",\"ccw\":", segment.is_ccw != 0);
}

// A weight of 0 was never stored: the reader leaves it so.
bool HasWeights(std::span<const Dwg_HATCH_ControlPoint> controls) {
  return std::any_of(controls.begin(), controls.end(),
                     [](const auto& control) { return control.weight != 0; });
}

void AppendSplineEdge(JsonOut& out, const Dwg_HATCH_PathSeg& segment) {
  AppendIntKey(out, "{\"type\":\"spline\",\"degree\":", segment.degree);
  AppendBoolKey(out, ",\"periodic\":", segment.is_periodic != 0);
  JsonList knots(out, ",\"knots\":[");
  for (const double knot : SpanOf(segment.knots, segment.num_knots)) {
    knots.Number(knot);
  }
  knots.Close();
  const auto controls = SpanOf(segment.control_points, segment.num_control_points);
  JsonList points(out, ",\"controlPoints\":[");
  for (const Dwg_HATCH_ControlPoint& control : controls) {
    points.Point(control.point.x, control.point.y);
  }
  points.Close();
  if (segment.is_rational != 0 && HasWeights(controls)) {
    JsonList weights(out, ",\"weights\":[");
    for (const Dwg_HATCH_ControlPoint& control : controls) {
      weights.Number(control.weight);
    }
    weights.Close();
  }
  const auto fitPoints = SpanOf(segment.fitpts, segment.num_fitpts);
  if (!fitPoints.empty()) {
    JsonList list(out, ",\"fitPoints\":[");
    for (const BITCODE_2RD& point : fitPoints) {
      list.Point(point.x, point.y);
    }
    list.Close();
    AppendFlatPoint(out, ",\"startTangent\":", segment.start_tangent.x, segment.start_tangent.y);
    AppendFlatPoint(out, ",\"endTangent\":", segment.end_tangent.x, segment.end_tangent.y);
  }
  out += '}';
}

// Nothing for an edge of no known kind.
void AppendEdge(JsonOut& out, const Dwg_HATCH_PathSeg& segment) {
  switch (segment.curve_type) {
    case 1:
      AppendFlatPoint(out, "{\"type\":\"line\",\"start\":", segment.first_endpoint.x,
                      segment.first_endpoint.y);
      AppendFlatPoint(out, ",\"end\":", segment.second_endpoint.x, segment.second_endpoint.y);
      out += '}';
      break;
    case 2:
      AppendFlatPoint(out, "{\"type\":\"arc\",\"center\":", segment.center.x, segment.center.y);
      AppendNumberKey(out, ",\"radius\":", segment.radius);
      AppendSweep(out, segment);
      out += '}';
      break;
    case 3:
      AppendFlatPoint(out, "{\"type\":\"ellipse\",\"center\":", segment.center.x, segment.center.y);
      AppendFlatPoint(out, ",\"majorAxis\":", segment.endpoint.x, segment.endpoint.y);
      AppendNumberKey(out, ",\"axisRatio\":", segment.minor_major_ratio);
      AppendSweep(out, segment);
      out += '}';
      break;
    case 4: AppendSplineEdge(out, segment); break;
    default: break;
  }
}

void AppendBoundaryPath(JsonOut& out, const Dwg_HATCH_Path& path) {
  AppendIntKey(out, "{\"flags\":", path.flag);
  if (IsPolylinePath(path)) {
    AppendPolylineBoundary(out, path);
  } else {
    JsonList edges(out, ",\"edges\":[");
    for (const Dwg_HATCH_PathSeg& segment : SpanOf(path.segs, path.num_segs_or_paths)) {
      edges.Item([&] { AppendEdge(out, segment); });
    }
    edges.Close();
  }
  const auto sources = SpanOf(path.boundary_handles, path.num_boundary_handles);
  if (!sources.empty()) {
    JsonList handles(out, ",\"sources\":[");
    for (const Dwg_Object_Ref* source : sources) {
      handles.Item([&] { AppendHandleKey(out, "", HandleOf(source)); });
    }
    handles.Close();
  }
  out += '}';
}

void AppendSeeds(JsonOut& out, std::span<const BITCODE_2RD> seeds) {
  if (seeds.empty()) {
    return;
  }
  JsonList list(out, ",\"seeds\":[");
  for (const BITCODE_2RD& seed : seeds) {
    list.Point(seed.x, seed.y);
  }
  list.Close();
}

}  // namespace

void AppendHatchFurtherKeys(JsonOut& out, const Dwg_Entity_HATCH& hatch,
                            const CompleteContext& context, const EntityOrigin& origin) {
  AppendPattern(out, hatch, context);
  AppendGradient(out, hatch, context);
  AppendBackground(out, origin, context);
  AppendIntKey(out, ",\"islandStyle\":", hatch.style);
  if (hatch.is_associative != 0) {
    out += ",\"associative\":true";
  }
  JsonList boundary(out, ",\"boundary\":[");
  for (const Dwg_HATCH_Path& path : SpanOf(hatch.paths, hatch.num_paths)) {
    boundary.Item([&] { AppendBoundaryPath(out, path); });
  }
  boundary.Close();
  AppendSeeds(out, SpanOf(hatch.seeds, hatch.num_seeds));
  AppendPlaneKeys(out, hatch.elevation, 0, hatch.extrusion);
  AppendHatchWorld(out, hatch);
}

void AppendMpolygonFurtherKeys(JsonOut& out, const Dwg_Entity_HATCH& polygon,
                               const CompleteContext& context, const EntityOrigin& origin) {
  AppendHatchFurtherKeys(out, polygon, context, origin);
  const auto colors = SpanOf(polygon.colors, polygon.num_colors);
  if (polygon.is_gradient_fill == 0 && !colors.empty()) {
    AppendWordColor(out, ",\"fillColor\":", StopColor(colors.front().color, context), context);
  }
}
