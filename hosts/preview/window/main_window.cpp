#include "window/main_window.hpp"

#include <QAction>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QPixmap>
#include <QProgressBar>
#include <QStatusBar>
#include <QTabBar>
#include <QVBoxLayout>

#include <utility>

#include "paint/export.hpp"
#include "window/canvas.hpp"

namespace preview {
namespace {

QIcon Swatch(QRgb color) {
  QPixmap pixmap(12, 12);
  pixmap.fill(QColor::fromRgb(color));
  return {pixmap};
}

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

}  // namespace

MainWindow::MainWindow(LoadOptions options, QWidget* parent)
    : QMainWindow(parent), options_(std::move(options)) {
  auto* middle = new QWidget;
  auto* column = new QVBoxLayout(middle);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(tabs_ = new QTabBar);
  column->addWidget(canvas_ = new Canvas, 1);
  setCentralWidget(middle);
  BuildDocks();
  BuildMenus();
  statusBar()->addWidget(message_ = new QLabel, 1);
  statusBar()->addPermanentWidget(busy_ = new QProgressBar);
  statusBar()->addPermanentWidget(position_ = new QLabel);
  busy_->setRange(0, 0);
  busy_->setMaximumWidth(120);
  busy_->hide();
  connect(tabs_, &QTabBar::currentChanged, this, [this](int tab) {
    if (tab >= 0 && canvas_->scene()) {
      canvas_->ShowSheet(static_cast<std::size_t>(tab));
    }
  });
  connect(canvas_, &Canvas::pointed, this, [this](QPointF at) {
    position_->setText(QString("%1, %2").arg(at.x(), 0, 'f', 3).arg(at.y(), 0, 'f', 3));
  });
  resize(1200, 800);
  setWindowTitle("dwg_preview");
}

MainWindow::~MainWindow() = default;

void MainWindow::BuildDocks() {
  auto* layers = new QDockWidget("Layers");
  layers->setObjectName("layers");
  layers->setWidget(layers_ = new QListWidget);
  addDockWidget(Qt::RightDockWidgetArea, layers);
  auto* notes = new QDockWidget("Warnings and skipped types");
  notes->setObjectName("notes");
  notes->setWidget(notes_ = new QListWidget);
  notes_->setWordWrap(true);
  addDockWidget(Qt::RightDockWidgetArea, notes);
  connect(layers_, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
    canvas_->SetLayerShown(static_cast<std::size_t>(layers_->row(item)),
                           item->checkState() == Qt::Checked);
  });
}

void MainWindow::BuildMenus() {
  QMenu* file = menuBar()->addMenu("&File");
  file->addAction("&Open...", QKeySequence::Open, this, &MainWindow::AskAndOpen);
  file->addAction("&Export...", QKeySequence::SaveAs, this, &MainWindow::AskAndExport);
  file->addAction("&Quit", QKeySequence::Quit, this, &QWidget::close);
  QMenu* view = menuBar()->addMenu("&View");
  view->addAction("&Fit", QKeySequence("0"), canvas_, &Canvas::Fit);
  QAction* dark = view->addAction("&Dark background");
  dark->setCheckable(true);
  connect(dark, &QAction::toggled, canvas_, &Canvas::SetDark);
  QAction* lineweights = view->addAction("&Lineweights");
  lineweights->setCheckable(true);
  lineweights->setChecked(true);
  connect(lineweights, &QAction::toggled, canvas_, &Canvas::SetLineweights);
}

void MainWindow::Open(const QString& drawing) {
  drawing_ = drawing;
  setWindowTitle(QFileInfo(drawing).fileName() + " - dwg_preview");
  delete loader_;
  loader_ = new Loader(this);
  busy_->show();
  connect(loader_, &Loader::progress, message_, &QLabel::setText);
  connect(loader_, &Loader::loaded, this, &MainWindow::OnLoaded);
  connect(loader_, &Loader::failed, this, &MainWindow::ShowFailure);
  loader_->Start(drawing, options_);
}

void MainWindow::OnLoaded(const LoadedDrawing& loaded) {
  busy_->hide();
  message_->setText(loaded.summary);
  const QSignalBlocker blocker(tabs_);
  canvas_->SetScene(loaded.scene);
  FillTabs();
  FillLayers();
  FillNotes();
  emit settled(true);
}

// In the panel and the status bar: a box that must be clicked away is no help.
void MainWindow::ShowFailure(const QString& message) {
  busy_->hide();
  message_->setText(message);
  notes_->clear();
  notes_->addItem(message);
  emit settled(false);
}

void MainWindow::FillTabs() {
  while (tabs_->count() > 0) {
    tabs_->removeTab(0);
  }
  for (const Sheet& sheet : canvas_->scene()->sheets) {
    tabs_->addTab(sheet.name);
  }
}

void MainWindow::FillLayers() {
  const QSignalBlocker blocker(layers_);
  layers_->clear();
  for (const Layer& layer : canvas_->scene()->layers) {
    auto* item = new QListWidgetItem(Swatch(layer.color), layer.name, layers_);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(layer.visible ? Qt::Checked : Qt::Unchecked);
    item->setToolTip(layer.locked ? layer.name + " (locked)" : layer.name);
  }
}

void MainWindow::FillNotes() {
  notes_->clear();
  notes_->addItems(canvas_->scene()->notes);
}

void MainWindow::AskAndOpen() {
  const QString file = QFileDialog::getOpenFileName(this, "Open a drawing", drawing_,
                                                    "Drawings (*.dwg *.dxf *.DWG *.DXF);;All (*)");
  if (!file.isEmpty()) {
    Open(file);
  }
}

// In the renderer's thread, since only that may paint the scene.
void MainWindow::AskAndExport() {
  const std::shared_ptr<const Scene> scene = canvas_->scene();
  if (!scene) {
    return;
  }
  const QString file = QFileDialog::getSaveFileName(
      this, "Export", {}, "Pictures (*.png);;SVG (*.svg);;PDF (*.pdf);;Page for browsers (*.html)");
  if (file.isEmpty()) {
    return;
  }
  const std::size_t sheet = canvas_->sheet();
  const QString title = QFileInfo(drawing_).fileName();
  canvas_->renderer().Run([this, scene, sheet, title, file] {
    const QString problem = Export(*scene, scene->sheets[sheet], title, file);
    QMetaObject::invokeMethod(
        this,
        [this, problem, file] {
          message_->setText(problem.isEmpty() ? file + " was written." : problem);
        },
        Qt::QueuedConnection);
  });
}

}  // namespace preview
