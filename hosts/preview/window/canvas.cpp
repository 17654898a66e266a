#include "window/canvas.hpp"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

#include "paint/export.hpp"
#include "paint/sheet_painter.hpp"

namespace preview {
namespace {

// Painted beyond the window on every side, so that a pan has something to show.
constexpr double kOvershoot = 0.25;
// A press that moves less is a click.
constexpr double kClickPixels = 4;
// How near a click or a snap has to be.
constexpr double kReachPixels = 5;
constexpr double kSnapPixels = 10;
// Of what is jumped to, around it, as a share of its size.
constexpr double kJumpRim = 1.5;
constexpr double kKeyZoom = 1.25;
constexpr double kKeyPan = 0.1;
// How far one may zoom, against all of the sheet.
constexpr double kSmallestZoom = 1e-3;
constexpr double kLargestZoom = 1e7;

double ScaleOf(const QTransform& view) {
  return std::sqrt(std::abs(view.determinant()));
}

QString Number(double value) {
  return QString::number(value, 'f', 4);
}

QString LegText(const Snap& from, const Snap& to) {
  const bool isThrough = from.viewport >= 0 && from.viewport == to.viewport;
  const Leg leg = isThrough ? MeasureLeg(from.inSpace, to.inSpace) : MeasureLeg(from.at, to.at);
  return QString("Distance %1, direction %2°, Δx %3, Δy %4%5")
      .arg(Number(leg.length), Number(leg.direction), Number(leg.dx), Number(leg.dy),
           isThrough ? QString(" (in model space)") : QString());
}

// The points where all of them are measured: model space when they were all seen
// through one viewport.
std::vector<QPointF> PointsOf(const std::vector<Snap>& chain) {
  const bool isThrough = std::all_of(chain.begin(), chain.end(), [&](const Snap& snap) {
    return snap.viewport >= 0 && snap.viewport == chain.front().viewport;
  });
  std::vector<QPointF> points;
  points.reserve(chain.size());
  for (const Snap& snap : chain) {
    points.push_back(isThrough ? snap.inSpace : snap.at);
  }
  return points;
}

QString ChainText(const std::vector<Snap>& chain) {
  if (chain.size() < 2) {
    return "Click the next point. Escape begins anew.";
  }
  QString text = LegText(chain[chain.size() - 2], chain.back());
  if (chain.size() > 2) {
    const std::vector<QPointF> points = PointsOf(chain);
    const std::size_t last = points.size() - 1;
    text += QString("\nAngle %1°, length of all %2, area %3")
                .arg(Number(AngleAt(points[last - 1], points[last - 2], points[last])),
                     Number(LengthOf(points)), Number(AreaOf(points)));
  }
  return text;
}

QString AreaText(const std::optional<Measured>& measured) {
  if (!measured) {
    return "Nothing here has a length. Click a polyline, a circle or an area.";
  }
  return QString("Length %1, area %2 (%3)")
      .arg(Number(measured->length), Number(measured->area),
           measured->isClosed ? QString("closed") : QString("open, area as if closed"));
}

QString HintOf(Tool tool) {
  switch (tool) {
    case Tool::kSelect: break;
    case Tool::kDistance: return "Click two points or more.";
    case Tool::kArea: return "Click a polyline, a circle or an area.";
  }
  return {};
}

}  // namespace

Canvas::Canvas(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMinimumSize(200, 150);
  connect(&renderer_, &Renderer::rendered, this,
          [this](const QImage& image, const QTransform& toDevice, const QRectF& device) {
            image_ = image;
            imageView_ = toDevice;
            imageDevice_ = device;
            update();
          });
}

void Canvas::SetScene(std::shared_ptr<const Scene> scene) {
  QHash<QString, QTransform> views;
  QHash<QString, bool> shown;
  QString open;
  if (scene_) {
    for (std::size_t i = 0; i < views_.size(); ++i) {
      if (isFitted_[i]) {
        views.insert(scene_->sheets[i].name, views_[i]);
      }
    }
    for (std::size_t i = 0; i < shown_.size(); ++i) {
      shown.insert(scene_->layers[i].name, shown_[i]);
    }
    open = scene_->sheets[sheet_].name;
  }
  scene_ = std::move(scene);
  index_ = std::make_shared<SceneIndex>(scene_);
  // Answers about the scene before are dropped.
  isSnapping_ = false;
  nextSnap_.reset();
  Clear();
  views_.clear();
  isFitted_.clear();
  for (const Sheet& sheet : scene_->sheets) {
    views_.push_back(views.value(sheet.name));
    isFitted_.push_back(views.contains(sheet.name));
  }
  shown_ = VisibleLayers(*scene_);
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    shown_[i] = shown.value(scene_->layers[i].name, shown_[i]);
  }
  ShowSheet(static_cast<std::size_t>(std::max(0, FindSheet(*scene_, open))));
}

