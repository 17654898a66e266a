#include "paint/sheet_painter.hpp"

#include <QLineF>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "paint/thin_lines.hpp"
#include "scene/dashes.hpp"
#include "scene/vectors.hpp"

namespace preview {
namespace {

// Smaller than this in both directions an item is a dot, painted once a pixel.
constexpr double kDotPixels = 1.0;
// Smaller than this a text is a bar.
constexpr double kBarPixels = 3.0;
// A pattern of dashes, or lines of a hatch, closer than this look like a line or an area.
constexpr double kShortestPattern = 3.0;
constexpr double kClosestLines = 1.5;
constexpr std::size_t kItemsBetweenLooks = 512;
// More items in view than this are painted from the front to the back, without smoothing.
constexpr std::size_t kMostSmoothItems = 40000;
// Letters that are made when they are seen: from this height of capitals on, in pixels,
// and of so many texts in a picture.
constexpr double kSmallestLetters = 2.5;
constexpr int kMostLateTexts = 1000;
// Of a whole turn: a circle of one pixel's radius, and any.
constexpr double kFewestSides = 8;
constexpr double kMostSides = 128;
// Qt's rasteriser loses precision far outside of its device.
constexpr double kFarOutside = 20000;

double ShorterSide(const QRectF& box) {
  return std::min(box.width(), box.height());
}

bool Touches(const QRectF& a, const QRectF& b) {
  return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() &&
         b.top() <= a.bottom();
}

// What of a sheet lies in an area of the device, with the width of lines; everything
// when that cannot be said.
QRectF SeenBy(const QTransform& toDevice, const QRectF& area) {
  constexpr double kWidestLine = 100;
  constexpr double kFar = 1e300;
  bool canInvert = false;
  const QTransform back = toDevice.inverted(&canInvert);
  const QRectF seen =
      back.mapRect(area.adjusted(-kWidestLine, -kWidestLine, kWidestLine, kWidestLine));
  const bool isKnown = canInvert && std::isfinite(seen.width()) && std::isfinite(seen.height());
  return isKnown ? seen : QRectF(QPointF(-kFar, -kFar), QPointF(kFar, kFar));
}

// One bit a pixel: where a dot of the same colour was painted already.
class DotGrid {
 public:
  explicit DotGrid(const QRectF& device)
      : left_(static_cast<int>(device.left())),
        top_(static_cast<int>(device.top())),
        width_(std::max(1, static_cast<int>(device.width()) + 1)),
        height_(std::max(1, static_cast<int>(device.height()) + 1)),
        last_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), 0) {}

  // Whether the dot is new; remembers it.
  bool Take(QPointF at, QRgb color) {
    const int x = static_cast<int>(at.x()) - left_;
    const int y = static_cast<int>(at.y()) - top_;
    if (x < 0 || y < 0 || x >= width_ || y >= height_) {
      return false;
    }
    QRgb& last = last_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                       static_cast<std::size_t>(x)];
    const bool isNew = last != color;
    last = color;
    return isNew;
  }

 private:
  int left_;
  int top_;
  int width_;
  int height_;
  std::vector<QRgb> last_;
};

