#include "window/drawing_view.hpp"

#include <QFileInfo>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include <utility>

#include "window/canvas.hpp"
#include "window/file_watch.hpp"
#include "window/loading_pages.hpp"

namespace preview {

DrawingView::DrawingView(QString drawing, LoadOptions options, QWidget* parent)
    : QWidget(parent), drawing_(std::move(drawing)), options_(std::move(options)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(pages_ = new QStackedWidget);
  pages_->addWidget(progress_ = new ProgressPage);
  pages_->addWidget(failure_ = new FailurePage);
  pages_->addWidget(sheets_ = new QWidget);
  auto* sheetColumn = new QVBoxLayout(sheets_);
  sheetColumn->setContentsMargins(0, 0, 0, 0);
  sheetColumn->setSpacing(0);
  sheetColumn->addWidget(tabs_ = new QTabBar);
  sheetColumn->addWidget(canvas_ = new Canvas, 1);
  tabs_->setObjectName("sheets");
  tabs_->setDrawBase(false);
  tabs_->setExpanding(false);
  progress_->Begin(Title());
  watch_ = new FileWatch(this);
  connect(watch_, &FileWatch::changed, this, &DrawingView::outdated);
  connect(progress_, &ProgressPage::cancelled, this, &DrawingView::Cancel);
  connect(failure_, &FailurePage::again, this, &DrawingView::outdated);
  connect(tabs_, &QTabBar::currentChanged, this, [this](int tab) {
    if (tab >= 0 && canvas_->scene() && static_cast<std::size_t>(tab) != canvas_->sheet()) {
      canvas_->ShowSheet(static_cast<std::size_t>(tab));
    }
  });
  connect(canvas_, &Canvas::sheetChanged, this,
          [this](std::size_t sheet) { tabs_->setCurrentIndex(static_cast<int>(sheet)); });
}

DrawingView::~DrawingView() = default;

QString DrawingView::Title() const {
  return QFileInfo(drawing_).fileName();
}

void DrawingView::Load() {
  delete loader_;
  loader_ = new Loader(this);
  isLoading_ = true;
  watch_->Watch(drawing_);
  progress_->Begin(Title());
  if (pages_->currentWidget() != sheets_) {
    pages_->setCurrentWidget(progress_);
  }
  connect(loader_, &Loader::progress, this, [this](const QString& line) {
    progress_->Add(line);
    Say(line);
  });
  connect(loader_, &Loader::loaded, this, &DrawingView::OnLoaded);
  connect(loader_, &Loader::failed, this, &DrawingView::OnFailed);
  loader_->Start(drawing_, options_);
}

void DrawingView::Cancel() {
  if (isLoading_ && loader_ != nullptr) {
    loader_->Cancel();
  }
}

void DrawingView::StepSheet(int step) {
  if (tabs_->count() > 0) {
    tabs_->setCurrentIndex((tabs_->currentIndex() + step + tabs_->count()) % tabs_->count());
  }
}

void DrawingView::OnLoaded(const LoadedDrawing& loaded) {
  isLoading_ = false;
  notes_ = loaded.scene->notes;
  if (pages_->currentWidget() != sheets_) {
    pages_->setCurrentWidget(sheets_);
    canvas_->setFocus();
  }
  {
    // The canvas keeps the sheet that was open.
    const QSignalBlocker blocker(tabs_);
    canvas_->SetScene(loaded.scene);
    FillTabs();
  }
  Say(loaded.summary);
  emit settled(true);
}

// In the window and its panel: a box that must be clicked away is no help.
void DrawingView::OnFailed(const QString& reason) {
  isLoading_ = false;
  notes_ = {reason};
  QStringList details{"Drawing: " + QFileInfo(drawing_).absoluteFilePath(),
                      "Worker: " + FindWorker(options_.worker)};
  if (!progress_->lines().isEmpty()) {
    details << "The worker said:" << progress_->lines();
  }
  failure_->Show(reason, details.join('\n'));
  pages_->setCurrentWidget(failure_);
  Say(reason);
  emit settled(false);
}

void DrawingView::FillTabs() {
  while (tabs_->count() > 0) {
    tabs_->removeTab(0);
  }
  for (const Sheet& sheet : canvas_->scene()->sheets) {
    const int tab = tabs_->addTab(QString(sheet.name).replace('&', "&&"));
    tabs_->setTabToolTip(tab, sheet.name);
  }
  tabs_->setCurrentIndex(static_cast<int>(canvas_->sheet()));
}

void DrawingView::Say(const QString& message) {
  message_ = message;
  emit messageChanged();
}

}  // namespace preview
