// From a drawing's path to a scene: the worker, then reading and building in a
// thread of their own.
#pragma once

#include <QObject>
#include <QString>
#include <QThread>

#include <memory>

#include "process/worker_process.hpp"
#include "scene/scene.hpp"

namespace preview {

struct LoadOptions {
  QString worker;
  WorkerLimits limits;
  // What the drawing hides is drawn too: frozen layers, invisible entities.
  bool showHidden = false;
};

struct LoadedDrawing {
  std::shared_ptr<const Scene> scene;
  // Release, counts and times in one line.
  QString summary;
  // From the document's end to the scene.
  qint64 buildMilliseconds = 0;
};

class Loader : public QObject {
  Q_OBJECT

 public:
  explicit Loader(QObject* parent = nullptr);
  ~Loader() override;

  // Once for an object. `loaded` or `failed` follows.
  void Start(const QString& drawing, const LoadOptions& options);
  // Ends the worker, or gives up what is built of its document. `failed` follows.
  void Cancel();

 signals:
  void progress(const QString& text);
  void loaded(const preview::LoadedDrawing& drawing);
  void failed(const QString& message);

 private:
  void OnFinished(const WorkerResult& result);
  void Build(const QByteArray& document);

  WorkerProcess worker_;
  QString drawing_;
  bool showHidden_ = false;
  QElapsedTimer clock_;
  std::unique_ptr<QThread> builder_;
  bool isCancelled_ = false;
};

}  // namespace preview