class Pass {
 public:
  Pass(QPainter& painter, const Scene& scene, const View& view)
      : painter_(painter), scene_(scene), view_(view), dots_(view.device) {
    if (view.fromTheFront) {
      painter_.setCompositionMode(QPainter::CompositionMode_DestinationOver);
      thin_.emplace(*static_cast<QImage*>(painter.device()), view.device.topLeft());
    }
    shown_ = view.shown.empty() ? VisibleLayers(scene) : view.shown;
    painter_.setRenderHint(QPainter::Antialiasing, view.antialiasing);
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, view.antialiasing);
  }

  void Paint(const Sheet& sheet) {
    if (thin_) {
      PaintFromTheFront(sheet);
      return;
    }
    painter_.fillRect(view_.device, view_.background);
    PaintPaper(sheet);
    for (const ViewportView& viewport : sheet.viewports) {
      PaintViewport(viewport);
    }
    PaintItems(sheet.items, view_.toDevice, view_.device, nullptr);
  }

 private:
  // All that Paint() does, the other way round.
  void PaintFromTheFront(const Sheet& sheet) {
    PaintItems(sheet.items, view_.toDevice, view_.device, nullptr);
    std::for_each(sheet.viewports.rbegin(), sheet.viewports.rend(),
                  [this](const ViewportView& viewport) { PaintViewport(viewport); });
    PaintPaper(sheet);
    painter_.fillRect(view_.device, view_.background);
  }

  void PaintPaper(const Sheet& sheet) {
    if (sheet.paper) {
      const QPolygonF paper = view_.toDevice.map(QPolygonF(*sheet.paper));
      painter_.setPen(QPen(QColor(kPaperEdge), 0));
      painter_.setBrush(thin_ ? QBrush() : QBrush(view_.background));
      painter_.drawPolygon(paper);
    }
  }

  void PaintViewport(const ViewportView& viewport) {
    const QPainterPath clip = view_.toDevice.map(viewport.clip);
    const QRectF area = clip.boundingRect().intersected(view_.device);
    if (area.isEmpty()) {
      return;
    }
    painter_.save();
    painter_.setClipPath(clip, Qt::IntersectClip);
    if (thin_) {
      thin_->SetArea(area);
      isClipped_ = !IsRectangle(clip);
    }
    dashFactor_ = scene_.dashesByPaper ? 1 / FactorOf(viewport.modelToSheet) : 1;
    PaintItems(scene_.sheets.front().items, viewport.modelToSheet * view_.toDevice, area,
               &viewport.frozen);
    dashFactor_ = 1;
    if (thin_) {
      thin_->SetArea(view_.device);
      isClipped_ = false;
    }
    painter_.restore();
    pen_ = {};
  }

  static bool IsRectangle(const QPainterPath& path) {
    const QRectF box = path.boundingRect();
    for (int i = 0; i < path.elementCount(); ++i) {
      const QPointF point = path.elementAt(i);
      const bool isCorner = (point.x() == box.left() || point.x() == box.right()) &&
                            (point.y() == box.top() || point.y() == box.bottom());
      if (!isCorner || path.elementAt(i).isCurveTo()) {
        return false;
      }
    }
    return path.elementCount() <= 5;
  }

  void PaintItems(const std::vector<Item>& items, const QTransform& toDevice, const QRectF& area,
                  const std::vector<bool>* frozen) {
    const QRectF seen = SeenBy(toDevice, area);
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (i % kItemsBetweenLooks == 0 && view_.cancelled != nullptr && *view_.cancelled) {
        break;
      }
      const Item& item = thin_ ? items[items.size() - 1 - i] : items[i];
      if (Touches(item.bounds, seen)) {
        PaintItem(item, toDevice, area, frozen);
      }
    }
    SetClip(0, toDevice);
    Flush();
  }

  // The clip of the references around an item, within that of the viewport.
  void SetClip(int clip, const QTransform& toDevice) {
    if (clip == clip_) {
      return;
    }
    Flush();
    if (clip_ > 0) {
      painter_.restore();
      pen_ = {};
    }
    if (clip > 0) {
      painter_.save();
      painter_.setClipPath(toDevice.map(scene_.clips[static_cast<std::size_t>(clip)]),
                           Qt::IntersectClip);
    }
    clip_ = clip;
  }

  // By which a transform makes lengths greater.
  static double FactorOf(const QTransform& transform) {
    const double factor = std::sqrt(std::abs(transform.determinant()));
    return factor > 0 && std::isfinite(factor) ? factor : 1;
  }

  void PaintItem(const Item& item, const QTransform& toDevice, const QRectF& area,
                 const std::vector<bool>* frozen) {
    const QRectF box = toDevice.mapRect(item.bounds);
    const double reach = PenWidth(item.lineweight);
    if (!Touches(box.adjusted(-reach, -reach, reach, reach), area) ||
        !IsShown(scene_, item, shown_, frozen)) {
      return;
    }
    if (thin_ && thin_->IsHidden(box.adjusted(-reach, -reach, reach, reach))) {
      return;
    }
    const QColor color = ColorOf(item.ink);
    SetClip(item.clip, toDevice);
    if (box.width() < kDotPixels && box.height() < kDotPixels) {
      PaintDot(box.center(), color, item.lineweight);
    } else if (item.shape->lateHeight > 0) {
      PaintLateText(item, toDevice, box, color);
    } else if (item.shape->isText && ShorterSide(box) < kBarPixels) {
      PaintBar(box, color);
    } else if (item.dashes > 0 && PaintDashes(item, toDevice, area, color)) {
      return;
    } else if (!item.shape->polyline.isEmpty()) {
      PaintPolyline(item, toDevice, area, color);
    } else if (item.shape->round && IsThin(color)) {
      PaintRound(*item.shape->round, *item.place * toDevice, color, item.lineweight);
    } else {
      PaintShape(*item.shape, *item.place * toDevice, color, item.lineweight);
    }
    // What lies behind it comes later.
    if (thin_) {
      Flush();
    }
  }

  // Whether a line of that colour may be painted by `thin_`.
  bool IsThin(const QColor& color) const {
    return thin_ && clip_ == 0 && !isClipped_ && color.alpha() == 255;
  }

  void PaintThin(QPointF a, QPointF b, const QColor& color, int lineweight) {
    thin_->Draw(a, b, color.rgba(), static_cast<int>(std::lround(PenWidth(lineweight))));
  }

  void PaintRound(const Round& round, const QTransform& transform, const QColor& color,
                  int lineweight) {
    const double turns = round.sweep / (2 * std::numbers::pi);
    const double sides =
        std::ceil(turns * std::clamp(kFewestSides * std::sqrt(round.radius * FactorOf(transform)),
                                     kFewestSides, kMostSides));
    const auto at = [&](double share) {
      return transform.map(round.center +
                           DirectionOf(round.start + round.sweep * share) * round.radius);
    };
    QPointF last = at(0);
    for (int i = 1; i <= static_cast<int>(sides); ++i) {
      const QPointF next = at(i / sides);
      PaintThin(last, next, color, lineweight);
      last = next;
    }
  }

  // Null when there are too many in this picture.
  ShapePtr LettersOf(const Item& item) {
    const bool hasRoom =
        view_.newTexts == std::numeric_limits<int>::max() || lateTexts_ < kMostLateTexts;
    if (!scene_.letters || !hasRoom) {
      return nullptr;
    }
    bool isNew = false;
    ShapePtr letters = scene_.letters(item.record, newTexts_ < view_.newTexts, isNew);
    newTexts_ += isNew ? 1 : 0;
    lateTexts_ += letters ? 1 : 0;
    if (!letters && view_.isUnfinished != nullptr && newTexts_ >= view_.newTexts) {
      *view_.isUnfinished = true;
    }
    return letters;
  }

  // Letters where they can be read, else a bar.
  void PaintLateText(const Item& item, const QTransform& toDevice, const QRectF& box,
                     const QColor& color) {
    const QTransform transform = *item.place * toDevice;
    const bool isLegible =
        static_cast<double>(item.shape->lateHeight) * FactorOf(transform) >= kSmallestLetters;
    const ShapePtr letters = isLegible ? LettersOf(item) : nullptr;
    if (letters) {
      PaintShape(*letters, transform, color, item.lineweight);
    } else if (transform.type() <= QTransform::TxScale && ShorterSide(box) < kBarPixels) {
      PaintBar(box, color);
    } else {
      PaintShape(*item.shape, transform, color, item.lineweight);
    }
  }

  QColor ColorOf(const Ink& ink) const {
    return ColorOn(view_.monochrome ? Ink{} : ink, view_.background);
  }

  void PaintDot(QPointF at, const QColor& color, int lineweight) {
    if (IsThin(color)) {
      PaintThin(at, at, color, lineweight);
    } else if (dots_.Take(at, color.rgba())) {
      SetPen(color, lineweight);
      lines_.append(QLineF(at, at + QPointF(0.01, 0)));
    }
  }

  void PaintBar(const QRectF& box, QColor color) {
    Flush();
    color.setAlphaF(color.alphaF() * 0.4F);
    painter_.fillRect(box, color);
  }

  void PaintPolyline(const Item& item, const QTransform& toDevice, const QRectF& area,
                     const QColor& color) {
    SetPen(color, item.lineweight);
    const QTransform transform = *item.place * toDevice;
    const double reach = PenWidth(item.lineweight) + 1;
    const QRectF wide = area.adjusted(-reach, -reach, reach, reach);
    const QPolygonF& points = item.shape->polyline;
    if (!IsThin(color) && points.size() > 2 && wide.contains(toDevice.mapRect(item.bounds))) {
      Flush();
      painter_.drawPolyline(transform.map(points));
      return;
    }
    QPointF last = transform.map(points.front());
    for (qsizetype i = 1; i < points.size(); ++i) {
      const QPointF next = transform.map(points[i]);
      QPointF a = last;
      QPointF b = next;
      if (ClipSegment(a, b, wide)) {
        AppendLine(a, b);
      }
      last = next;
    }
  }

  // Of an item that is one line, whatever its form; false where it looks continuous.
  bool PaintDashes(const Item& item, const QTransform& toDevice, const QRectF& area,
                   const QColor& color) {
    const Shape& shape = *item.shape;
    const PartList parts(shape);
    if (parts.size() != 1 || parts.front().fill != Fill::kNone || shape.hasImage()) {
      return false;
    }
    const double reach = PenWidth(item.lineweight) + 1;
    const auto dashes = DashesOf((*item.place * toDevice).map(parts.front().path),
                                 scene_.dashPatterns[static_cast<std::size_t>(item.dashes)],
                                 {.scale = item.dashScale * dashFactor_ * FactorOf(toDevice),
                                  .restarts = shape.restartsDashes,
                                  .area = area.adjusted(-reach, -reach, reach, reach),
                                  .shortest = kShortestPattern});
    if (!dashes) {
      return false;
    }
    SetPen(color, item.lineweight);
    for (const QLineF& dash : *dashes) {
      AppendLine(dash.p1(), dash.p2());
    }
    return true;
  }

  // A line without length would not be painted.
  void AppendLine(QPointF a, QPointF b) {
    if (IsThin(pen_.color)) {
      thin_->Draw(a, b, pen_.color.rgba(), static_cast<int>(std::lround(pen_.width)));
      return;
    }
    lines_.append(a == b ? QLineF(a, a + QPointF(0.01, 0)) : QLineF(a, b));
  }

  void PaintShape(const Shape& shape, const QTransform& transform, const QColor& color,
                  int lineweight) {
    Flush();
    const PartList parts(shape);
    const auto paint = [&](const Part& part) {
      PaintPart(part, transform, part.ink ? ColorOf(*part.ink) : color, lineweight);
    };
    if (thin_) {
      for (const Part* part = parts.end(); part != parts.begin();) {
        paint(*--part);
        Flush();
      }
    }
    if (shape.hasImage()) {
      PaintImage(shape, transform);
    }
    if (!thin_) {
      std::for_each(parts.begin(), parts.end(), paint);
    }
  }

  // Pictures have their first row at the top.
  void PaintImage(const Shape& shape, const QTransform& transform) {
    const QTransform upright(1.0 / shape.picture->image.width(), 0, 0,
                             -1.0 / shape.picture->image.height(), 0, 1);
    painter_.save();
    painter_.setTransform(upright * shape.picture->place * transform, true);
    painter_.drawImage(QPointF(0, 0), shape.picture->image);
    painter_.restore();
  }

  void PaintPart(const Part& part, const QTransform& transform, const QColor& color,
                 int lineweight) {
    // Of a hatch's lines and the tint that stands for them, one is seen.
    const bool isTint = part.fill == Fill::kPattern && part.spacing > 0;
    if (part.spacing > 0 && isTint != (part.spacing * FactorOf(transform) < kClosestLines)) {
      return;
    }
    QPainterPath path = transform.map(part.path);
    if (part.fill == Fill::kNone) {
      SetPen(color, part.hairline ? 0 : lineweight);
      StrokePath(path);
      return;
    }
    const bool isPaper = part.fill == Fill::kPaper || (part.isBackground && view_.monochrome);
    QColor filling = isPaper ? view_.background : color;
    if (part.fill == Fill::kPattern) {
      filling.setAlphaF(filling.alphaF() * static_cast<float>(kPatternOpacity));
    }
    if (part.gradient && !view_.monochrome) {
      QBrush brush(*part.gradient);
      brush.setTransform(transform);
      painter_.fillPath(path, brush);
      return;
    }
    painter_.fillPath(path, filling);
  }

  // A path that reaches far outside goes through lines, which are cut.
  void StrokePath(const QPainterPath& path) {
    const QRectF far = view_.device.adjusted(-kFarOutside, -kFarOutside, kFarOutside, kFarOutside);
    if (!IsThin(pen_.color) && far.contains(path.controlPointRect())) {
      Flush();
      painter_.setBrush(Qt::NoBrush);
      painter_.drawPath(path);
      return;
    }
    for (const QPolygonF& polygon : path.toSubpathPolygons()) {
      for (qsizetype i = 1; i < polygon.size(); ++i) {
        QPointF a = polygon[i - 1];
        QPointF b = polygon[i];
        if (ClipSegment(a, b, far)) {
          AppendLine(a, b);
        }
      }
    }
  }

  double PenWidth(int lineweight) const {
    return view_.lineweights ? std::max(view_.thinnestLine, MillimetresOfLineweight(lineweight) *
                                                                view_.pixelsPerMillimetre)
                             : view_.thinnestLine;
  }

  // Lines of one look are collected and painted together.
  void SetPen(const QColor& color, int lineweight) {
    const double width = PenWidth(lineweight);
    if (pen_.color != color || pen_.width != width) {
      Flush();
      pen_ = {color, width};
      QPen pen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
      pen.setCosmetic(true);
      painter_.setPen(pen);
    }
  }

  void Flush() {
    if (!lines_.isEmpty()) {
      painter_.drawLines(lines_);
      lines_.clear();
    }
  }

  struct PenLook {
    QColor color;
    double width = -1;
  };

  QPainter& painter_;
  const Scene& scene_;
  const View& view_;
  std::vector<bool> shown_;
  DotGrid dots_;
  // When the picture is painted from the front to the back.
  std::optional<ThinLines> thin_;
  // Of a viewport that is no rectangle.
  bool isClipped_ = false;
  // Of which the letters were made before, or for this picture.
  int lateTexts_ = 0;
  int newTexts_ = 0;
  PenLook pen_;
  // Of the painter at present, as an index into the scene's clips.
  int clip_ = 0;
  // Of lengths of dashes in the viewport that is painted.
  double dashFactor_ = 1;
  QList<QLineF> lines_;
};

}  // namespace

