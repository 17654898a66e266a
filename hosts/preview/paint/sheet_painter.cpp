#include "paint/sheet_painter.hpp"

#include <QLineF>

#include <algorithm>
#include <cmath>

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
// Qt's rasteriser loses precision far outside of its device.
constexpr double kFarOutside = 20000;

double ShorterSide(const QRectF& box) {
  return std::min(box.width(), box.height());
}

bool Touches(const QRectF& a, const QRectF& b) {
  return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() &&
         b.top() <= a.bottom();
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

// Cuts a segment to a box; false when nothing is left. Segments of a zoomed-in
// drawing may reach millions of pixels outside.
bool ClipSegment(QPointF& a, QPointF& b, const QRectF& box) {
  double from = 0;
  double to = 1;
  const QPointF way = b - a;
  const auto cut = [&](double p, double q) {
    if (p == 0) {
      return q >= 0;
    }
    const double r = q / p;
    (p < 0 ? from : to) = p < 0 ? std::max(from, r) : std::min(to, r);
    return from <= to;
  };
  if (!cut(-way.x(), a.x() - box.left()) || !cut(way.x(), box.right() - a.x()) ||
      !cut(-way.y(), a.y() - box.top()) || !cut(way.y(), box.bottom() - a.y())) {
    return false;
  }
  const QPointF start = a;
  a = start + way * from;
  b = start + way * to;
  return true;
}

class Pass {
 public:
  Pass(QPainter& painter, const Scene& scene, const View& view)
      : painter_(painter), scene_(scene), view_(view), dots_(view.device) {
    shown_ = view.shown.empty() ? VisibleLayers(scene) : view.shown;
    painter_.setRenderHint(QPainter::Antialiasing, view.antialiasing);
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, view.antialiasing);
  }

  void Paint(const Sheet& sheet) {
    painter_.fillRect(view_.device, view_.background);
    PaintPaper(sheet);
    for (const ViewportView& viewport : sheet.viewports) {
      PaintViewport(viewport);
    }
    PaintItems(sheet.items, view_.toDevice, view_.device, nullptr);
  }

 private:
  void PaintPaper(const Sheet& sheet) {
    if (sheet.paper) {
      painter_.setPen(QPen(QColor(kPaperEdge), 0));
      painter_.setBrush(view_.background);
      painter_.drawPolygon(view_.toDevice.map(QPolygonF(*sheet.paper)));
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
    dashFactor_ = scene_.dashesByPaper ? 1 / FactorOf(viewport.modelToSheet) : 1;
    PaintItems(scene_.sheets.front().items, viewport.modelToSheet * view_.toDevice, area,
               &viewport.frozen);
    dashFactor_ = 1;
    painter_.restore();
    pen_ = {};
  }

  void PaintItems(const std::vector<Item>& items, const QTransform& toDevice, const QRectF& area,
                  const std::vector<bool>* frozen) {
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (i % kItemsBetweenLooks == 0 && view_.cancelled != nullptr && *view_.cancelled) {
        break;
      }
      PaintItem(items[i], toDevice, area, frozen);
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
    const QColor color = ColorOf(item.ink);
    SetClip(item.clip, toDevice);
    if (box.width() < kDotPixels && box.height() < kDotPixels) {
      PaintDot(box.center(), color, item.lineweight);
    } else if (item.shape->isText && ShorterSide(box) < kBarPixels) {
      PaintBar(box, color);
    } else if (item.dashes > 0 && PaintDashes(item, toDevice, area, color)) {
      return;
    } else if (!item.shape->polyline.isEmpty()) {
      PaintPolyline(item, toDevice, area, color);
    } else {
      PaintShape(item, toDevice, color);
    }
  }

  QColor ColorOf(const Ink& ink) const {
    return ColorOn(view_.monochrome ? Ink{} : ink, view_.background);
  }

  void PaintDot(QPointF at, const QColor& color, int lineweight) {
    if (dots_.Take(at, color.rgba())) {
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
    const QTransform transform = item.place * toDevice;
    const double reach = PenWidth(item.lineweight) + 1;
    const QRectF wide = area.adjusted(-reach, -reach, reach, reach);
    const QPolygonF& points = item.shape->polyline;
    if (points.size() > 2 && wide.contains(toDevice.mapRect(item.bounds))) {
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
    if (shape.parts.size() != 1 || shape.parts[0].fill != Fill::kNone || !shape.image.isNull()) {
      return false;
    }
    const double reach = PenWidth(item.lineweight) + 1;
    const auto dashes = DashesOf((item.place * toDevice).map(shape.parts[0].path),
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
    lines_.append(a == b ? QLineF(a, a + QPointF(0.01, 0)) : QLineF(a, b));
  }

  void PaintShape(const Item& item, const QTransform& toDevice, const QColor& color) {
    Flush();
    const QTransform transform = item.place * toDevice;
    if (!item.shape->image.isNull()) {
      PaintImage(*item.shape, transform);
    }
    for (const Part& part : item.shape->parts) {
      PaintPart(part, transform, part.ink ? ColorOf(*part.ink) : color, item.lineweight);
    }
  }

  // Pictures have their first row at the top.
  void PaintImage(const Shape& shape, const QTransform& transform) {
    const QTransform upright(1.0 / shape.image.width(), 0, 0, -1.0 / shape.image.height(), 0, 1);
    painter_.save();
    painter_.setTransform(upright * shape.imagePlace * transform, true);
    painter_.drawImage(QPointF(0, 0), shape.image);
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
    if (far.contains(path.controlPointRect())) {
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
          lines_.append(QLineF(a, b));
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

void PaintSheet(QPainter& painter, const Scene& scene, const Sheet& sheet, const View& view) {
  Pass(painter, scene, view).Paint(sheet);
}

}  // namespace preview
