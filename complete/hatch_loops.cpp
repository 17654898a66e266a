#include "complete/hatch_loops.hpp"

#include <cmath>
#include <cstddef>
#include <numbers>
#include <span>
#include <utility>
#include <vector>

#include "complete/plane_keys.hpp"
#include "encode/fast/portable_math.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/arc_steps.hpp"
#include "entities/drawing_access.hpp"
#include "entities/nurbs.hpp"
#include "entities/stored_flags.hpp"

namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;
constexpr double kSmallestBulge = 1e-9;
constexpr std::size_t kMinLoopPoints = 3;

// Evaluating costs the square of the degree at every sample.
constexpr std::size_t kMaxDegree = 32;

// The points of one boundary, written as they come: in the plane, or in the world.
class Loop {
 public:
  Loop(JsonOut& out, const EntityPlane* plane, double elevation)
      : coordinates_(out), plane_(plane), elevation_(elevation) {}

  void Add(double x, double y) {
    if (plane_ == nullptr) {
      coordinates_.Pair(x, y);
    } else {
      const SpacePoint point = plane_->ToWorld(x, y, elevation_);
      coordinates_.Pair(point.x, point.y);
      coordinates_.Number(point.z);
    }
    ++size_;
  }
  void Add(const BITCODE_2RD& point) { Add(point.x, point.y); }

  void Close() { coordinates_.Close(); }
  std::size_t size() const { return size_; }

 private:
  JsonList coordinates_;
  const EntityPlane* plane_;
  double elevation_;
  std::size_t size_ = 0;
};

// The points from `from` up to, but without, `to` along the arc of the bulge, which is
// the tangent of a quarter of the arc's angle, positive counter-clockwise.
void AddBulge(Loop& loop, const BITCODE_2RD& from, const BITCODE_2RD& to, double bulge) {
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  if (!(std::fabs(bulge) > kSmallestBulge) || (dx == 0 && dy == 0)) {
    loop.Add(from);
    return;
  }
  const double offset = (1 - bulge * bulge) / (4 * bulge);
  const double centerX = (from.x + to.x) / 2 - offset * dy;
  const double centerY = (from.y + to.y) / 2 + offset * dx;
  const double radius =
      std::sqrt((from.x - centerX) * (from.x - centerX) + (from.y - centerY) * (from.y - centerY));
  const double start = PortableAtan2(from.y - centerY, from.x - centerX);
  const double angle = 4 * PortableAtan(bulge);
  const int steps = StepCount(angle);
  loop.Add(from);
  for (int j = 1; j < steps; ++j) {
    const SineAndCosine direction = PortableSinCos(start + j * angle / steps);
    loop.Add(centerX + radius * direction.cosine, centerY + radius * direction.sine);
  }
}

void AddPolyline(Loop& loop, const Dwg_HATCH_Path& path) {
  const auto vertices = SpanOf(path.polyline_paths, path.num_segs_or_paths);
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    const auto& vertex = vertices[i];
    const bool endsOpenPath = i + 1 == vertices.size() && path.closed == 0;
    if (path.bulges_present == 0 || endsOpenPath) {
      loop.Add(vertex.point);
    } else {
      AddBulge(loop, vertex.point, vertices[(i + 1) % vertices.size()].point, vertex.bulge);
    }
  }
}

// Calls `add` with the direction of each angle of the segment's sweep, both ends
// included. Angles of clockwise arcs count clockwise.
template <typename Add>
void ForEachDirection(const Dwg_HATCH_PathSeg& segment, Add add) {
  const double end =
      segment.end_angle < segment.start_angle ? segment.end_angle + kTwoPi : segment.end_angle;
  const double sign = segment.is_ccw == 0 ? -1 : 1;
  const double sweep = end - segment.start_angle;
  const int steps = StepCount(sweep);
  for (int j = 0; j <= steps; ++j) {
    add(PortableSinCos(sign * (segment.start_angle + j * sweep / steps)));
  }
}

void AddArc(Loop& loop, const Dwg_HATCH_PathSeg& segment) {
  ForEachDirection(segment, [&](const SineAndCosine& a) {
    loop.Add(segment.center.x + segment.radius * a.cosine,
             segment.center.y + segment.radius * a.sine);
  });
}