void Canvas::ShowSheet(std::size_t sheet) {
  if (sheet != sheet_) {
    Clear();
  }
  sheet_ = sheet;
  image_ = {};
  if (!isFitted_[sheet]) {
    Fit();
  } else {
    Changed();
  }
  emit sheetChanged(sheet);
}

void Canvas::SetLayerShown(std::size_t layer, bool shown) {
  shown_[layer] = shown;
  Changed();
}

void Canvas::SetLayersShown(std::vector<bool> shown) {
  shown_ = std::move(shown);
  Changed();
  emit layersChanged();
}

void Canvas::SetDark(bool dark) {
  isDark_ = dark;
  Changed();
}

void Canvas::SetLineweights(bool on) {
  hasLineweights_ = on;
  Changed();
}

void Canvas::SetTool(Tool tool) {
  tool_ = tool;
  setCursor(tool == Tool::kSelect ? Qt::ArrowCursor : Qt::CrossCursor);
  Clear();
}

void Canvas::Fit() {
  if (scene_) {
    views_[sheet_] = FitSheet(scene_->sheets[sheet_], rect());
    isFitted_[sheet_] = true;
    Changed();
  }
}

void Canvas::ZoomBy(double factor) {
  ZoomAt(QRectF(rect()).center(), factor);
}

void Canvas::ZoomAt(QPointF at, double factor) {
  if (!scene_) {
    return;
  }
  const double whole = ScaleOf(FitSheet(scene_->sheets[sheet_], rect()));
  const double scale = ScaleOf(views_[sheet_]);
  factor = std::clamp(factor, std::min(1.0, kSmallestZoom * whole / scale),
                      std::max(1.0, kLargestZoom * whole / scale));
  views_[sheet_] *= QTransform(factor, 0, 0, factor, at.x() * (1 - factor), at.y() * (1 - factor));
  Changed();
}

void Canvas::PanBy(double right, double down) {
  if (scene_) {
    views_[sheet_] *= QTransform::fromTranslate(-right * width(), -down * height());
    Changed();
  }
}

void Canvas::Select(const Hit& hit) {
  Inquire(
      [sheet = sheet_, hit](SceneIndex& index) { return Describe(index.scene(), sheet, {}, hit); },
      [this](const Picked& picked) { TakePicked(picked); });
}

void Canvas::JumpTo(const Hit& hit) {
  JumpToArea(hit.sheet, ItemOf(*scene_, hit).bounds.normalized());
  Select(hit);
}

void Canvas::JumpToArea(std::size_t sheet, const QRectF& area) {
  if (sheet != sheet_) {
    ShowSheet(sheet);
  }
  // A point has no size: it is shown with a hundredth of its sheet around it.
  const QRectF all = scene_->sheets[sheet].extents;
  const double rim =
      std::max({area.width(), area.height(), 0.01 * all.width(), 0.01 * all.height(), 1e-9}) *
      kJumpRim / 2;
  views_[sheet_] = FitTransform(area.adjusted(-rim, -rim, rim, rim), rect(), 0);
  Changed();
}

void Canvas::OutlineArea(const QRectF& area) {
  Clear();
  marks_.outline.addRect(area);
  update();
}