QTransform FitTransform(const QRectF& area, const QRectF& device, double margin) {
  const double rim = margin * ShorterSide(device);
  const QRectF inner = device.adjusted(rim, rim, -rim, -rim);
  const double width = std::max(area.width(), 1e-9);
  const double height = std::max(area.height(), 1e-9);
  const double scale = std::min(inner.width() / width, inner.height() / height);
  QTransform transform;
  transform.translate(inner.center().x(), inner.center().y());
  transform.scale(scale, -scale);
  transform.translate(-area.center().x(), -area.center().y());
  return transform;
}

std::vector<bool> VisibleLayers(const Scene& scene) {
  std::vector<bool> shown;
  for (const Layer& layer : scene.layers) {
    shown.push_back(layer.visible);
  }
  return shown;
}

std::vector<bool> PlottedLayers(const Scene& scene) {
  std::vector<bool> shown = VisibleLayers(scene);
  for (std::size_t i = 0; i < shown.size(); ++i) {
    shown[i] = shown[i] && scene.layers[i].plotted;
  }
  return shown;
}

QColor ColorOn(const Ink& ink, const QColor& background) {
  QColor color = QColor::fromRgba(ink.rgba);
  if (ink.foreground) {
    const int alpha = color.alpha();
    color = IsDark(background) ? Qt::white : Qt::black;
    color.setAlpha(alpha);
  }
  return color;
}

