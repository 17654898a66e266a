// The window, without a screen, with a stand-in for the worker.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QEventLoop>
#include <QFile>
#include <QJsonDocument>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include "document.hpp"
#include "window/blocks_panel.hpp"
#include "window/canvas.hpp"
#include "window/drawing_view.hpp"
#include "window/file_watch.hpp"
#include "window/find_panel.hpp"
#include "window/loading_pages.hpp"
#include "window/main_window.hpp"
#include "window/printing.hpp"
#include "window/settings.hpp"

namespace preview {
namespace {

constexpr char kDocument[] =
    "{\"layers\":[{\"name\":\"0\",\"visible\":true,\"color\":{\"r\":255,\"g\":0,\"b\":0}},"
    "{\"name\":\"Off\",\"visible\":false,\"color\":{}}],\"assets\":["
    "{\"name\":\"Door\",\"baseX\":0,\"baseY\":0,\"entities\":["
    "{\"type\":\"CIRCLE\",\"layer\":\"0\",\"cx\":0,\"cy\":0,\"radius\":1,\"color\":\"L\"}]}],"
    "\"entities\":["
    "{\"type\":\"SOLID\",\"layer\":\"0\",\"pts\":[[0,0],[10,0],[10,10],[0,10]],\"color\":\"L\","
    "\"handle\":\"2A\"},"
    "{\"type\":\"TEXT\",\"layer\":\"0\",\"html\":\"<p>Pump A</p>\",\"x\":1,\"y\":12,\"height\":1}],"
    "\"layouts\":[{\"name\":\"Sheet A\",\"entities\":["
    "{\"type\":\"TEXT\",\"layer\":\"0\",\"html\":\"<p>Pump B</p>\",\"x\":0,\"y\":0,\"height\":1},"
    "{\"type\":\"INSERT\",\"layer\":\"0\",\"blockName\":\"Door\",\"x\":50,\"y\":50}]}],"
    "\"warnings\":[\"Skipped 1 MESH entity (not yet supported)\"]}";

// Only a hang reaches it; what is waited for takes some milliseconds.
constexpr int kHangMilliseconds = 600'000;

class Window : public testing::Test {
 protected:
  // What a user has set on this machine stays untouched.
  Window() { QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder_.path()); }

