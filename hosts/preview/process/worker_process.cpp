#include "process/worker_process.hpp"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include "model/record.hpp"
#include "process/process_limits.hpp"

namespace preview {
namespace {

using Kind = WorkerResult::Kind;

constexpr char kPrefix[] = "[DWG worker] ";
// A library may print what it likes; a line without an end is cut here.
constexpr qsizetype kLongestLine = 4096;

WorkerResult Crashed(const QString& detail) {
  return {Kind::kCrashed,
          "The drawing broke the program that reads it (" + detail +
              "). Nothing else was harmed, but this drawing cannot be shown.",
          {}};
}

WorkerResult Refused(const QByteArray& output) {
  const QJsonObject answer = ParseLine(output).object();
  const QString reason = answer["error"].toString();
  if (reason.isEmpty()) {
    return {Kind::kBad, "The worker gave no reason for not reading the drawing.", {}};
  }
  return {Kind::kRefused,
          "The file cannot be read: it is missing, no drawing, or too broken. The worker says: " +
              reason,
          {}};
}

}  // namespace

WorkerResult ExplainEnd(bool crashed, int exitCode, const QByteArray& output) {
  if (crashed) {
    return Crashed("it ended by a signal or an exception");
  }
  if (exitCode != 0 && exitCode != 1) {
    return Crashed(QString("exit code 0x%1").arg(static_cast<uint>(exitCode), 0, 16));
  }
  if (!output.endsWith('\n')) {
    return {Kind::kBad, "The worker's answer is cut off.", {}};
  }
  return exitCode == 1 ? Refused(output) : WorkerResult{Kind::kDocument, {}, output};
}

QString ProgressText(const QString& line) {
  return line.startsWith(kPrefix) ? line.mid(static_cast<qsizetype>(sizeof kPrefix) - 1) : line;
}

QString FindWorker(const QString& asked) {
  if (!asked.isEmpty()) {
    return asked;
  }
  QString fromEnvironment = qEnvironmentVariable("DWG_IMPORT_WORKER");
  if (!fromEnvironment.isEmpty()) {
    return fromEnvironment;
  }
  const QString folder = QCoreApplication::applicationDirPath();
  const QString beside = QStandardPaths::findExecutable("dwg_import_worker", {folder});
  return beside.isEmpty() ? QDir(folder).filePath("dwg_import_worker") : beside;
}

WorkerProcess::WorkerProcess(QObject* parent) : QObject(parent) {
  deadline_.setSingleShot(true);
  connect(&deadline_, &QTimer::timeout, this, [this] {
    StopFor(
        Kind::kTimeout,
        QString("The drawing takes too long to read (more than %1 seconds).").arg(limits_.seconds));
  });
  connect(&process_, &QProcess::readyReadStandardOutput, this, &WorkerProcess::ReadOutput);
  connect(&process_, &QProcess::readyReadStandardError, this, &WorkerProcess::ReadProgress);
  connect(&process_, &QProcess::errorOccurred, this, &WorkerProcess::OnError);
  connect(&process_, &QProcess::finished, this, &WorkerProcess::OnFinished);
}

void WorkerProcess::Start(const QString& worker, const QString& drawing,
                          const WorkerLimits& limits) {
  limits_ = limits;
#ifndef Q_OS_WIN
  process_.setChildProcessModifier(
      [limits] { LimitThisProcess(limits.megabytes, limits.seconds); });
#endif
  process_.setStandardInputFile(QProcess::nullDevice());
  deadline_.start(limits.seconds * 1000);
  QStringList arguments{drawing};
  if (limits.complete) {
    arguments << "--complete";
  }
  process_.start(worker, arguments, QIODevice::ReadOnly);
  if (process_.waitForStarted()) {
    LimitStartedProcess(process_.processId(), limits.megabytes);
  }
}

void WorkerProcess::Cancel() {
  StopFor(Kind::kBad, "Cancelled.");
}

void WorkerProcess::ReadOutput() {
  output_ += process_.readAllStandardOutput();
  if (output_.size() > limits_.outputBytes) {
    StopFor(Kind::kTooLarge, "The drawing is too large for this preview.");
  }
}

void WorkerProcess::ReadProgress() {
  line_ += process_.readAllStandardError();
  for (qsizetype end = line_.indexOf('\n'); end >= 0; end = line_.indexOf('\n')) {
    emit progress(ProgressText(QString::fromUtf8(line_.left(end)).trimmed()));
    line_.remove(0, end + 1);
  }
  if (line_.size() > kLongestLine) {
    line_.clear();
  }
}

void WorkerProcess::OnError(QProcess::ProcessError error) {
  if (error == QProcess::FailedToStart) {
    Report({Kind::kNotStarted,
            QString("The worker %1 cannot be started (%2). Name it with --worker.")
                .arg(process_.program(), process_.errorString()),
            {}});
  }
}

void WorkerProcess::OnFinished(int exitCode, QProcess::ExitStatus status) {
  ReadOutput();
  ReadProgress();
  Report(isStopped_ ? stopped_ : ExplainEnd(status == QProcess::CrashExit, exitCode, output_));
}

void WorkerProcess::StopFor(Kind kind, const QString& message) {
  if (!isStopped_) {
    isStopped_ = true;
    stopped_ = {kind, message, {}};
    output_.clear();
    process_.kill();
  }
}

// From the event loop, so that a caller may connect after the start.
void WorkerProcess::Report(const WorkerResult& result) {
  if (isReported_) {
    return;
  }
  isReported_ = true;
  deadline_.stop();
  QMetaObject::invokeMethod(
      this, [this, result] { emit finished(result); }, Qt::QueuedConnection);
}

}  // namespace preview
