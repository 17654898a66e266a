#include "ask/scene_index.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "ask/record_text.hpp"
#include "ask/segments.hpp"
#include "model/record.hpp"
#include "scene/vectors.hpp"

namespace preview {

struct SceneIndex::Space {
  std::size_t sheet = 0;
  int viewport = -1;
  QPointF at;
  double reach = 0;
  QTransform toSheet;
  const std::vector<bool>* frozen = nullptr;

  QRectF Area() const { return {at.x() - reach, at.y() - reach, 2 * reach, 2 * reach}; }
};

namespace {

constexpr std::size_t kMostHits = 64;
// Crossings are looked for between all pairs.
constexpr std::size_t kMostSegments = 400;
// Curves are cut to this share of the reach.
constexpr double kFineness = 0.1;

QPolygonF FrameOfPicture(const Item& item) {
  return (item.shape->picture->place * *item.place).map(QPolygonF(QRectF(0, 0, 1, 1)));
}

// Of a text in its own coordinates, so that it turns with it.
QPolygonF FrameOfText(const Item& item) {
  std::optional<QRectF> box;
  for (const Part& part : PartList(*item.shape)) {
    for (int i = 0; i < part.path.elementCount(); ++i) {
      const QRectF point(QPointF(part.path.elementAt(i)), QSizeF(0, 0));
      box = box ? Around(*box, point) : point;
    }
  }
  return box ? item.place->map(QPolygonF(*box)) : QPolygonF();
}

QPainterPath ClosedPath(const QPolygonF& polygon) {
  QPainterPath path;
  path.addPolygon(polygon);
  path.closeSubpath();
  return path;
}

bool IsHitFrame(const QPolygonF& frame, QPointF at, double reach) {
  const PathProbe probe = ProbePath(ClosedPath(frame), {}, at, reach * kFineness);
  return probe.isInside || probe.distance <= reach;
}

bool IsClippedAway(const Scene& scene, const Item& item, QPointF at, double reach) {
  return item.clip > 0 &&
         !ProbePath(scene.clips[static_cast<std::size_t>(item.clip)], {}, at, reach * kFineness)
              .isInside;
}

bool IsHit(const Scene& scene, const Item& item, QPointF at, double reach) {
  if (IsClippedAway(scene, item, at, reach)) {
    return false;
  }
  if (item.shape->hasImage()) {
    return IsHitFrame(FrameOfPicture(item), at, reach);
  }
  if (item.shape->isText) {
    return IsHitFrame(FrameOfText(item), at, reach);
  }
  const PartList parts(*item.shape);
  return std::any_of(parts.begin(), parts.end(), [&](const Part& part) {
    const PathProbe probe = ProbePath(part.path, *item.place, at, reach * kFineness);
    return probe.distance <= reach || (part.fill != Fill::kNone && probe.isInside);
  });
}

// Of circles and arcs whose record says where it lies in the plane: a record that was
// tilted has its centre elsewhere, which its path shows.
std::optional<QPointF> CenterOf(const Scene& scene, const Item& item) {
  if (item.shape->round) {
    return item.place->map(item.shape->round->center);
  }
  if (item.record < 0 || !item.shape->polyline.isEmpty() || item.shape->isText ||
      item.shape->parts.empty() || item.shape->parts.front().path.elementCount() == 0) {
    return std::nullopt;
  }
  const QJsonObject& record = scene.records[static_cast<std::size_t>(item.record)];
  const bool isRound = IsType(record, "CIRCLE") || IsType(record, "ARC");
  if (!isRound && !IsType(record, "ELLIPSE")) {
    return std::nullopt;
  }
  const QPointF center = PointOf(record, "cx", "cy");
  const double radius = NumberOf(record, "radius");
  const double off = Length(QPointF(item.shape->parts.front().path.elementAt(0)) - center);
  if (isRound && std::abs(off - radius) > 1e-3 * radius) {
    return std::nullopt;
  }
  return item.place->map(center);
}

std::vector<QRectF> BoxesOf(const Scene& scene, const Sheet& sheet) {
  std::vector<QRectF> boxes;
  boxes.reserve(sheet.items.size());
  for (const Item& item : sheet.items) {
    const std::optional<QPointF> center = CenterOf(scene, item);
    const QRectF box = item.bounds.normalized();
    boxes.push_back(center ? Around(box, QRectF(*center, QSizeF(0, 0))) : box);
  }
  return boxes;
}

// The nearest candidate; of those as near the one that was offered first.
class Nearest {
 public:
  Nearest(QPointF at, double reach) : at_(at), distance_(reach) {}

