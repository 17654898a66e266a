#include "entities/hatch.hpp"

#include <cmath>
#include <cstddef>
#include <numbers>

#include "encode/fast/portable_math.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/arc_steps.hpp"
#include "entities/drawing_access.hpp"
#include "entities/hatch_debug.hpp"
#include "entities/stored_flags.hpp"

namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;
constexpr double kShortestChord = 1e-12;
constexpr double kSmallestAngle = 1e-9;
constexpr std::size_t kMinLoopPoints = 3;

// The points of one boundary as one flat list, written as they come.
class Loop {
 public:
  explicit Loop(JsonOut& out) : coordinates_(out) {}

  void Add(double x, double y) {
    coordinates_.Pair(x, y);
    ++size_;
  }

  void Close() { coordinates_.Close(); }
  std::size_t size() const { return size_; }

 private:
  JsonList coordinates_;
  std::size_t size_ = 0;
};

// The points from `from` up to, but without, `to` along the arc of the bulge.
void AddBulge(Loop& loop, const BITCODE_2RD& from, const BITCODE_2RD& to, double bulge) {
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  const double chord = std::sqrt(dx * dx + dy * dy);
  const double angle = 4 * PortableAtan(bulge);
  if (chord < kShortestChord || std::fabs(angle) < kSmallestAngle) {
    loop.Add(from.x, from.y);
    return;
  }
  const double radius = chord / (2 * PortableSin(std::fabs(angle) / 2));
  const double offsetSquared = radius * radius - (chord / 2) * (chord / 2);
  const double distance = offsetSquared > 0 ? std::sqrt(offsetSquared) : 0;
  const double offset = bulge > 0 ? distance : -distance;
  // For bulges below 1 this centre lies on the far side of the chord, unlike
  // in the usual bulge geometry. Consumers depend on the placement.
  const double centerX = (from.x + to.x) / 2 + offset * (dy / chord);
  const double centerY = (from.y + to.y) / 2 + offset * (-dx / chord);
  const double start = PortableAtan2(from.y - centerY, from.x - centerX);
  const int steps = StepCount(angle);
  for (int j = 0; j < steps; ++j) {
    const double a = start + j * angle / steps;
    const SineAndCosine direction = PortableSinCos(a);
    loop.Add(centerX + radius * direction.cosine, centerY + radius * direction.sine);
  }
}

void AddPolyline(Loop& loop, const Dwg_HATCH_Path& path) {
  const auto vertices = SpanOf(path.polyline_paths, path.num_segs_or_paths);
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    const auto& vertex = vertices[i];
    const bool endsOpenPath = i + 1 == vertices.size() && path.closed == 0;
    if (path.bulges_present == 0 || endsOpenPath || vertex.bulge == 0) {
      loop.Add(vertex.point.x, vertex.point.y);
    } else {
      AddBulge(loop, vertex.point, vertices[(i + 1) % vertices.size()].point, vertex.bulge);
    }
  }
}

// Calls `addPoint` with the direction of each angle of the segment's sweep, both
// ends included.
template <typename AddPoint>
void AddSweep(const Dwg_HATCH_PathSeg& segment, AddPoint addPoint) {
  double start = segment.start_angle;
  double end = segment.end_angle;
  if (end < start) {
    end += kTwoPi;
  }
  double sweep = end - start;
  if (segment.is_ccw == 0) {
    start = -start;
    sweep = -sweep;
  }
  const int steps = StepCount(sweep);
  for (int j = 0; j <= steps; ++j) {
    addPoint(PortableSinCos(start + j * sweep / steps));
  }
}

void AddCircularArc(Loop& loop, const Dwg_HATCH_PathSeg& segment) {
  AddSweep(segment, [&](const SineAndCosine& a) {
    loop.Add(segment.center.x + segment.radius * a.cosine,
             segment.center.y + segment.radius * a.sine);
  });
}

void AddEllipticalArc(Loop& loop, const Dwg_HATCH_PathSeg& segment) {
  const BITCODE_2RD& axis = segment.endpoint;
  AddSweep(segment, [&](const SineAndCosine& a) {
    const double minor = a.sine * segment.minor_major_ratio;
    loop.Add(segment.center.x + a.cosine * axis.x + minor * -axis.y,
             segment.center.y + a.cosine * axis.y + minor * axis.x);
  });
}

void AddSpline(Loop& loop, const Dwg_HATCH_PathSeg& segment) {
  const auto fitPoints = SpanOf(segment.fitpts, segment.num_fitpts);
  for (const BITCODE_2RD& point : fitPoints) {
    loop.Add(point.x, point.y);
  }
  if (!fitPoints.empty()) {
    return;
  }
  for (const auto& control : SpanOf(segment.control_points, segment.num_control_points)) {
    loop.Add(control.point.x, control.point.y);
  }
}

void AddEdges(Loop& loop, const Dwg_HATCH_Path& path) {
  const auto segments = SpanOf(path.segs, path.num_segs_or_paths);
  for (std::size_t i = 0; i < segments.size(); ++i) {
    const Dwg_HATCH_PathSeg& segment = segments[i];
    switch (segment.curve_type) {
      case 1:
        loop.Add(segment.first_endpoint.x, segment.first_endpoint.y);
        if (i + 1 == segments.size()) {
          loop.Add(segment.second_endpoint.x, segment.second_endpoint.y);
        }
        break;
      case 2: AddCircularArc(loop, segment); break;
      case 3: AddEllipticalArc(loop, segment); break;
      case 4: AddSpline(loop, segment); break;
      default: break;
    }
  }
}

// A boundary of too few points is taken back.
void AppendLoop(JsonOut& out, const Dwg_HATCH_Path& path) {
  const std::size_t start = out.size();
  Loop loop(out);
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

}  // namespace

void AppendHatch(JsonOut& out, const Dwg_Entity_HATCH& hatch) {
  const auto paths = SpanOf(hatch.paths, hatch.num_paths);
  if (HatchDebugEnabled() && !paths.empty()) {
    DumpHatch(hatch);
  }
  const std::size_t start = out.size();
  AppendBoolKey(out, ",\"solid\":", hatch.is_solid_fill != 0 || hatch.is_gradient_fill != 0);
  JsonList loops(out, ",\"loops\":[");
  for (const Dwg_HATCH_Path& path : paths) {
    loops.Item([&] { AppendLoop(out, path); });
  }
  if (loops.IsEmpty()) {
    out.Truncate(start);
    return;
  }
  loops.Close();
}
