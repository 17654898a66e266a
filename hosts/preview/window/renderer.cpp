#include "window/renderer.hpp"

#include <utility>

namespace preview {
namespace {

// Of which the letters are made for one picture, so that it comes soon.
constexpr int kTextsAtOnce = 100;

}  // namespace

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
    bool isUnfinished = false;
    request.view.cancelled = &cancelled_;
    request.view.newTexts = kTextsAtOnce;
    request.view.isUnfinished = &isUnfinished;
    const QImage image = RenderView(request);
    request.view.isUnfinished = nullptr;
    QMetaObject::invokeMethod(
        this, [this, image, request, isUnfinished] { Done(image, request, isUnfinished); },
        Qt::QueuedConnection);
  });
}

void Renderer::Done(const QImage& image, const RenderRequest& request, bool isUnfinished) {
  isBusy_ = false;
  emit rendered(image, request.view.toDevice, request.view.device);
  if (!next_ && isUnfinished) {
    next_ = request;
  }
  if (next_) {
    Begin(*std::exchange(next_, std::nullopt));
  }
}

QImage RenderView(const RenderRequest& request) {
  return PictureOf(*request.scene, request.scene->sheets[request.sheet], request.view);
}

}  // namespace preview
