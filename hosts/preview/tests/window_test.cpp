// The window, without a screen, with a stand-in for the worker.
#include <gtest/gtest.h>

#include <QEventLoop>
#include <QFile>
#include <QListWidget>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>

#include "window/canvas.hpp"
#include "window/main_window.hpp"

namespace preview {
namespace {

constexpr char kDocument[] =
    "{\"layers\":[{\"name\":\"0\",\"visible\":true,\"color\":{\"r\":255,\"g\":0,\"b\":0}},"
    "{\"name\":\"Off\",\"visible\":false,\"color\":{}}],\"assets\":[],\"entities\":["
    "{\"type\":\"SOLID\",\"layer\":\"0\",\"pts\":[[0,0],[10,0],[10,10],[0,10]],\"color\":\"L\"}],"
    "\"layouts\":[{\"name\":\"Sheet A\",\"entities\":[]}],"
    "\"warnings\":[\"Skipped 1 MESH entity (not yet supported)\"]}";

// Only a hang reaches it; what is waited for takes some milliseconds.
constexpr int kHangMilliseconds = 600'000;

class Window : public testing::Test {
 protected:
  // Whether the window shows what the script's worker says.
  bool Open(const QByteArray& script) {
    QFile file(folder_.filePath("worker"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n" + script);
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    window_ = std::make_unique<MainWindow>(LoadOptions{.worker = file.fileName(), .limits = {}});
    window_->show();
    bool shown = false;
    QEventLoop loop;
    QObject::connect(window_.get(), &MainWindow::settled, &loop, [&](bool success) {
      shown = success;
      loop.quit();
    });
    window_->Open("plan.dwg");
    loop.exec();
    return shown;
  }

  bool OpenDocument() {
    QFile file(folder_.filePath("document.json"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(kDocument) + '\n');
    file.close();
    return Open("cat '" + file.fileName().toUtf8() + "'\n");
  }

  QColor MiddleOfCanvas() {
    const auto* canvas = window_->findChild<Canvas*>();
    return window_->grab(QRect(canvas->mapTo(window_.get(), canvas->rect().center()), QSize(1, 1)))
        .toImage()
        .pixelColor(0, 0);
  }

  bool MiddleBecomes(Qt::GlobalColor color) {
    return QTest::qWaitFor([&] { return MiddleOfCanvas() == QColor(color); }, kHangMilliseconds);
  }

  QListWidget* List(const char* dock) {
    return window_->findChild<QWidget*>(dock)->findChild<QListWidget*>();
  }

  QTemporaryDir folder_;
  std::unique_ptr<MainWindow> window_;
};

TEST_F(Window, ShowsSheetsLayersAndWarnings) {
  ASSERT_TRUE(OpenDocument());
  EXPECT_EQ(window_->findChild<QTabBar*>()->tabText(1), "Sheet A");
  EXPECT_EQ(List("layers")->count(), 2);
  EXPECT_EQ(List("layers")->item(0)->checkState(), Qt::Checked);
  EXPECT_EQ(List("layers")->item(1)->checkState(), Qt::Unchecked);
  EXPECT_TRUE(List("notes")->item(0)->text().contains("MESH"));
}

TEST_F(Window, PaintsTheDrawingAndHidesALayerThatIsSwitchedOff) {
  ASSERT_TRUE(OpenDocument());
  EXPECT_TRUE(MiddleBecomes(Qt::red));
  List("layers")->item(0)->setCheckState(Qt::Unchecked);
  EXPECT_TRUE(MiddleBecomes(Qt::white));
}

TEST_F(Window, ZoomsAndPans) {
  ASSERT_TRUE(OpenDocument());
  auto* canvas = window_->findChild<Canvas*>();
  EXPECT_TRUE(MiddleBecomes(Qt::red));
  const QPoint middle = canvas->rect().center();
  QTest::mousePress(canvas, Qt::LeftButton, {}, middle);
  QTest::mouseMove(canvas, middle + QPoint(canvas->width(), 0));
  EXPECT_TRUE(MiddleBecomes(Qt::white));
  canvas->Fit();
  EXPECT_TRUE(MiddleBecomes(Qt::red));
}

TEST_F(Window, ExplainsARefusedDrawing) {
  EXPECT_FALSE(Open("echo '{\"error\":\"Failed to read plan.dwg: INVALIDDWG\"}'\nexit 1\n"));
  EXPECT_TRUE(List("notes")->item(0)->text().contains("cannot be read"));
}

TEST_F(Window, ExplainsACrash) {
  EXPECT_FALSE(Open("kill -SEGV $$\n"));
  EXPECT_TRUE(List("notes")->item(0)->text().contains("broke the program"));
}

}  // namespace
}  // namespace preview
