#include "window/main_window.hpp"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QStatusBar>
#include <QTabWidget>

#include <utility>

#include "paint/export.hpp"
#include "window/blocks_panel.hpp"
#include "window/canvas.hpp"
#include "window/drawing_view.hpp"
#include "window/find_panel.hpp"
#include "window/layers_panel.hpp"
#include "window/printing.hpp"
#include "window/record_panel.hpp"

namespace preview {
namespace {

// Each may take the memory that its limits allow.
constexpr int kMostWorkers = 2;
constexpr double kZoomStep = 1.25;

// By the file's extension.
QString Export(const Scene& scene, const Sheet& sheet, const QString& title, const QString& file) {
  const QString suffix = QFileInfo(file).suffix().toLower();
  if (suffix == "svg") {
    return WriteSvg(scene, sheet, {}, file);
  }
  if (suffix == "pdf") {
    return WritePdf(scene, sheet, {}, file);
  }
  return suffix == "html" ? WriteHtml(scene, title, {}, file) : WritePng(scene, sheet, {}, file);
}

QStringList FilesOf(const QMimeData* data) {
  QStringList files;
  for (const QUrl& url : data->urls()) {
    if (url.isLocalFile()) {
      files << url.toLocalFile();
    }
  }
  return files;
}

bool IsWide(const Sheet& sheet) {
  const QRectF area = PictureArea(sheet, {});
  return area.width() > area.height();
}

}  // namespace

MainWindow::MainWindow(LoadOptions options, QWidget* parent)
    : QMainWindow(parent), options_(std::move(options)) {
  setCentralWidget(drawings_ = new QTabWidget);
  drawings_->setObjectName("drawings");
  drawings_->setDocumentMode(true);
  drawings_->setTabsClosable(true);
  drawings_->setMovable(true);
  connect(drawings_, &QTabWidget::currentChanged, this, &MainWindow::ShowCurrent);
  connect(drawings_, &QTabWidget::tabCloseRequested, this, &MainWindow::CloseView);
  BuildDocks();
  BuildMenus();
  statusBar()->addWidget(message_ = new QLabel, 1);
  statusBar()->addPermanentWidget(busy_ = new QProgressBar);
  statusBar()->addPermanentWidget(position_ = new QLabel);
  // A long message is cut: it must not make the window wider.
  message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  message_->setTextFormat(Qt::PlainText);
  busy_->setRange(0, 0);
  busy_->setMaximumWidth(120);
  busy_->hide();
  setAcceptDrops(true);
  resize(1200, 800);
  SetTheme(StoredTheme());
  ShowCurrent();
}

// The tabs go while the window is still one: their ends reach its panels.
MainWindow::~MainWindow() {
  disconnect(drawings_, nullptr, this, nullptr);
  while (drawings_->count() > 0) {
    delete drawings_->widget(0);
  }
}

QDockWidget* MainWindow::AddDock(const QString& title, const QString& name, QWidget* widget,
                                 Qt::DockWidgetArea area) {
  auto* dock = new QDockWidget(title);
  dock->setObjectName(name);
  dock->setWidget(widget);
  addDockWidget(area, dock);
  docks_ << dock;
  return dock;
}

void MainWindow::BuildDocks() {
  constexpr Qt::DockWidgetArea kRight = Qt::RightDockWidgetArea;
  QDockWidget* layers = AddDock("Layers", "layers", layers_ = new LayersPanel, kRight);
  QDockWidget* blocks = AddDock("Blocks", "blocks", blocks_ = new BlocksPanel, kRight);
  QDockWidget* recordDock = AddDock("Record", "record", record_ = new RecordPanel, kRight);
  QDockWidget* findDock = AddDock("Find", "find", find_ = new FindPanel, kRight);
  QDockWidget* notes = AddDock("Warnings", "notes", notes_ = new QListWidget, kRight);
  tabifyDockWidget(layers, blocks);
  tabifyDockWidget(recordDock, findDock);
  tabifyDockWidget(findDock, notes);
  layers->raise();
  recordDock->raise();
  resizeDocks({layers}, {300}, Qt::Horizontal);
  setTabPosition(kRight, QTabWidget::North);
  notes_->setWordWrap(true);
  notes_->setToolTip("What the worker warns of, and what is not drawn");
}

void MainWindow::BuildMenus() {
  BuildFileMenu();
  BuildEditMenu();
  BuildViewMenu();
  BuildToolMenu();
  BuildPanelMenu();
}

void MainWindow::BuildFileMenu() {
  QMenu* file = menuBar()->addMenu("&File");
  file->setToolTipsVisible(true);
  file->addAction("&Open...", QKeySequence::Open, this, &MainWindow::AskAndOpen)
      ->setToolTip("Opens drawings in tabs; they can be dropped on the window, too");
  QMenu* recent = file->addMenu("Open &recent");
  recent->setObjectName("recent");
  connect(recent, &QMenu::aboutToShow, this, [this, recent] { FillRecent(recent); });
  file->addAction("Re&load", QKeySequence::Refresh, this, [this] {
    if (DrawingView* view = current()) {
      Enqueue(view);
    }
  });
  file->addAction("&Cancel loading", QKeySequence("Ctrl+."), this, [this] {
    if (DrawingView* view = current()) {
      view->Cancel();
    }
  });
  file->addSeparator();
  file->addAction("&Export...", QKeySequence::SaveAs, this, &MainWindow::AskAndExport)
      ->setToolTip("Writes a picture, or a page for browsers");
  QAction* print =
      file->addAction("&Print...", QKeySequence::Print, this, &MainWindow::AskAndPrint);
  print->setEnabled(CanPrint());
  file->addSeparator();
  file->addAction("&Close", QKeySequence::Close, this,
                  [this] { CloseView(drawings_->currentIndex()); });
  file->addAction("&Quit", QKeySequence("Ctrl+Q"), this, &QWidget::close);
}

void MainWindow::BuildEditMenu() {
  QMenu* edit = menuBar()->addMenu("&Edit");
  edit->setToolTipsVisible(true);
  edit->addAction("&Find...", QKeySequence::Find, this, &MainWindow::Find)
      ->setToolTip("Text in all sheets");
  edit->addAction("Find &next", QKeySequence("F3"), this, [this] { find_->Step(1); });
  edit->addAction("Find &previous", QKeySequence("Shift+F3"), this, [this] { find_->Step(-1); });
  edit->addSeparator();
  edit->addAction("Copy as &JSON", QKeySequence("Ctrl+Shift+C"), record_, &RecordPanel::Copy)
      ->setToolTip("The picked record");
  edit->addAction("Next &record", QKeySequence("N"), this,
                  [this] { WithCanvas([](Canvas& canvas) { canvas.SelectNeighbour(1); }); });
  edit->addAction("Previous rec&ord", QKeySequence("Shift+N"), this,
                  [this] { WithCanvas([](Canvas& canvas) { canvas.SelectNeighbour(-1); }); });
}

void MainWindow::BuildViewMenu() {
  QMenu* view = menuBar()->addMenu("&View");
  view->addAction("&Fit", QKeySequence("0"), this,
                  [this] { WithCanvas([](Canvas& canvas) { canvas.Fit(); }); });
  view->addAction("Zoom &in", QKeySequence("Ctrl++"), this,
                  [this] { WithCanvas([](Canvas& canvas) { canvas.ZoomBy(kZoomStep); }); });
  view->addAction("Zoom &out", QKeySequence("Ctrl+-"), this,
                  [this] { WithCanvas([](Canvas& canvas) { canvas.ZoomBy(1 / kZoomStep); }); });
  view->addSeparator();
  const auto stepSheet = [this](int step) {
    if (DrawingView* drawing = current()) {
      drawing->StepSheet(step);
    }
  };
  view->addAction("&Next sheet", QKeySequence("Ctrl+PgDown"), this, [=] { stepSheet(1); });
  view->addAction("&Previous sheet", QKeySequence("Ctrl+PgUp"), this, [=] { stepSheet(-1); });
  view->addAction("Next drawin&g", QKeySequence("Ctrl+Tab"), this, [this] { StepDrawing(1); });
  view->addAction("Previous dra&wing", QKeySequence("Ctrl+Shift+Tab"), this,
                  [this] { StepDrawing(-1); });
  view->addSeparator();
  dark_ = view->addAction("&Dark background");
  dark_->setShortcut(QKeySequence("Ctrl+D"));
  dark_->setCheckable(true);
  connect(dark_, &QAction::toggled, this, &MainWindow::SetDark);
  QAction* lineweights = view->addAction("&Lineweights");
  lineweights->setShortcut(QKeySequence("Ctrl+L"));
  lineweights->setCheckable(true);
  lineweights->setChecked(true);
  connect(lineweights, &QAction::toggled, this, [this](bool on) {
    hasLineweights_ = on;
    WithCanvas([on](Canvas& canvas) { canvas.SetLineweights(on); });
  });
  BuildThemeMenu(view->addMenu("&Theme"));
}

void MainWindow::BuildThemeMenu(QMenu* menu) {
  auto* group = new QActionGroup(this);
  const auto add = [&](const QString& name, Theme theme) {
    QAction* action = menu->addAction(name, this, [this, theme] { SetTheme(theme); });
    action->setCheckable(true);
    action->setChecked(StoredTheme() == theme);
    group->addAction(action);
  };
  add("As the &system", Theme::kSystem);
  add("&Light", Theme::kLight);
  add("&Dark", Theme::kDark);
}

void MainWindow::BuildToolMenu() {
  QMenu* tools = menuBar()->addMenu("&Tools");
  tools->setToolTipsVisible(true);
  auto* group = new QActionGroup(this);
  const auto add = [&](const QString& name, const QString& key, const QString& tip, Tool tool) {
    QAction* action = tools->addAction(name, QKeySequence(key), this, [this, tool] {
      tool_ = static_cast<int>(tool);
      WithCanvas([tool](Canvas& canvas) { canvas.SetTool(tool); });
    });
    action->setToolTip(tip);
    action->setCheckable(true);
    action->setChecked(tool == Tool::kSelect);
    group->addAction(action);
  };
  add("&Select", "S",
      "A click outlines a record and lists its keys; the next one there takes what "
      "lies under it",
      Tool::kSelect);
  add("Measure &distance", "M",
      "Clicks give distances and angles; ends, middles, centres and "
      "intersections attract the pointer",
      Tool::kDistance);
  add("Measure &area", "A", "A click gives the length and the area of a polyline", Tool::kArea);
  tools->addSeparator();
  QAction* clear = tools->addAction("&Clear", QKeySequence("Escape"), this, [this] {
    DrawingView* view = current();
    if (view != nullptr && view->isLoading()) {
      view->Cancel();
    }
    WithCanvas([](Canvas& canvas) { canvas.Clear(); });
  });
  clear->setToolTip("The selection and what was measured");
}

void MainWindow::BuildPanelMenu() {
  QMenu* panels = menuBar()->addMenu("&Panels");
  int number = 0;
  for (QDockWidget* dock : docks_) {
    QAction* action = dock->toggleViewAction();
    action->setShortcut(QKeySequence(QString("Alt+%1").arg(++number)));
    panels->addAction(action);
  }
}

void MainWindow::FillRecent(QMenu* menu) {
  menu->clear();
  for (const QString& file : RecentFiles()) {
    menu->addAction(QString(file).replace('&', "&&"), this, [this, file] { Open(file); });
  }
  menu->addSeparator();
  menu->addAction("&Forget them", this, ForgetRecentFiles)->setEnabled(!RecentFiles().isEmpty());
}

void MainWindow::WithCanvas(const std::function<void(Canvas&)>& action) const {
  if (const DrawingView* view = current()) {
    action(*view->canvas());
  }
}

DrawingView* MainWindow::current() const {
  return qobject_cast<DrawingView*>(drawings_->currentWidget());
}

DrawingView* MainWindow::ViewOf(const QString& drawing) const {
  for (int i = 0; i < drawings_->count(); ++i) {
    auto* view = qobject_cast<DrawingView*>(drawings_->widget(i));
    if (QFileInfo(view->drawing()) == QFileInfo(drawing)) {
      return view;
    }
  }
  return nullptr;
}

void MainWindow::Open(const QString& drawing) {
  DrawingView* view = ViewOf(drawing);
  if (view == nullptr) {
    view = AddView(drawing);
  }
  drawings_->setCurrentWidget(view);
  AddRecentFile(drawing);
  Enqueue(view);
}

DrawingView* MainWindow::AddView(const QString& drawing) {
  auto* view = new DrawingView(drawing, options_);
  connect(view, &DrawingView::settled, this, [this, view](bool shown) { OnSettled(view, shown); });
  connect(view, &DrawingView::outdated, this, [this, view] { Enqueue(view); });
  connect(view, &DrawingView::messageChanged, this, [this, view] {
    if (view == current()) {
      ShowMessage();
    }
  });
  connect(view->canvas(), &Canvas::pointed, this, [this](QPointF at) {
    position_->setText(QString("%1, %2").arg(at.x(), 0, 'f', 3).arg(at.y(), 0, 'f', 3));
  });
  connect(view->canvas(), &Canvas::measuredSome, message_, &QLabel::setText);
  const int tab = drawings_->addTab(view, view->Title().replace('&', "&&"));
  drawings_->setTabToolTip(tab, QFileInfo(drawing).absoluteFilePath());
  return view;
}

void MainWindow::Enqueue(DrawingView* view) {
  // A load that runs is begun anew, as its file is another one by now.
  if (view->isLoading()) {
    view->Load();
    return;
  }
  if (!waiting_.contains(view)) {
    waiting_ << view;
  }
  LoadNext();
}

void MainWindow::LoadNext() {
  int running = 0;
  for (int i = 0; i < drawings_->count(); ++i) {
    running += qobject_cast<DrawingView*>(drawings_->widget(i))->isLoading() ? 1 : 0;
  }
  while (running < kMostWorkers && !waiting_.isEmpty()) {
    waiting_.takeFirst()->Load();
    ++running;
  }
  ShowMessage();
}

void MainWindow::OnSettled(DrawingView* view, bool shown) {
  LoadNext();
  if (view == current()) {
    ShowCurrent();
  }
  emit settled(shown);
}

void MainWindow::CloseView(int tab) {
  auto* view = qobject_cast<DrawingView*>(drawings_->widget(tab));
  if (view == nullptr) {
    return;
  }
  waiting_.removeAll(view);
  drawings_->removeTab(tab);
  delete view;
  LoadNext();
}

void MainWindow::ShowCurrent() {
  DrawingView* view = current();
  Canvas* canvas = view == nullptr ? nullptr : view->canvas();
  setWindowTitle(view == nullptr ? QString("dwg_preview") : view->Title() + " - dwg_preview");
  if (canvas != nullptr) {
    canvas->SetDark(isDark_);
    canvas->SetLineweights(hasLineweights_);
    canvas->SetTool(static_cast<Tool>(tool_));
  }
  layers_->Show(canvas);
  blocks_->Show(canvas);
  record_->Show(canvas);
  find_->Show(canvas);
  FillNotes();
  ShowMessage();
}

void MainWindow::ShowMessage() {
  const DrawingView* view = current();
  message_->setText(view == nullptr ? QString("Open a drawing, or drop one here.")
                                    : view->message());
  message_->setToolTip(message_->text());
  busy_->setVisible(view != nullptr && view->isLoading());
}

void MainWindow::FillNotes() {
  notes_->clear();
  if (const DrawingView* view = current()) {
    notes_->addItems(view->notes());
  }
}

void MainWindow::StepDrawing(int step) {
  const int count = drawings_->count();
  if (count > 0) {
    drawings_->setCurrentIndex((drawings_->currentIndex() + step + count) % count);
  }
}

void MainWindow::Find() {
  auto* dock = qobject_cast<QDockWidget*>(find_->parentWidget());
  dock->show();
  dock->raise();
  find_->Begin();
}

void MainWindow::SetDark(bool dark) {
  isDark_ = dark;
  WithCanvas([dark](Canvas& canvas) { canvas.SetDark(dark); });
}

void MainWindow::SetTheme(Theme theme) {
  UseTheme(theme);
  // Widgets that are made before the event loop runs do not hear of it.
  setPalette(theme == Theme::kSystem ? QPalette() : QApplication::palette());
  dark_->setChecked(IsDark(QApplication::palette().color(QPalette::Window)));
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!FilesOf(event->mimeData()).isEmpty()) {
    event->acceptProposedAction();
  }
}