void Canvas::SelectNeighbour(int step) {
  if (!scene_) {
    return;
  }
  const Sheet& sheet = scene_->sheets[sheet_];
  const auto count = static_cast<int>(sheet.items.size());
  const Shows shows = ShownItems();
  const bool isHere = selected_ && selected_->sheet == sheet_ && selected_->viewport < 0;
  int at = isHere ? static_cast<int>(selected_->item) : (step > 0 ? -1 : count);
  for (at += step; at >= 0 && at < count; at += step) {
    const Item& item = sheet.items[static_cast<std::size_t>(at)];
    if (item.record >= 0 && shows(item, nullptr)) {
      Select({sheet_, static_cast<std::size_t>(at), -1});
      return;
    }
  }
}

void Canvas::Clear() {
  marks_ = {};
  marks_.note = HintOf(tool_);
  hits_.clear();
  const bool had = selected_.has_value();
  selected_.reset();
  measured_.reset();
  update();
  if (had) {
    emit picked();
  }
}

void Canvas::Changed() {
  update();
  Ask();
}

void Canvas::Ask() {
  if (!scene_ || size().isEmpty()) {
    return;
  }
  // Painted in the screen's own pixels.
  const double ratio = ratio_ = devicePixelRatioF();
  View view;
  const double dx = std::round(width() * kOvershoot);
  const double dy = std::round(height() * kOvershoot);
  const QRectF device = QRectF(rect()).adjusted(-dx, -dy, dx, dy);
  view.device = QRectF(device.topLeft() * ratio, device.size() * ratio).toAlignedRect();
  view.toDevice = views_[sheet_] * QTransform::fromScale(ratio, ratio);
  view.pixelsPerMillimetre = kScreenPixelsPerMillimetre * ratio;
  view.thinnestLine = ratio;
  view.background = BackgroundOf(isDark_);
  view.lineweights = hasLineweights_;
  view.shown = shown_;
  renderer_.Request({scene_, sheet_, view});
}

Pointer Canvas::PointerAt(QPointF position) const {
  const double pixels = tool_ == Tool::kDistance ? kSnapPixels : kReachPixels;
  return {sheet_, views_[sheet_].inverted().map(position), pixels / ScaleOf(views_[sheet_])};
}

Shows Canvas::ShownItems() const {
  return [scene = scene_, shown = shown_](const Item& item, const std::vector<bool>* frozen) {
    return IsShown(*scene, item, shown, frozen);
  };
}

Canvas::Picked Canvas::Describe(const Scene& scene, std::size_t sheet, std::vector<Hit> hits,
                                const std::optional<Hit>& hit) {
  Picked picked{std::move(hits), hit, {}, std::nullopt};
  if (hit) {
    picked.outline = OutlineOf(scene, sheet, *hit);
    picked.measured = MeasureItem(scene, ItemOf(scene, *hit));
  }
  return picked;
}

void Canvas::Pick(QPointF position) {
  const bool needsLength = tool_ == Tool::kArea;
  Inquire(
      [sheet = sheet_, pointer = PointerAt(position), shows = ShownItems(), before = hits_,
       last = selected_, needsLength](SceneIndex& index) {
        std::vector<Hit> hits = index.HitsAt(pointer, shows);
        if (needsLength) {
          std::erase_if(hits, [&](const Hit& hit) {
            return !MeasureItem(index.scene(), ItemOf(index.scene(), hit));
          });
        }
        std::optional<Hit> hit = hits.empty() ? std::nullopt : std::optional(hits.front());
        const auto at = last ? std::find(hits.begin(), hits.end(), *last) : hits.end();
        if (hits == before && at != hits.end()) {
          hit = at + 1 == hits.end() ? hits.front() : *(at + 1);
        }
        return Describe(index.scene(), sheet, std::move(hits), hit);
      },
      [this](const Picked& picked) { TakePicked(picked); });
}

void Canvas::TakePicked(const Picked& picked) {
  hits_ = picked.hits;
  selected_ = picked.hit;
  measured_ = picked.measured;
  marks_.outline = picked.outline;
  if (tool_ == Tool::kArea) {
    marks_.note = AreaText(measured_);
    emit measuredSome(marks_.note);
  }
  update();
  emit this->picked();
}