void AddEllipse(Loop& loop, const Dwg_HATCH_PathSeg& segment) {
  const BITCODE_2RD& axis = segment.endpoint;
  ForEachDirection(segment, [&](const SineAndCosine& a) {
    const double minor = a.sine * segment.minor_major_ratio;
    loop.Add(segment.center.x + a.cosine * axis.x - minor * axis.y,
             segment.center.y + a.cosine * axis.y + minor * axis.x);
  });
}

std::vector<ControlPoint> ControlPoints(std::span<const Dwg_HATCH_ControlPoint> stored) {
  std::vector<ControlPoint> points;
  points.reserve(stored.size());
  for (const Dwg_HATCH_ControlPoint& point : stored) {
    points.push_back({point.point.x, point.point.y, point.weight == 0 ? 1.0 : point.weight});
  }
  return points;
}

// False for a spline whose knots do not make a curve.
bool AddCurve(Loop& loop, const Dwg_HATCH_PathSeg& segment) {
  const auto controls = SpanOf(segment.control_points, segment.num_control_points);
  const auto knots = SpanOf(segment.knots, segment.num_knots);
  const std::size_t degree = segment.degree;
  if (controls.empty() || degree == 0 || degree > kMaxDegree ||
      knots.size() < controls.size() + degree + 1) {
    return false;
  }
  const double start = knots[degree];
  const double range = knots[knots.size() - 1 - degree] - start;
  if (!(range > 0) || !std::isfinite(range)) {
    return false;
  }
  NurbsCurve curve(degree, knots, ControlPoints(controls), segment.is_rational != 0);
  ForEachSample(curve, start, range, SampleCount(controls.size()),
                [&](const CurvePoint& point) { loop.Add(point.x, point.y); });
  return true;
}

void AddSpline(Loop& loop, const Dwg_HATCH_PathSeg& segment) {
  if (AddCurve(loop, segment)) {
    return;
  }
  const auto fitPoints = SpanOf(segment.fitpts, segment.num_fitpts);
  for (const BITCODE_2RD& point : fitPoints) {
    loop.Add(point);
  }
  if (fitPoints.empty()) {
    for (const auto& control : SpanOf(segment.control_points, segment.num_control_points)) {
      loop.Add(control.point);
    }
  }
}

void AddEdges(Loop& loop, const Dwg_HATCH_Path& path) {
  const auto segments = SpanOf(path.segs, path.num_segs_or_paths);
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const Dwg_HATCH_PathSeg& segment = segments[i];
    switch (segment.curve_type) {
      case 1:
        loop.Add(segment.first_endpoint);
        if (i + 1 == segments.size()) {
          loop.Add(segment.second_endpoint);
        }
        break;
      case 2: AddArc(loop, segment); break;
      case 3: AddEllipse(loop, segment); break;
      case 4: AddSpline(loop, segment); break;
      default: break;
    }
  }
}

// A boundary of too few points is taken back.
void AppendLoop(JsonOut& out, const Dwg_HATCH_Path& path, const EntityPlane* plane,
                double elevation) {
  const std::size_t start = out.size();
  Loop loop(out, plane, elevation);
  if (IsPolylinePath(path)) {
    AddPolyline(loop, path);
  } else {
    AddEdges(loop, path);
  }
  if (loop.size() < kMinLoopPoints) {
    out.Truncate(start);
  } else {
    loop.Close();
  }
}

// Whether there was any.
bool AppendLoops(JsonOut& out, const Dwg_Entity_HATCH& hatch, const EntityPlane* plane) {
  JsonList loops(out, ",\"loops\":[");
  for (const Dwg_HATCH_Path& path : SpanOf(hatch.paths, hatch.num_paths)) {
    loops.Item([&] { AppendLoop(out, path, plane, hatch.elevation); });
  }
  loops.Close();
  return !loops.IsEmpty();
}

}  // namespace

void AppendHatchLoops(JsonOut& out, const Dwg_Entity_HATCH& hatch) {
  const std::size_t start = out.size();
  AppendBoolKey(out, ",\"solid\":", hatch.is_solid_fill != 0 || hatch.is_gradient_fill != 0);
  if (!AppendLoops(out, hatch, nullptr)) {
    out.Truncate(start);
  }
}

void AppendHatchWorld(JsonOut& out, const Dwg_Entity_HATCH& hatch) {
  AppendWorld(out, hatch.extrusion,
              [&](const EntityPlane& plane) { AppendLoops(out, hatch, &plane); });
}
