#include "scene/dashes.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "scene/vectors.hpp"

namespace preview {
namespace {

constexpr qsizetype kMostDashes = 200000;
constexpr std::size_t kLongestPattern = 100;

// Runs of points that the pattern runs along without beginning anew.
QList<QPolygonF> RunsOf(const QPainterPath& path, bool restarts) {
  QList<QPolygonF> runs = path.toSubpathPolygons();
  if (!restarts) {
    return runs;
  }
  // Flattening leaves no trace of where an element ends, so that each is
  // flattened alone.
  runs.clear();
  QPointF last;
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPainterPath::Element element = path.elementAt(i);
    QPainterPath one(last);
    if (element.isCurveTo()) {
      one.cubicTo(element, path.elementAt(i + 1), path.elementAt(i + 2));
      i += 2;
    } else if (element.isLineTo()) {
      one.lineTo(element);
    }
    last = path.elementAt(i);
    if (!one.isEmpty()) {
      runs += one.toSubpathPolygons();
    }
  }
  return runs;
}

double LengthOf(const QPolygonF& run) {
  double length = 0;
  for (qsizetype i = 1; i < run.size(); ++i) {
    length += Length(run[i] - run[i - 1]);
  }
  return length;
}

bool MayTouch(QPointF a, QPointF b, const QRectF& area) {
  return std::max(a.x(), b.x()) >= area.left() && std::min(a.x(), b.x()) <= area.right() &&
         std::max(a.y(), b.y()) >= area.top() && std::min(a.y(), b.y()) <= area.bottom();
}

class Walker {
 public:
  Walker(const DashPattern& pattern, const DashOptions& options)
      : pattern_(pattern), options_(options), whole_(WholeOf(pattern) * options.scale) {}

  static double WholeOf(const DashPattern& pattern) {
    return std::accumulate(pattern.begin(), pattern.end(), 0.0);
  }

  // False when there are too many dashes.
  bool Walk(const QPolygonF& run) {
    if (LengthOf(run) <= whole_) {
      AddWhole(run);
      return true;
    }
    index_ = 0;
    left_ = pattern_[0] * options_.scale;
    for (qsizetype i = 1; i < run.size() && dashes_.size() <= kMostDashes; ++i) {
      Segment(run[i - 1], run[i]);
    }
    return dashes_.size() <= kMostDashes;
  }

  QList<QLineF> Take() { return std::move(dashes_); }

 private:
  // A run that has no room for the pattern is continuous.
  void AddWhole(const QPolygonF& run) {
    for (qsizetype i = 1; i < run.size(); ++i) {
      dashes_.append(QLineF(run[i - 1], run[i]));
    }
  }

  void Segment(QPointF a, QPointF b) {
    const double length = Length(b - a);
    if (!(length > 0) || !std::isfinite(length)) {
      return;
    }
    const QPointF way = (b - a) / length;
    double from = 0;
    double to = length;
    if (!MayTouch(a, b, options_.area) || !Cut(a, way, from, to)) {
      Skip(length);
      return;
    }
    Skip(from);
    Draw(a, way, from, to);
    Skip(length - to);
  }

  // The part of the segment that may lie in the area.
  bool Cut(QPointF a, QPointF way, double& from, double& to) const {
    const auto cut = [&](double direction, double near, double far) {
      if (direction == 0) {
        return near <= 0 && far >= 0;
      }
      const double s = near / direction;
      const double t = far / direction;
      from = std::max(from, std::min(s, t));
      to = std::min(to, std::max(s, t));
      return from < to;
    };
    return cut(way.x(), options_.area.left() - a.x(), options_.area.right() - a.x()) &&
           cut(way.y(), options_.area.top() - a.y(), options_.area.bottom() - a.y());
  }

  void Draw(QPointF a, QPointF way, double from, double to) {
    double at = from;
    while (at < to && dashes_.size() <= kMostDashes) {
      const double step = std::min(left_, to - at);
      if (index_ % 2 == 0) {
        dashes_.append(QLineF(a + way * at, a + way * (at + step)));
      }
      at += step;
      left_ -= step;
      if (left_ <= 0) {
        Next();
      }
    }
  }

  void Skip(double length) {
    length = std::fmod(length, whole_);
    while (length > 0) {
      const double step = std::min(left_, length);
      left_ -= step;
      length -= step;
      if (left_ <= 0) {
        Next();
      }
    }
  }

  void Next() {
    index_ = (index_ + 1) % pattern_.size();
    left_ = pattern_[index_] * options_.scale;
  }

  const DashPattern& pattern_;
  const DashOptions& options_;
  double whole_;
  std::size_t index_ = 0;
  double left_ = 0;
  QList<QLineF> dashes_;
};

}  // namespace

DashPattern PatternOf(const LineType& type) {
  DashPattern pattern;
  for (const Dash& dash : type.dashes) {
    if (!std::isfinite(dash.length) || pattern.size() >= kLongestPattern) {
      return {};
    }
    const bool isGap = dash.length < 0;
    // Two dashes in a row are one, so are two gaps; the first is a dash.
    if (isGap == (pattern.size() % 2 == 1)) {
      pattern.push_back(std::abs(dash.length));
    } else if (pattern.empty()) {
      pattern.insert(pattern.end(), {0.0, std::abs(dash.length)});
    } else {
      pattern.back() += std::abs(dash.length);
    }
  }
  const bool hasGap = pattern.size() > 1 && Walker::WholeOf(pattern) > 0;
  if (hasGap && pattern.size() % 2 == 1) {
    pattern.push_back(0);
  }
  return hasGap ? pattern : DashPattern();
}

std::optional<QList<QLineF>> DashesOf(const QPainterPath& path, const DashPattern& pattern,
                                      const DashOptions& options) {
  const double whole = Walker::WholeOf(pattern) * options.scale;
  if (pattern.empty() || !(whole > options.shortest) || !std::isfinite(whole)) {
    return std::nullopt;
  }
  Walker walker(pattern, options);
  for (const QPolygonF& run : RunsOf(path, options.restarts)) {
    if (!walker.Walk(run)) {
      return std::nullopt;
    }
  }
  return walker.Take();
}

}  // namespace preview
