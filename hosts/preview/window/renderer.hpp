// Paints a scene in a thread of its own, so that the window answers at once
// however large the drawing is.
//
// A scene is painted by one thread at a time: everything that touches one that
// was handed over goes through here.
#pragma once

#include <QImage>
#include <QObject>
#include <QThread>

#include <functional>
#include <memory>
#include <optional>

#include "paint/sheet_painter.hpp"
#include "scene/scene.hpp"

namespace preview {

struct RenderRequest {
  std::shared_ptr<const Scene> scene;
  std::size_t sheet = 0;
  View view;
};

class Renderer : public QObject {
  Q_OBJECT

 public:
  explicit Renderer(QObject* parent = nullptr);
  ~Renderer() override;

  // Of requests that come while one is being painted only the last is done.
  void Request(const RenderRequest& request);
  // Runs a task between paintings.
  void Run(std::function<void()> task);

 signals:
  // The picture covers the view's `device`; `toDevice` is the request's.
  void rendered(const QImage& image, const QTransform& toDevice, const QRectF& device);

 private:
  void Begin(const RenderRequest& request);
  void Done(const QImage& image, const RenderRequest& request, bool isUnfinished);

  QThread thread_;
  QObject* inThread_;
  std::atomic<bool> cancelled_ = false;
  bool isBusy_ = false;
  std::optional<RenderRequest> next_;
};

// The picture of a request.
QImage RenderView(const RenderRequest& request);

}  // namespace preview
