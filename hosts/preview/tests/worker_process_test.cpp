#include "process/worker_process.hpp"

#include <gtest/gtest.h>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

namespace preview {
namespace {

using Kind = WorkerResult::Kind;

// Runs a worker that does what a shell script says.
class StandIn : public testing::Test {
 protected:
  WorkerResult Run(const QByteArray& script, const WorkerLimits& limits = {}) {
    const QString path = folder_.filePath("worker");
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n" + script);
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return Start(path, limits);
  }

  WorkerResult Start(const QString& worker, const WorkerLimits& limits = {}) {
    WorkerProcess process;
    WorkerResult result;
    QEventLoop loop;
    QObject::connect(&process, &WorkerProcess::progress,
                     [this](const QString& line) { lines_ << line; });
    QObject::connect(&process, &WorkerProcess::finished, &loop, [&](const WorkerResult& end) {
      result = end;
      loop.quit();
    });
    process.Start(worker, "a drawing.dwg", limits);
    loop.exec();
    return result;
  }

  QTemporaryDir folder_;
  QStringList lines_;
};

TEST_F(StandIn, GivesItsDocumentAndProgress) {
  const WorkerResult result = Run("echo \"[DWG worker] Reading $1\" >&2\necho '{\"a\":1}'\n");
  EXPECT_EQ(result.kind, Kind::kDocument);
  EXPECT_EQ(result.document, "{\"a\":1}\n");
  EXPECT_EQ(lines_, QStringList("Reading a drawing.dwg"));
}

TEST_F(StandIn, IsRefusedInPlainWords) {
  const WorkerResult result = Run("echo '{\"error\":\"Failed to read x: IOERROR\"}'\nexit 1\n");
  EXPECT_EQ(result.kind, Kind::kRefused);
  EXPECT_TRUE(result.message.contains("cannot be read"));
  EXPECT_TRUE(result.message.contains("IOERROR"));
}

TEST_F(StandIn, CrashesByASignal) {
  const WorkerResult result = Run("kill -SEGV $$\n");
  EXPECT_EQ(result.kind, Kind::kCrashed);
  EXPECT_TRUE(result.message.contains("broke"));
}

TEST_F(StandIn, CrashesByAnUnknownExitCode) {
  EXPECT_EQ(Run("exit 5\n").kind, Kind::kCrashed);
}

TEST_F(StandIn, EndsAtTheDeadline) {
  const WorkerResult result = Run("exec sleep 3600\n", {.seconds = 1, .megabytes = 4096});
  EXPECT_EQ(result.kind, Kind::kTimeout);
  EXPECT_TRUE(result.message.contains("too long"));
}

TEST_F(StandIn, EndsWhenItWritesTooMuch) {
  const WorkerResult result =
      Run("yes\n", {.seconds = 600, .megabytes = 4096, .outputBytes = 100000});
  EXPECT_EQ(result.kind, Kind::kTooLarge);
}

TEST_F(StandIn, IsBadWhenItsAnswerIsCut) {
  EXPECT_EQ(Run("printf '{\"entities\":[]'\n").kind, Kind::kBad);
}

TEST_F(StandIn, MayWriteMuchToStandardError) {
  const WorkerResult result =
      Run("i=0; while [ $i -lt 4000 ]; do echo \"[DWG worker] a line of some length $i\" >&2\n"
          "i=$((i+1)); done\necho '{}'\n");
  EXPECT_EQ(result.kind, Kind::kDocument);
  EXPECT_EQ(lines_.size(), 4000);
}

TEST_F(StandIn, ThatIsMissingIsNamed) {
  const WorkerResult result = Start("/no/such/worker");
  EXPECT_EQ(result.kind, Kind::kNotStarted);
  EXPECT_TRUE(result.message.contains("/no/such/worker"));
}

TEST_F(StandIn, HasItsMemoryLimited) {
  const WorkerResult result = Run("ulimit -v >&2\necho '{}'\n", {.seconds = 600, .megabytes = 512});
  EXPECT_EQ(result.kind, Kind::kDocument);
  EXPECT_EQ(lines_, QStringList(QString::number(512 * 1024)));
}

}  // namespace
}  // namespace preview
