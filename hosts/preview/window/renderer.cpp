#include "window/renderer.hpp"

#include <utility>

namespace preview {

Renderer::Renderer(QObject* parent) : QObject(parent), inThread_(new QObject) {
  inThread_->moveToThread(&thread_);
  connect(&thread_, &QThread::finished, inThread_, &QObject::deleteLater);
  thread_.start();
}

Renderer::~Renderer() {
  cancelled_ = true;
  thread_.quit();
  thread_.wait();
}

void Renderer::Request(const RenderRequest& request) {
  if (isBusy_) {
    next_ = request;
  } else {
    Begin(request);
  }
}

void Renderer::Run(std::function<void()> task) {
  QMetaObject::invokeMethod(inThread_, std::move(task), Qt::QueuedConnection);
}

void Renderer::Begin(const RenderRequest& request) {
  isBusy_ = true;
  Run([this, request = RenderRequest(request)]() mutable {
    request.view.cancelled = &cancelled_;
    const QImage image = RenderView(request);
    QMetaObject::invokeMethod(
        this, [this, image, request] { Done(image, request); }, Qt::QueuedConnection);
  });
}

void Renderer::Done(const QImage& image, const RenderRequest& request) {
  isBusy_ = false;
  emit rendered(image, request.view.toDevice, request.view.device);
  if (next_) {
    Begin(*std::exchange(next_, std::nullopt));
  }
}

QImage RenderView(const RenderRequest& request) {
  const QRectF& device = request.view.device;
  QImage image(device.size().toSize(), QImage::Format_RGB32);
  QPainter painter(&image);
  painter.translate(-device.topLeft());
  PaintSheet(painter, *request.scene, request.scene->sheets[request.sheet], request.view);
  return image;
}

}  // namespace preview