  QString Write(const QString& name, const QByteArray& contents) {
    QFile file(folder_.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(contents);
    return file.fileName();
  }

  void Start(const QByteArray& script) {
    const QString worker = Write("worker", "#!/bin/sh\n" + script);
    QFile::setPermissions(worker, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    window_ = std::make_unique<MainWindow>(LoadOptions{.worker = worker, .limits = {}});
    window_->show();
  }

  // Runs `begin` and the event loop until the signal comes.
  template <typename Sender, typename Signal, typename Begin>
  void RunUntil(Sender* sender, Signal signal, Begin begin) {
    QEventLoop loop;
    QObject::connect(sender, signal, &loop, &QEventLoop::quit);
    begin();
    loop.exec();
  }

  // Whether the window shows the drawing.
  bool OpenFile(const QString& drawing) {
    bool shown = false;
    QObject context;
    QObject::connect(window_.get(), &MainWindow::settled, &context,
                     [&](bool success) { shown = success; });
    RunUntil(window_.get(), &MainWindow::settled, [&] { window_->Open(drawing); });
    return shown;
  }

  // Whether the window shows what the script's worker says.
  bool Open(const QByteArray& script) {
    Start(script);
    return OpenFile("plan.dwg");
  }

  // With a worker that takes drawings for documents.
  bool OpenDocument() {
    Start("cat \"$1\"\n");
    return OpenFile(Write("plan.dwg", QByteArray(kDocument) + '\n'));
  }

  Canvas& CurrentCanvas() { return *window_->current()->canvas(); }

  QPoint PixelOf(double x, double y) { return CurrentCanvas().view().map(QPointF(x, y)).toPoint(); }

  void ClickAt(double x, double y) {
    RunUntil(&CurrentCanvas(), &Canvas::picked,
             [&] { QTest::mouseClick(&CurrentCanvas(), Qt::LeftButton, {}, PixelOf(x, y)); });
  }

  // The value of a key in the panel; empty without the key.
  QString ListedKey(const QString& key) {
    const QList<QTreeWidgetItem*> rows =
        Dock("record")->findChild<QTreeWidget*>()->findItems(key, Qt::MatchExactly);
    return rows.isEmpty() ? QString() : rows[0]->text(1);
  }

  void Trigger(const QString& action) {
    for (QAction* candidate : window_->findChildren<QAction*>()) {
      if (QString(candidate->text()).remove('&') == action) {
        candidate->trigger();
        return;
      }
    }
    FAIL() << "no action " << action.toStdString();
  }

  QWidget* Dock(const char* name) { return window_->findChild<QWidget*>(name); }
  QTabWidget* Drawings() { return window_->findChild<QTabWidget*>("drawings"); }

  void Press(const char* dock, const QString& button) {
    for (QPushButton* candidate : Dock(dock)->findChildren<QPushButton*>()) {
      if (QString(candidate->text()).remove('&') == button) {
        candidate->click();
      }
    }
  }

  QColor MiddleOfCanvas() {
    const Canvas& canvas = CurrentCanvas();
    return window_->grab(QRect(canvas.mapTo(window_.get(), canvas.rect().center()), QSize(1, 1)))
        .toImage()
        .pixelColor(0, 0);
  }

  bool MiddleBecomes(Qt::GlobalColor color) {
    return QTest::qWaitFor([&] { return MiddleOfCanvas() == QColor(color); }, kHangMilliseconds);
  }

  QListWidget* List(const char* dock) { return Dock(dock)->findChild<QListWidget*>(); }

  QTemporaryDir folder_;
  std::unique_ptr<MainWindow> window_;
};

TEST_F(Window, ShowsSheetsLayersAndWarnings) {
  ASSERT_TRUE(OpenDocument());
  EXPECT_EQ(window_->findChild<QTabBar*>("sheets")->tabText(1), "Sheet A");
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

TEST_F(Window, AClickListsTheKeysOfTheRecordBelow) {
  ASSERT_TRUE(OpenDocument());
  ClickAt(5, 5);
  EXPECT_EQ(ListedKey("Type"), "SOLID");
  EXPECT_EQ(ListedKey("Handle"), "2A");
  EXPECT_EQ(ListedKey("Layer"), "0");
  EXPECT_EQ(ListedKey("From"), "0.0000, 0.0000");
  EXPECT_EQ(ListedKey("To"), "10.0000, 10.0000");
  EXPECT_EQ(CurrentCanvas().marks().outline.boundingRect(), QRectF(0, 0, 10, 10));
}

TEST_F(Window, AClickBesideEverythingClearsTheList) {
  ASSERT_TRUE(OpenDocument());
  ClickAt(5, 5);
  ClickAt(9, 13);
  EXPECT_EQ(ListedKey("Type"), "");
  EXPECT_TRUE(CurrentCanvas().marks().outline.isEmpty());
}

TEST_F(Window, LayersThatAreOffAreNotPicked) {
  ASSERT_TRUE(OpenDocument());
  List("layers")->item(0)->setCheckState(Qt::Unchecked);
  ClickAt(5, 5);
  EXPECT_FALSE(CurrentCanvas().selected());
}

TEST_F(Window, ADragPicksNothing) {
  ASSERT_TRUE(OpenDocument());
  bool isPicked = false;
  QObject::connect(&CurrentCanvas(), &Canvas::picked, window_.get(), [&] { isPicked = true; });
  const QPoint middle = CurrentCanvas().rect().center();
  QTest::mousePress(&CurrentCanvas(), Qt::LeftButton, {}, middle);
  QTest::mouseMove(&CurrentCanvas(), middle + QPoint(30, 0));
  QTest::mouseRelease(&CurrentCanvas(), Qt::LeftButton, {}, middle + QPoint(30, 0));
  // Questions are answered in their order: the last one ends after what a click asks.
  bool isAnswered = false;
  CurrentCanvas().Inquire([](SceneIndex&) { return 0; }, [&](int) { isAnswered = true; });
  ASSERT_TRUE(QTest::qWaitFor([&] { return isAnswered; }, kHangMilliseconds));
  EXPECT_FALSE(isPicked);
}

TEST_F(Window, TheRecordIsCopiedAsTheDocumentHasIt) {
  ASSERT_TRUE(OpenDocument());
  ClickAt(5, 5);
  Press("record", "Copy as JSON");
  const QJsonObject copy =
      QJsonDocument::fromJson(QGuiApplication::clipboard()->text().toUtf8()).object();
  EXPECT_EQ(copy, CurrentCanvas().scene()->records[0]);
}

TEST_F(Window, ALongRecordIsListedInPart) {
  QByteArray points;
  for (int i = 0; i < 3000; ++i) {
    points += "[" + QByteArray::number(i % 7) + ",1],";
  }
  points.chop(1);
  Start("cat \"$1\"\n");
  ASSERT_TRUE(OpenFile(Write(
      "plan.dwg", QByteArray(kDocument).replace("[0,0],[10,0],[10,10],[0,10]", points) + '\n')));
  RunUntil(&CurrentCanvas(), &Canvas::picked, [&] { Trigger("Next record"); });
  const QTreeWidgetItem* row =
      Dock("record")->findChild<QTreeWidget*>()->findItems("pts", Qt::MatchExactly).value(0);
  ASSERT_NE(row, nullptr);
  EXPECT_GT(row->childCount(), 100);
  EXPECT_LT(row->childCount(), 3000);
}

TEST_F(Window, KeysStepThroughTheRecords) {
  ASSERT_TRUE(OpenDocument());
  RunUntil(&CurrentCanvas(), &Canvas::picked, [&] { Trigger("Next record"); });
  EXPECT_EQ(ListedKey("Type"), "SOLID");
  RunUntil(&CurrentCanvas(), &Canvas::picked, [&] { Trigger("Next record"); });
  EXPECT_EQ(ListedKey("Text"), "Pump A");
}

TEST_F(Window, FindsTextAndJumpsFromSheetToSheet) {
  ASSERT_TRUE(OpenDocument());
  auto* panel = window_->findChild<FindPanel*>();
  RunUntil(panel, &FindPanel::listed, [&] { panel->findChild<QLineEdit*>()->setText("pump"); });
  ASSERT_EQ(List("find")->count(), 2);
  EXPECT_EQ(List("find")->item(1)->text(), "Sheet A: Pump B");
  RunUntil(&CurrentCanvas(), &Canvas::picked, [&] { Trigger("Find previous"); });
  EXPECT_EQ(CurrentCanvas().sheet(), 1U);
  EXPECT_EQ(window_->findChild<QTabBar*>("sheets")->currentIndex(), 1);
  const QRectF outline =
      CurrentCanvas().view().mapRect(CurrentCanvas().marks().outline.boundingRect());
  EXPECT_FALSE(outline.isEmpty());
  EXPECT_TRUE(QRectF(CurrentCanvas().rect()).contains(outline));
  RunUntil(&CurrentCanvas(), &Canvas::picked, [&] {
    Trigger("Find next");
    EXPECT_EQ(CurrentCanvas().sheet(), 0U);
  });
}

TEST_F(Window, MeasuresFromEndToEnd) {
  ASSERT_TRUE(OpenDocument());
  Trigger("Measure distance");
  Canvas& canvas = CurrentCanvas();
  const auto click = [&](double x, double y) {
    RunUntil(&canvas, &Canvas::measuredSome, [&] {
      QTest::mouseClick(&canvas, Qt::LeftButton, {}, PixelOf(x, y) + QPoint(3, -2));
    });
  };
  click(0, 0);
  click(10, 0);
  EXPECT_EQ(canvas.marks().note, "Distance 10.0000, direction 0.0000°, Δx 10.0000, Δy 0.0000");
  click(10, 10);
  EXPECT_TRUE(canvas.marks().note.endsWith("Angle 90.0000°, length of all 20.0000, area 50.0000"));
  Trigger("Clear");
  EXPECT_TRUE(canvas.marks().points.empty());
}

TEST_F(Window, MeasuresTheAreaOfWhatIsClicked) {
  ASSERT_TRUE(OpenDocument());
  Trigger("Measure area");
  ClickAt(5, 5);
  EXPECT_EQ(CurrentCanvas().marks().note, "Length 40.0000, area 100.0000 (closed)");
}

TEST_F(Window, FiltersIsolatesAndSwitchesLayers) {
  ASSERT_TRUE(OpenDocument());
  QListWidget* list = List("layers");
  Dock("layers")->findChild<QLineEdit*>()->setText("of");
  EXPECT_TRUE(list->item(0)->isHidden());
  Press("layers", "On");
  EXPECT_EQ(CurrentCanvas().layersShown(), std::vector<bool>({true, true}));
  Dock("layers")->findChild<QLineEdit*>()->clear();
  Press("layers", "Off");
  EXPECT_EQ(CurrentCanvas().layersShown(), std::vector<bool>({false, false}));
  list->item(1)->setSelected(true);
  Press("layers", "Isolate");
  EXPECT_EQ(CurrentCanvas().layersShown(), std::vector<bool>({false, true}));
  EXPECT_EQ(list->item(1)->checkState(), Qt::Checked);
  Dock("layers")->findChild<QComboBox*>()->setCurrentIndex(1);
  EXPECT_FALSE(list->item(0)->isHidden());
  EXPECT_TRUE(list->item(1)->isHidden());
}

TEST_F(Window, ListsBlocksAndJumpsToTheirUses) {
  ASSERT_TRUE(OpenDocument());
  auto* tree = Dock("blocks")->findChild<QTreeWidget*>();
  ASSERT_TRUE(QTest::qWaitFor([&] { return tree->topLevelItemCount() == 1; }, kHangMilliseconds));
  EXPECT_EQ(tree->topLevelItem(0)->text(0), "Door");
  EXPECT_EQ(tree->topLevelItem(0)->text(1), "1");
  EXPECT_FALSE(tree->topLevelItem(0)->icon(0).isNull());
  tree->setCurrentItem(tree->topLevelItem(0)->child(0));
  EXPECT_EQ(CurrentCanvas().sheet(), 1U);
  EXPECT_EQ(CurrentCanvas().marks().outline.boundingRect(), QRectF(49, 49, 2, 2));
  EXPECT_TRUE(CurrentCanvas().rect().contains(PixelOf(50, 50)));
}

TEST_F(Window, EachDrawingHasATab) {
  ASSERT_TRUE(OpenDocument());
  ASSERT_TRUE(OpenFile(Write("other.dwg", QByteArray(kDocument).replace("Sheet A", "Z") + '\n')));
  ASSERT_EQ(Drawings()->count(), 2);
  EXPECT_EQ(Drawings()->currentIndex(), 1);
  EXPECT_EQ(window_->windowTitle(), "other.dwg - dwg_preview");
  Trigger("Previous drawing");
  EXPECT_EQ(window_->windowTitle(), "plan.dwg - dwg_preview");
  ASSERT_TRUE(OpenFile(folder_.filePath("other.dwg")));
  EXPECT_EQ(Drawings()->count(), 2);
  Trigger("Close");
  Trigger("Close");
  EXPECT_EQ(Drawings()->count(), 0);
  EXPECT_EQ(List("layers")->count(), 0);
  Trigger("Find next");
}

TEST_F(Window, OpensWhatIsDropped) {
  Start("cat \"$1\"\n");
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(Write("a.dwg", QByteArray(kDocument) + '\n')),
                QUrl::fromLocalFile(Write("b.dwg", QByteArray(kDocument) + '\n')),
                QUrl::fromLocalFile(Write("c.dwg", QByteArray(kDocument) + '\n'))});
  // Qt sends a drop to the widget that took what was dragged.
  QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &enter);
  QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  int settled = 0;
  QObject::connect(window_.get(), &MainWindow::settled, window_.get(), [&] { ++settled; });
  QApplication::sendEvent(window_.get(), &drop);
  ASSERT_EQ(Drawings()->count(), 3);
  EXPECT_TRUE(QTest::qWaitFor([&] { return settled == 3; }, kHangMilliseconds));
}

TEST_F(Window, RemembersWhatWasOpened) {
  ASSERT_TRUE(OpenDocument());
  EXPECT_EQ(RecentFiles(), QStringList(folder_.filePath("plan.dwg")));
  ForgetRecentFiles();
  EXPECT_TRUE(RecentFiles().isEmpty());
}

TEST_F(Window, LoadsAFileThatChangesAnewAndKeepsTheView) {
  ASSERT_TRUE(OpenDocument());
  List("layers")->item(1)->setCheckState(Qt::Checked);
  Trigger("Next sheet");
  CurrentCanvas().ZoomBy(3);
  const QTransform view = CurrentCanvas().view();
  RunUntil(window_.get(), &MainWindow::settled, [&] {
    Write("plan.dwg", QByteArray(kDocument).replace("Skipped 1", "Skipped 25") + '\n');
  });
  EXPECT_TRUE(List("notes")->item(0)->text().contains("25"));
  EXPECT_EQ(CurrentCanvas().sheet(), 1U);
  EXPECT_EQ(CurrentCanvas().view(), view);
  EXPECT_EQ(List("layers")->item(1)->checkState(), Qt::Checked);
}

TEST_F(Window, LoadsAFileThatAnotherOneReplaces) {
  ASSERT_TRUE(OpenDocument());
  const QString next =
      Write("next", QByteArray(kDocument).replace("Skipped 1", "Skipped 25") + '\n');
  RunUntil(window_.get(), &MainWindow::settled, [&] {
    QFile::remove(folder_.filePath("plan.dwg"));
    QFile::rename(next, folder_.filePath("plan.dwg"));
  });
  EXPECT_TRUE(List("notes")->item(0)->text().contains("25"));
}

TEST_F(Window, ShowsTheStagesAndACrashWithTextToCopy) {
  EXPECT_FALSE(
      Open("echo '[DWG worker] Reading DWG file...' >&2\n"
           "echo '[DWG worker] Converting layers...' >&2\nkill -ABRT $$\n"));
  auto* progress = window_->findChild<ProgressPage*>();
  EXPECT_EQ(progress->lines(), QStringList({"Reading DWG file...", "Converting layers..."}));
  EXPECT_EQ(progress->findChild<QProgressBar*>()->value(), 2);
  auto* failure = window_->findChild<FailurePage*>();
  EXPECT_TRUE(failure->isVisible());
  failure->findChild<QPushButton*>("copy")->click();
  const QString copied = QGuiApplication::clipboard()->text();
  EXPECT_TRUE(copied.contains("broke the program"));
  EXPECT_TRUE(copied.contains("plan.dwg"));
  EXPECT_TRUE(copied.contains("Converting layers..."));
}

TEST_F(Window, TriesAgainAfterAFailure) {
  EXPECT_FALSE(Open("test -e \"$0.again\" && exec cat \"$0.again\"\nkill -SEGV $$\n"));
  Write("worker.again", QByteArray(kDocument) + '\n');
  RunUntil(window_.get(), &MainWindow::settled,
           [&] { window_->findChild<FailurePage*>()->findChild<QPushButton*>("again")->click(); });
  EXPECT_TRUE(CurrentCanvas().isVisible());
}

TEST_F(Window, CancelEndsTheWorker) {
  Start("echo '[DWG worker] Reading DWG file...' >&2\nexec sleep 3600\n");
  auto* canceller = new QObject(window_.get());
  bool shown = true;
  QObject::connect(window_.get(), &MainWindow::settled, canceller,
                   [&](bool success) { shown = success; });
  RunUntil(window_.get(), &MainWindow::settled, [&] {
    window_->Open("plan.dwg");
    QObject::connect(window_->current(), &DrawingView::messageChanged, canceller, [this] {
      if (window_->current()->message().startsWith("Reading")) {
        window_->findChild<QPushButton*>("cancel")->click();
      }
    });
  });
  EXPECT_FALSE(shown);
  EXPECT_EQ(List("notes")->item(0)->text(), "Cancelled.");
  EXPECT_FALSE(window_->current()->isLoading());
}

TEST_F(Window, PrintsASheet) {
  if (!CanPrint()) {
    GTEST_SKIP() << "Qt was built without its support for printers";
  }
  const Scene scene =
      SceneOf("{'type':'LINE','layer':'0','startX':0,'startY':0,'endX':9,'endY':4}");
  const QString file = folder_.filePath("out.pdf");
  EXPECT_EQ(PrintToFile(file, true)(scene, scene.sheets[0]), "");
  QFile pdf(file);
  ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
  EXPECT_TRUE(pdf.readAll().startsWith("%PDF-"));
}

TEST_F(Window, AThemeColoursTheWindowAndTheDrawing) {
  ASSERT_TRUE(OpenDocument());
  List("layers")->item(0)->setCheckState(Qt::Unchecked);
  Trigger("Dark");
  EXPECT_LT(window_->palette().color(QPalette::Window).lightness(), 100);
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return MiddleOfCanvas().lightness() < 100; }, kHangMilliseconds));
  EXPECT_EQ(StoredTheme(), Theme::kDark);
  Trigger("As the system");
  EXPECT_EQ(StoredTheme(), Theme::kSystem);
}

TEST(LoadingPages, KnowTheStagesOfAWorker) {
  EXPECT_EQ(StageOf("Reading DXF file..."), 1);
  EXPECT_EQ(StageOf("Converting layouts (paper space)..."), 6);
  EXPECT_EQ(StageOf("Building the picture..."), StageCount());
  EXPECT_EQ(StageOf("Layers done in 3 ms"), 0);
  EXPECT_EQ(StageOf("something else"), 0);
}

}  // namespace
}  // namespace preview
