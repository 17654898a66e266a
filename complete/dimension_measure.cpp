#include "complete/dimension_measure.hpp"

#include <cmath>
#include <numbers>

#include "encode/fast/portable_math.hpp"

namespace {

constexpr double kTurn = 2 * std::numbers::pi;

struct Vector {
  double x;
  double y;
};

template <typename From, typename To>
Vector Between(const From& from, const To& to) {
  return {to.x - from.x, to.y - from.y};
}

double Cross(const Vector& a, const Vector& b) {
  return a.x * b.y - a.y * b.x;
}

double Direction(const Vector& vector) {
  return PortableAtan2(vector.y, vector.x);
}

// From 0 up to a full turn.
double Turn(double from, double to) {
  const double turn = std::fmod(to - from, kTurn);
  return turn < 0 ? turn + kTurn : turn;
}

// The sector between two rays, counter-clockwise from one to the other, that the
// direction lies in: one of the two that fill the turn.
double SectorAround(double from, double to, double direction) {
  const double sector = Turn(from, to);
  return Turn(from, direction) <= sector ? sector : kTurn - sector;
}

// The angle of the sector of two crossing lines that the direction lies in.
double CrossingSector(double first, double second, double direction) {
  const double half = std::numbers::pi;
  const double between = std::fmod(Turn(first, second), half);
  const double turned = std::fmod(Turn(first, direction), half);
  return turned <= between ? between : half - between;
}

}  // namespace

double DistanceBetween(const BITCODE_3BD& from, const BITCODE_3BD& to) {
  const double x = to.x - from.x;
  const double y = to.y - from.y;
  const double z = to.z - from.z;
  return std::sqrt(x * x + y * y + z * z);
}

double MeasureOf(const Dwg_Entity_DIMENSION_LINEAR& dimension) {
  const Vector span = Between(dimension.xline1_pt, dimension.xline2_pt);
  const SineAndCosine axis = PortableSinCos(dimension.dim_rotation);
  return std::abs(span.x * axis.cosine + span.y * axis.sine);
}

double MeasureOf(const Dwg_Entity_DIMENSION_ALIGNED& dimension) {
  return DistanceBetween(dimension.xline1_pt, dimension.xline2_pt);
}

double MeasureOf(const Dwg_Entity_DIMENSION_RADIUS& dimension) {
  return DistanceBetween(dimension.def_pt, dimension.first_arc_pt);
}

double MeasureOf(const Dwg_Entity_DIMENSION_DIAMETER& dimension) {
  return DistanceBetween(dimension.def_pt, dimension.first_arc_pt);
}

double MeasureOf(const Dwg_Entity_DIMENSION_ANG2LN& dimension) {
  const Vector first = Between(dimension.xline1start_pt, dimension.xline1end_pt);
  const Vector second = Between(dimension.xline2start_pt, dimension.def_pt);
  const double cross = Cross(first, second);
  if (cross == 0 || !std::isfinite(cross)) {
    return 0;
  }
  const double along =
      Cross(Between(dimension.xline1start_pt, dimension.xline2start_pt), second) / cross;
  const Vector apex{dimension.xline1start_pt.x + along * first.x,
                    dimension.xline1start_pt.y + along * first.y};
  return CrossingSector(Direction(first), Direction(second),
                        Direction(Between(apex, dimension.xline2end_pt)));
}

double MeasureOf(const Dwg_Entity_DIMENSION_ANG3PT& dimension) {
  return SectorAround(Direction(Between(dimension.center_pt, dimension.xline1_pt)),
                      Direction(Between(dimension.center_pt, dimension.xline2_pt)),
                      Direction(Between(dimension.center_pt, dimension.def_pt)));
}

bool MeasuresX(const Dwg_Entity_DIMENSION_ORDINATE& dimension) {
  constexpr unsigned kAlongX = 64;
  return (dimension.flag2 & 1U) != 0 || (dimension.flag & kAlongX) != 0;
}

double MeasureOf(const Dwg_Entity_DIMENSION_ORDINATE& dimension) {
  const Vector span = Between(dimension.def_pt, dimension.feature_location_pt);
  const SineAndCosine axis = PortableSinCos(-dimension.horiz_dir);
  const double along = span.x * axis.cosine + span.y * axis.sine;
  const double across = span.y * axis.cosine - span.x * axis.sine;
  return std::abs(MeasuresX(dimension) ? along : across);
}

double MeasureOf(const Dwg_Entity_ARC_DIMENSION& dimension) {
  const double sector = SectorAround(Direction(Between(dimension.center_pt, dimension.xline1_pt)),
                                     Direction(Between(dimension.center_pt, dimension.xline2_pt)),
                                     Direction(Between(dimension.center_pt, dimension.def_pt)));
  return sector * DistanceBetween(dimension.center_pt, dimension.xline1_pt);
}

double MeasureOf(const Dwg_Entity_LARGE_RADIAL_DIMENSION& dimension) {
  return DistanceBetween(dimension.def_pt, dimension.chord_pt);
}
