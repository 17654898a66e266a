// The drawing area: one sheet, panned by dragging and zoomed by the wheel.
//
// It always shows the last finished picture, moved and scaled to where the view
// is now, and asks for a new one.
#pragma once

#include <QWidget>

#include <memory>
#include <vector>

#include "scene/scene.hpp"
#include "window/renderer.hpp"

namespace preview {

class Canvas : public QWidget {
  Q_OBJECT

 public:
  explicit Canvas(QWidget* parent = nullptr);

  // Shows a scene's model space, all of it.
  void SetScene(std::shared_ptr<const Scene> scene);
  void ShowSheet(std::size_t sheet);
  void SetLayerShown(std::size_t layer, bool shown);
  void SetDark(bool dark);
  void SetLineweights(bool on);
  void Fit();
  Renderer& renderer() { return renderer_; }
  const std::shared_ptr<const Scene>& scene() const { return scene_; }
  std::size_t sheet() const { return sheet_; }

 signals:
  // Of the pointer, in the sheet's coordinates.
  void pointed(QPointF position);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void Changed();
  void Ask();

  Renderer renderer_;
  std::shared_ptr<const Scene> scene_;
  std::size_t sheet_ = 0;
  // Where each sheet was left; invalid until it was shown.
  std::vector<QTransform> views_;
  std::vector<bool> isFitted_;
  std::vector<bool> shown_;
  bool isDark_ = false;
  bool hasLineweights_ = true;
  QImage image_;
  QTransform imageView_;
  QRectF imageDevice_;
  QPointF dragged_;
};

}  // namespace preview
