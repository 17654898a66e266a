#include "window/canvas.hpp"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

#include "paint/export.hpp"
#include "paint/sheet_painter.hpp"

namespace preview {
namespace {

// Painted beyond the window on every side, so that a pan has something to show.
constexpr double kOvershoot = 0.25;

}  // namespace

Canvas::Canvas(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
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
  scene_ = std::move(scene);
  sheet_ = 0;
  views_.assign(scene_->sheets.size(), {});
  isFitted_.assign(scene_->sheets.size(), false);
  shown_ = VisibleLayers(*scene_);
  ShowSheet(0);
}

void Canvas::ShowSheet(std::size_t sheet) {
  sheet_ = sheet;
  image_ = {};
  if (!isFitted_[sheet]) {
    Fit();
  } else {
    Changed();
  }
}

void Canvas::SetLayerShown(std::size_t layer, bool shown) {
  shown_[layer] = shown;
  Changed();
}

void Canvas::SetDark(bool dark) {
  isDark_ = dark;
  Changed();
}

void Canvas::SetLineweights(bool on) {
  hasLineweights_ = on;
  Changed();
}

void Canvas::Fit() {
  if (scene_) {
    views_[sheet_] = FitSheet(scene_->sheets[sheet_], rect());
    isFitted_[sheet_] = true;
    Changed();
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
  View view;
  const double dx = std::round(width() * kOvershoot);
  const double dy = std::round(height() * kOvershoot);
  view.device = QRectF(rect()).adjusted(-dx, -dy, dx, dy);
  view.toDevice = views_[sheet_];
  view.background = BackgroundOf(isDark_);
  view.lineweights = hasLineweights_;
  view.shown = shown_;
  renderer_.Request({scene_, sheet_, view});
}

void Canvas::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), BackgroundOf(isDark_));
  if (!scene_ || image_.isNull()) {
    return;
  }
  painter.setTransform(imageView_.inverted() * views_[sheet_]);
  painter.drawImage(imageDevice_.topLeft(), image_);
}

void Canvas::resizeEvent(QResizeEvent* /*event*/) {
  if (scene_ && image_.isNull()) {
    Fit();
  } else {
    Changed();
  }
}

void Canvas::wheelEvent(QWheelEvent* event) {
  if (!scene_) {
    return;
  }
  const double factor = std::pow(1.0015, event->angleDelta().y());
  const QPointF at = event->position();
  views_[sheet_] *= QTransform(factor, 0, 0, factor, at.x() * (1 - factor), at.y() * (1 - factor));
  Changed();
}

void Canvas::mousePressEvent(QMouseEvent* event) {
  dragged_ = event->position();
}

void Canvas::mouseMoveEvent(QMouseEvent* event) {
  if (!scene_) {
    return;
  }
  if ((event->buttons() & (Qt::LeftButton | Qt::MiddleButton)) != 0) {
    const QPointF way = event->position() - dragged_;
    dragged_ = event->position();
    views_[sheet_] *= QTransform::fromTranslate(way.x(), way.y());
    Changed();
  }
  emit pointed(views_[sheet_].inverted().map(event->position()));
}

void Canvas::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
  Fit();
}

}  // namespace preview
