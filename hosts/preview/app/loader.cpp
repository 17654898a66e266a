#include "app/loader.hpp"

#include <QFileInfo>

#include "model/drawing.hpp"
#include "scene/scene_builder.hpp"

namespace preview {
namespace {

QString SummaryOf(const Drawing& drawing, const Scene& scene, qint64 milliseconds) {
  return QString(
             "Release %1, %2 layers, %3 blocks, %4 records in model space, %5 sheets, "
             "%6 shapes, %7 ms")
      .arg(drawing.release)
      .arg(drawing.layers.size())
      .arg(drawing.blocks.size())
      .arg(drawing.entities.size())
      .arg(drawing.layouts.size())
      .arg(scene.sheets.front().items.size())
      .arg(milliseconds);
}

}  // namespace

Loader::Loader(QObject* parent) : QObject(parent) {
  connect(&worker_, &WorkerProcess::progress, this, &Loader::progress);
  connect(&worker_, &WorkerProcess::finished, this, &Loader::OnFinished);
}

Loader::~Loader() {
  if (builder_) {
    builder_->wait();
  }
}

void Loader::Start(const QString& drawing, const LoadOptions& options) {
  drawing_ = drawing;
  showHidden_ = options.showHidden;
  clock_.start();
  worker_.Start(FindWorker(options.worker), drawing, options.limits);
}

void Loader::Cancel() {
  if (isCancelled_) {
    return;
  }
  isCancelled_ = true;
  if (builder_) {
    emit failed("Cancelled.");
  } else {
    worker_.Cancel();
  }
}

void Loader::OnFinished(const WorkerResult& result) {
  if (result.kind != WorkerResult::Kind::kDocument) {
    emit failed(result.message);
    return;
  }
  // The worker ended just before it was told to.
  if (isCancelled_) {
    emit failed("Cancelled.");
    return;
  }
  emit progress("Building the picture...");
  builder_.reset(QThread::create([this, document = result.document] { Build(document); }));
  builder_->start();
}

// Signals reach the objects of other threads through their event loops.
void Loader::Build(const QByteArray& document) {
  QElapsedTimer sinceDocument;
  sinceDocument.start();
  QString problem;
  const std::optional<Drawing> drawing = ReadDocument(document, problem);
  if (!drawing) {
    QMetaObject::invokeMethod(this, [this, problem] {
      if (!isCancelled_) {
        emit failed(problem);
      }
    });
    return;
  }
  auto scene = std::make_shared<Scene>(BuildScene(*drawing, QFileInfo(drawing_).absoluteDir()));
  scene->showHidden = showHidden_;
  const LoadedDrawing loaded{scene, SummaryOf(*drawing, *scene, clock_.elapsed()),
                             sinceDocument.elapsed()};
  QMetaObject::invokeMethod(this, [this, loaded] {
    if (!isCancelled_) {
      emit this->loaded(loaded);
    }
  });
}

}  // namespace preview