void MainWindow::dropEvent(QDropEvent* event) {
  for (const QString& file : FilesOf(event->mimeData())) {
    Open(file);
  }
  event->acceptProposedAction();
}

void MainWindow::AskAndOpen() {
  const DrawingView* view = current();
  const QStringList files = QFileDialog::getOpenFileNames(
      this, "Open drawings", view == nullptr ? QString() : view->drawing(),
      "Drawings (*.dwg *.dxf *.DWG *.DXF);;All (*)");
  for (const QString& file : files) {
    Open(file);
  }
}

void MainWindow::AskAndExport() {
  const DrawingView* view = current();
  if (view == nullptr || !view->canvas()->scene()) {
    return;
  }
  const QString file = QFileDialog::getSaveFileName(
      this, "Export", {}, "Pictures (*.png);;SVG (*.svg);;PDF (*.pdf);;Page for browsers (*.html)");
  if (!file.isEmpty()) {
    RunForSheet(
        [title = view->Title(), file](const Scene& scene, const Sheet& sheet) {
          return Export(scene, sheet, title, file);
        },
        file + " was written.");
  }
}

void MainWindow::AskAndPrint() {
  const DrawingView* view = current();
  if (view == nullptr || !view->canvas()->scene()) {
    return;
  }
  const Canvas& canvas = *view->canvas();
  if (const PrintJob job = AskForPrinter(this, IsWide(canvas.scene()->sheets[canvas.sheet()]))) {
    RunForSheet(job, "The sheet went to the printer.");
  }
}

void MainWindow::RunForSheet(const std::function<QString(const Scene&, const Sheet&)>& task,
                             const QString& success) {
  Canvas* canvas = current()->canvas();
  canvas->renderer().Run([this, scene = canvas->scene(), sheet = canvas->sheet(), task, success] {
    const QString problem = task(*scene, scene->sheets[sheet]);
    QMetaObject::invokeMethod(
        this,
        [this, problem, success] { message_->setText(problem.isEmpty() ? success : problem); },
        Qt::QueuedConnection);
  });
}

}  // namespace preview
