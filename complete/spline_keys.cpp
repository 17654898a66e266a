#include "complete/spline_keys.hpp"

#include <algorithm>
#include <span>
#include <string_view>

#include "complete/common_keys.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"

namespace {

void AppendKnots(JsonOut& out, std::span<const double> knots) {
  if (knots.empty()) {
    return;
  }
  JsonList list(out, ",\"knots\":[");
  for (const double knot : knots) {
    list.Number(knot);
  }
  list.Close();
}

// A weight of 0 was never stored: the reader leaves it so.
double WeightOf(const Dwg_SPLINE_control_point& point) {
  return point.w == 0 ? 1 : point.w;
}

void AppendWeights(JsonOut& out, std::span<const Dwg_SPLINE_control_point> points) {
  if (std::all_of(points.begin(), points.end(),
                  [](const auto& point) { return WeightOf(point) == 1; })) {
    return;
  }
  JsonList list(out, ",\"weights\":[");
  for (const Dwg_SPLINE_control_point& point : points) {
    list.Number(WeightOf(point));
  }
  list.Close();
}

template <typename Point>
void AppendPoints(JsonOut& out, std::string_view opening, std::span<const Point> points) {
  if (points.empty()) {
    return;
  }
  JsonList list(out, opening);
  for (const Point& point : points) {
    list.Point(point.x, point.y, point.z);
  }
  list.Close();
}

void AppendTangent(JsonOut& out, std::string_view key, const BITCODE_3BD& tangent) {
  if (tangent.x != 0 || tangent.y != 0 || tangent.z != 0) {
    AppendPointKey(out, key, tangent.x, tangent.y, tangent.z);
  }
}

}  // namespace

void AppendSplineFurtherKeys(JsonOut& out, const Dwg_Entity_SPLINE& spline) {
  const auto controlPoints = SpanOf(spline.ctrl_pts, spline.num_ctrl_pts);
  AppendIntKey(out, ",\"degree\":", spline.degree);
  if (spline.periodic != 0) {
    out += ",\"periodic\":true";
  }
  AppendKnots(out, SpanOf(spline.knots, spline.num_knots));
  AppendWeights(out, controlPoints);
  AppendPoints(out, ",\"controlPoints\":[", controlPoints);
  AppendPoints(out, ",\"fitPoints\":[", SpanOf(spline.fit_pts, spline.num_fit_pts));
  AppendTangent(out, ",\"startTangent\":", spline.beg_tan_vec);
  AppendTangent(out, ",\"endTangent\":", spline.end_tan_vec);
}