bool AnyFrozen(std::span<const int> layers, const std::vector<bool>& frozen) {
  return std::any_of(layers.begin(), layers.end(), [&](int layer) {
    return layer >= 0 && frozen[static_cast<std::size_t>(layer)];
  });
}

bool IsShown(const Scene& scene, const Item& item, const std::vector<bool>& shown,
             const std::vector<bool>* frozen) {
  if (item.hidden && !scene.showHidden) {
    return false;
  }
  if (item.layer >= 0 && !shown[static_cast<std::size_t>(item.layer)]) {
    return false;
  }
  if (frozen == nullptr) {
    return true;
  }
  return !AnyFrozen(std::span(&item.layer, 1), *frozen) &&
         !AnyFrozen(scene.ownerSets[static_cast<std::size_t>(item.owners)], *frozen);
}

namespace {

// How many items touch a part of a sheet; no more than `most` are counted.
std::size_t CountSeen(const std::vector<Item>& items, const QRectF& seen, std::size_t most) {
  std::size_t count = 0;
  for (const Item& item : items) {
    count += Touches(item.bounds, seen) ? 1U : 0U;
    if (count >= most) {
      break;
    }
  }
  return count;
}

bool HasTooManyItems(const Scene& scene, const Sheet& sheet, const View& view) {
  std::size_t count = CountSeen(sheet.items, SeenBy(view.toDevice, view.device), kMostSmoothItems);
  for (const ViewportView& viewport : sheet.viewports) {
    const QRectF area =
        view.toDevice.mapRect(viewport.clip.boundingRect()).intersected(view.device);
    if (count < kMostSmoothItems && !area.isEmpty()) {
      count += CountSeen(scene.sheets.front().items,
                         SeenBy(viewport.modelToSheet * view.toDevice, area), kMostSmoothItems);
    }
  }
  return count >= kMostSmoothItems;
}

}  // namespace

QImage PictureOf(const Scene& scene, const Sheet& sheet, const View& view) {
  View own = view;
  own.fromTheFront = HasTooManyItems(scene, sheet, view);
  QImage image(view.device.size().toSize(),
               own.fromTheFront ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  if (own.fromTheFront) {
    image.fill(Qt::transparent);
  }
  QPainter painter(&image);
  painter.translate(-view.device.topLeft());
  PaintSheet(painter, scene, sheet, own);
  return image;
}

void PaintSheet(QPainter& painter, const Scene& scene, const Sheet& sheet, const View& view) {
  Pass(painter, scene, view).Paint(sheet);
}

}  // namespace preview
