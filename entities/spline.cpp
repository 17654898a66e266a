#include "entities/spline.hpp"

#include <cmath>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"
#include "entities/nurbs.hpp"

namespace {

constexpr double kShortestTangent = 1e-10;
constexpr double kSmallestRange = 1e-12;

// Evaluation costs the square of the degree at every sample. Real degrees stay
// far below the first limit; beyond it the whole spline must be cheap.
constexpr std::size_t kAnyCountDegree = 64;
constexpr std::size_t kMaxHighDegreeWork = 100'000'000;

void AppendTangent(JsonOut& out, std::string_view key, const BITCODE_3BD& tangent) {
  if (!(std::sqrt(tangent.x * tangent.x + tangent.y * tangent.y) > kShortestTangent)) {
    return;
  }
  JsonList point(out, key);
  point.Pair(tangent.x, tangent.y);
  point.Close();
}

// Every spline is written by points that it passes through.
JsonList BeginPoints(JsonOut& out, const Dwg_Entity_SPLINE& spline) {
  AppendBoolKey(out, ",\"closed\":", spline.closed_b != 0);
  return JsonList(out, ",\"fit_pts\":[");
}

void AppendFitPoints(JsonOut& out, const Dwg_Entity_SPLINE& spline,
                     std::span<const BITCODE_3DPOINT> fitPoints) {
  JsonList points = BeginPoints(out, spline);
  for (const BITCODE_3DPOINT& point : fitPoints) {
    points.Point(point.x, point.y);
  }
  points.Close();
  AppendTangent(out, ",\"beg_tan\":[", spline.beg_tan_vec);
  AppendTangent(out, ",\"end_tan\":[", spline.end_tan_vec);
}

std::vector<ControlPoint> ControlPoints(std::span<const Dwg_SPLINE_control_point> stored) {
  std::vector<ControlPoint> points;
  points.reserve(stored.size());
  for (const Dwg_SPLINE_control_point& point : stored) {
    points.push_back({point.x, point.y, point.w == 0 ? 1.0 : point.w});
  }
  return points;
}

bool IsTooCostly(std::size_t degree, std::size_t samples) {
  const std::size_t order = degree + 1;
  return degree > kAnyCountDegree && samples > kMaxHighDegreeWork / (order * order);
}

void AppendSampledCurve(JsonOut& out, const Dwg_Entity_SPLINE& spline,
                        std::span<const double> knots,
                        std::span<const Dwg_SPLINE_control_point> controlPoints) {
  const std::size_t degree = spline.degree;
  const double start = knots[degree];
  const double range = knots[knots.size() - 1 - degree] - start;
  const std::size_t samples = SampleCount(controlPoints.size());
  if (range < kSmallestRange || IsTooCostly(degree, samples)) {
    return;
  }
  NurbsCurve curve(degree, knots, ControlPoints(controlPoints),
                   spline.rational != 0 || spline.weighted != 0);
  JsonList points = BeginPoints(out, spline);
  ForEachSample(curve, start, range, samples,
                [&](const CurvePoint& point) { points.Point(point.x, point.y); });
  points.Close();
}

void Skip(const EntityContext& context, std::string_view kind, std::string_view layer,
          std::string_view reason) {
  std::string warning = "Skipped ";
  warning += kind;
  warning += " SPLINE on layer ";
  warning += layer;
  warning += reason;
  context.Warn(std::move(warning));
}

}  // namespace

void AppendSpline(JsonOut& out, const Dwg_Entity_SPLINE& spline, const EntityContext& context,
                  const EntityOrigin& origin) {
  const auto fitPoints = SpanOf(spline.fit_pts, spline.num_fit_pts);
  if (!fitPoints.empty()) {
    AppendFitPoints(out, spline, fitPoints);
    return;
  }
  const auto controlPoints = SpanOf(spline.ctrl_pts, spline.num_ctrl_pts);
  const auto knots = SpanOf(spline.knots, spline.num_knots);
  if (controlPoints.empty() || knots.empty()) {
    Skip(context, "degenerate", origin.layer, " (no fit_pts and no ctrl_pts)");
    return;
  }
  if (knots.size() < controlPoints.size() + spline.degree + 1) {
    Skip(context, "malformed", origin.layer, " (num_knots < num_ctrl_pts + degree + 1)");
    return;
  }
  AppendSampledCurve(out, spline, knots, controlPoints);
}
