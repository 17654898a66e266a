// The worker as a child process, as hosts should run it: the path as one
// argument, no shell, both pipes drained, limits on time, memory and output,
// and every way to end told apart.
#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QTimer>

namespace preview {

struct WorkerLimits {
  int seconds = 120;
  int megabytes = 4096;
  qint64 outputBytes = qint64{1} << 30;
  // Which form of the document is asked for: the wider one, or the plain one.
  bool complete = true;
};

struct WorkerResult {
  enum class Kind { kDocument, kRefused, kCrashed, kTimeout, kTooLarge, kNotStarted, kBad };

  Kind kind = Kind::kBad;
  // In plain words, for the user; empty for a document.
  QString message;
  QByteArray document;
};

// What a run that ended by itself means: its status, and what it wrote.
WorkerResult ExplainEnd(bool crashed, int exitCode, const QByteArray& output);

// A progress line without the worker's prefix.
QString ProgressText(const QString& line);

// The worker to start: what was asked for, else what the environment variable
// DWG_IMPORT_WORKER says, else the program beside this one.
QString FindWorker(const QString& asked);

class WorkerProcess : public QObject {
  Q_OBJECT

 public:
  explicit WorkerProcess(QObject* parent = nullptr);

  // Once for an object. `finished` comes later in any case.
  void Start(const QString& worker, const QString& drawing, const WorkerLimits& limits);
  void Cancel();

 signals:
  void progress(const QString& text);
  void finished(const preview::WorkerResult& result);

 private:
  void ReadOutput();
  void ReadProgress();
  void OnError(QProcess::ProcessError error);
  void OnFinished(int exitCode, QProcess::ExitStatus status);
  void StopFor(WorkerResult::Kind kind, const QString& message);
  void Report(const WorkerResult& result);

  QProcess process_;
  QTimer deadline_;
  WorkerLimits limits_;
  QByteArray output_;
  QByteArray line_;
  // Why this side ended the worker, if it did.
  WorkerResult stopped_;
  bool isStopped_ = false;
  bool isReported_ = false;
};

}  // namespace preview