// Of the pointer's places that come while one is being looked at only the last counts;
// clicks count all.
void Canvas::AskForSnap(QPointF position, bool isPoint) {
  if (!isPoint && isSnapping_) {
    nextSnap_ = position;
    return;
  }
  isSnapping_ = isSnapping_ || !isPoint;
  Inquire([pointer = PointerAt(position),
           shows = ShownItems()](SceneIndex& index) { return index.SnapAt(pointer, shows); },
          [this, isPoint](const Snap& snap) { TakeSnap(snap, isPoint); });
}

void Canvas::TakeSnap(const Snap& snap, bool isPoint) {
  if (!isPoint) {
    isSnapping_ = false;
    if (nextSnap_) {
      AskForSnap(*std::exchange(nextSnap_, std::nullopt), false);
    }
  }
  if (tool_ != Tool::kDistance) {
    return;
  }
  marks_.snap = snap;
  if (isPoint) {
    marks_.points.push_back(snap);
    marks_.note = ChainText(marks_.points);
    emit measuredSome(marks_.note);
  }
  update();
}

void Canvas::paintEvent(QPaintEvent* /*event*/) {
  // The window may have moved to a screen with other pixels.
  if (scene_ && ratio_ != devicePixelRatioF()) {
    Ask();
  }
  QPainter painter(this);
  painter.fillRect(rect(), BackgroundOf(isDark_));
  if (!scene_ || image_.isNull()) {
    return;
  }
  painter.save();
  painter.setTransform(imageView_.inverted() * views_[sheet_]);
  painter.drawImage(imageDevice_.topLeft(), image_);
  painter.restore();
  PaintMarks(painter, marks_, views_[sheet_], rect(), isDark_);
}

// What was seen whole stays whole; other views stay where they are.
void Canvas::resizeEvent(QResizeEvent* event) {
  const QRectF before(QPointF(0, 0), QSizeF(event->oldSize()));
  if (scene_ &&
      (!event->oldSize().isValid() || views_[sheet_] == FitSheet(scene_->sheets[sheet_], before))) {
    Fit();
  } else {
    Changed();
  }
}

void Canvas::wheelEvent(QWheelEvent* event) {
  ZoomAt(event->position(), std::pow(1.0015, event->angleDelta().y()));
}

void Canvas::mousePressEvent(QMouseEvent* event) {
  pressed_ = dragged_ = event->position();
  isDragging_ = false;
}

void Canvas::mouseMoveEvent(QMouseEvent* event) {
  if (!scene_) {
    return;
  }
  const QPointF at = event->position();
  if ((event->buttons() & (Qt::LeftButton | Qt::MiddleButton)) != 0) {
    isDragging_ = isDragging_ || (at - pressed_).manhattanLength() > kClickPixels;
    if (isDragging_) {
      const QPointF way = at - dragged_;
      dragged_ = at;
      views_[sheet_] *= QTransform::fromTranslate(way.x(), way.y());
      Changed();
    }
  } else if (tool_ == Tool::kDistance) {
    AskForSnap(at, false);
  }
  emit pointed(views_[sheet_].inverted().map(at));
}

void Canvas::mouseReleaseEvent(QMouseEvent* event) {
  const bool isClick = event->button() == Qt::LeftButton && !isDragging_ && !isDoubleClick_;
  isDragging_ = false;
  isDoubleClick_ = false;
  if (!scene_ || !isClick) {
    return;
  }
  if (tool_ == Tool::kDistance) {
    AskForSnap(event->position(), true);
  } else {
    Pick(event->position());
  }
}

void Canvas::mouseDoubleClickEvent(QMouseEvent* event) {
  isDoubleClick_ = tool_ == Tool::kSelect;
  pressed_ = dragged_ = event->position();
  if (isDoubleClick_) {
    Fit();
  }
}

void Canvas::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left: PanBy(-kKeyPan, 0); break;
    case Qt::Key_Right: PanBy(kKeyPan, 0); break;
    case Qt::Key_Up: PanBy(0, -kKeyPan); break;
    case Qt::Key_Down: PanBy(0, kKeyPan); break;
    case Qt::Key_Plus: ZoomBy(kKeyZoom); break;
    case Qt::Key_Minus: ZoomBy(1 / kKeyZoom); break;
    default: QWidget::keyPressEvent(event);
  }
}

void Canvas::leaveEvent(QEvent* /*event*/) {
  marks_.snap.reset();
  update();
}

}  // namespace preview