  void Offer(SnapKind kind, QPointF point) {
    const double distance = Length(point - at_);
    const bool isFirst = kind_ == SnapKind::kNone && distance <= distance_;
    if (isFirst || distance < distance_ * (1 - 1e-9)) {
      kind_ = kind;
      point_ = point;
      distance_ = distance;
    }
  }

  SnapKind kind() const { return kind_; }
  QPointF point() const { return point_; }

 private:
  QPointF at_;
  double distance_;
  SnapKind kind_ = SnapKind::kNone;
  QPointF point_;
};

struct Segment {
  QPointF a;
  QPointF b;
};

// Elements of a path as a person sees them: straight segments and curves.
void OfferOwnPoints(const Item& item, Nearest& ends, Nearest& middles) {
  for (const Part& part : PartList(*item.shape)) {
    QPointF last;
    for (int i = 0; i < part.path.elementCount(); ++i) {
      const QPainterPath::Element element = part.path.elementAt(i);
      if (element.isCurveTo() && i + 2 < part.path.elementCount()) {
        i += 2;
      }
      const QPointF point = item.place->map(QPointF(part.path.elementAt(i)));
      ends.Offer(SnapKind::kEnd, point);
      if (element.isLineTo()) {
        middles.Offer(SnapKind::kMiddle, (last + point) / 2);
      }
      last = point;
    }
  }
}

// A whole curve's ends are its first and last point; within it pieces meet where nobody
// sees anything.
void OfferCurve(const Item& item, double tolerance, Nearest& ends, Nearest& middles) {
  std::vector<Segment> segments;
  double length = 0;
  VisitSegments(PartList(*item.shape).front().path, *item.place, tolerance, false,
                [&](QPointF a, QPointF b) {
                  segments.push_back({a, b});
                  length += Length(b - a);
                });
  if (segments.empty() || segments.front().a == segments.back().b) {
    return;
  }
  ends.Offer(SnapKind::kEnd, segments.front().a);
  ends.Offer(SnapKind::kEnd, segments.back().b);
  double rest = length / 2;
  for (const Segment& segment : segments) {
    const double step = Length(segment.b - segment.a);
    if (rest <= step) {
      middles.Offer(SnapKind::kMiddle,
                    segment.a + (step > 0 ? rest / step : 0) * (segment.b - segment.a));
      return;
    }
    rest -= step;
  }
}

bool IsSingleCurve(const Scene& scene, const Item& item) {
  if (item.record < 0) {
    return false;
  }
  const QJsonObject& record = scene.records[static_cast<std::size_t>(item.record)];
  return IsType(record, "ARC") || IsType(record, "CIRCLE") || IsType(record, "ELLIPSE") ||
         IsType(record, "SPLINE");
}

void CollectSegments(const Item& item, const QRectF& area, double tolerance,
                     std::vector<Segment>& segments) {
  for (const Part& part : PartList(*item.shape)) {
    VisitSegments(part.path, *item.place, tolerance, part.fill != Fill::kNone,
                  [&](QPointF a, QPointF b) {
                    const QRectF box(QPointF(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
                                     QPointF(std::max(a.x(), b.x()), std::max(a.y(), b.y())));
                    if (segments.size() < kMostSegments && Touches(box, area)) {
                      segments.push_back({a, b});
                    }
                  });
  }
}

void OfferCrossings(const std::vector<Segment>& segments, Nearest& crossings) {
  for (std::size_t i = 0; i < segments.size(); ++i) {
    for (std::size_t k = i + 1; k < segments.size(); ++k) {
      const std::optional<QPointF> crossing =
          CrossingOf(segments[i].a, segments[i].b, segments[k].a, segments[k].b);
      // Pieces of one curve meet everywhere.
      if (crossing && segments[i].b != segments[k].a && segments[i].a != segments[k].b) {
        crossings.Offer(SnapKind::kCrossing, *crossing);
      }
    }
  }
}

}  // namespace

std::vector<SceneIndex::Space> SceneIndex::SpacesAt(const Pointer& pointer) const {
  std::vector<Space> spaces{{pointer.sheet, -1, pointer.at, pointer.reach, {}, nullptr}};
  const Sheet& sheet = scene_->sheets[pointer.sheet];
  for (std::size_t i = sheet.viewports.size(); i-- > 0;) {
    const ViewportView& viewport = sheet.viewports[i];
    bool canInvert = false;
    const QTransform back = viewport.modelToSheet.inverted(&canInvert);
    if (canInvert && ProbePath(viewport.clip, {}, pointer.at, pointer.reach * kFineness).isInside) {
      const double scale = std::sqrt(std::abs(back.determinant()));
      spaces.push_back({0, static_cast<int>(i), back.map(pointer.at), pointer.reach * scale,
                        viewport.modelToSheet, &viewport.frozen});
    }
  }
  return spaces;
}

const BoxTree& SceneIndex::TreeOf(std::size_t sheet) {
  const auto found = trees_.find(sheet);
  if (found != trees_.end()) {
    return found->second;
  }
  return trees_.emplace(sheet, BoxTree(BoxesOf(*scene_, scene_->sheets[sheet]))).first->second;
}

// From the one that is painted last.
std::vector<std::size_t> SceneIndex::ItemsNear(const Space& space, const Shows& shows) {
  const std::vector<Item>& items = scene_->sheets[space.sheet].items;
  std::vector<std::size_t> found;
  TreeOf(space.sheet).Visit(space.Area(), [&](std::size_t item) {
    if (items[item].shape && shows(items[item], space.frozen)) {
      found.push_back(item);
    }
  });
  std::sort(found.begin(), found.end(), std::greater<>());
  return found;
}

std::vector<Hit> SceneIndex::HitsAt(const Pointer& pointer, const Shows& shows) {
  std::vector<Hit> hits;
  for (const Space& space : SpacesAt(pointer)) {
    for (const std::size_t item : ItemsNear(space, shows)) {
      if (hits.size() < kMostHits &&
          IsHit(*scene_, scene_->sheets[space.sheet].items[item], space.at, space.reach)) {
        hits.push_back({space.sheet, item, space.viewport});
      }
    }
  }
  return hits;
}

Snap SceneIndex::SnapAt(const Pointer& pointer, const Shows& shows) {
  for (const Space& space : SpacesAt(pointer)) {
    Nearest ends(space.at, space.reach);
    Nearest crossings = ends;
    Nearest middles = ends;
    Nearest centers = ends;
    std::vector<Segment> segments;
    const double tolerance = space.reach * kFineness;
    for (const std::size_t index : ItemsNear(space, shows)) {
      const Item& item = scene_->sheets[space.sheet].items[index];
      if (const std::optional<QPointF> center = CenterOf(*scene_, item)) {
        centers.Offer(SnapKind::kCenter, *center);
      }
      if (item.shape->isText || PartList(*item.shape).empty()) {
        continue;
      }
      if (IsSingleCurve(*scene_, item)) {
        OfferCurve(item, tolerance, ends, middles);
      } else {
        OfferOwnPoints(item, ends, middles);
      }
      CollectSegments(item, space.Area(), tolerance, segments);
    }
    OfferCrossings(segments, crossings);
    for (const Nearest& best : {ends, crossings, middles, centers}) {
      if (best.kind() != SnapKind::kNone) {
        return {best.kind(), space.toSheet.map(best.point()), best.point(), space.viewport};
      }
    }
  }
  const Space front = SpacesAt(pointer).back();
  return {SnapKind::kNone, pointer.at, front.at, front.viewport};
}

const std::vector<QString>& SceneIndex::texts() {
  if (!texts_) {
    texts_.emplace();
    texts_->reserve(scene_->records.size());
    for (std::size_t i = 0; i < scene_->records.size(); ++i) {
      texts_->push_back(MayHaveText(scene_->records.TextAt(i)) ? TextOfRecord(scene_->records[i])
                                                               : QString());
    }
  }
  return *texts_;
}

QPainterPath OutlineOf(const Scene& scene, std::size_t sheet, const Hit& hit) {
  const Item& item = ItemOf(scene, hit);
  QPainterPath outline;
  if (item.shape->hasImage()) {
    outline = ClosedPath(FrameOfPicture(item));
  } else if (item.shape->isText) {
    outline = ClosedPath(FrameOfText(item));
  } else {
    for (const Part& part : PartList(*item.shape)) {
      outline.addPath(item.place->map(part.path));
    }
  }
  if (hit.viewport < 0) {
    return outline;
  }
  const auto viewport = static_cast<std::size_t>(hit.viewport);
  return scene.sheets[sheet].viewports[viewport].modelToSheet.map(outline);
}

const Item& ItemOf(const Scene& scene, const Hit& hit) {
  return scene.sheets[hit.sheet].items[hit.item];
}

}  // namespace preview
