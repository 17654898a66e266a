#include "window/loading_pages.hpp"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace preview {
namespace {

constexpr qsizetype kMostLines = 200;

// How the lines begin that the worker writes on standard error, in their order; the last
// is the preview's own.
constexpr std::array kStages = {"Reading ",
                                "Pre-pass",
                                "Converting layers",
                                "Converting assets",
                                "Converting model-space",
                                "Converting layouts",
                                "Building the picture"};

QVBoxLayout* MiddleColumn(QWidget* page) {
  auto* row = new QHBoxLayout(page);
  auto* column = new QVBoxLayout;
  row->addStretch(1);
  row->addLayout(column, 4);
  row->addStretch(1);
  return column;
}

QLabel* Title() {
  auto* title = new QLabel;
  QFont font = title->font();
  font.setPointSizeF(font.pointSizeF() * 1.3);
  title->setFont(font);
  title->setWordWrap(true);
  title->setTextFormat(Qt::PlainText);
  return title;
}

}  // namespace

int StageOf(const QString& line) {
  const auto found = std::find_if(kStages.begin(), kStages.end(), [&](const char* stage) {
    return line.startsWith(QLatin1String(stage));
  });
  return found == kStages.end() ? 0 : static_cast<int>(found - kStages.begin()) + 1;
}

int StageCount() {
  return static_cast<int>(kStages.size());
}

ProgressPage::ProgressPage(QWidget* parent) : QWidget(parent) {
  QVBoxLayout* column = MiddleColumn(this);
  column->addStretch(1);
  column->addWidget(title_ = Title());
  column->addWidget(bar_ = new QProgressBar);
  column->addWidget(list_ = new QListWidget, 3);
  list_->setFocusPolicy(Qt::NoFocus);
  auto* cancel = new QPushButton("&Cancel");
  cancel->setObjectName("cancel");
  cancel->setToolTip("Ends the worker (Escape)");
  column->addWidget(cancel, 0, Qt::AlignRight);
  column->addStretch(1);
  connect(cancel, &QPushButton::clicked, this, &ProgressPage::cancelled);
}

void ProgressPage::Begin(const QString& drawing) {
  lines_.clear();
  list_->clear();
  title_->setText("Opening " + drawing);
  // Busy until the first stage is known.
  bar_->setRange(0, 0);
}

void ProgressPage::Add(const QString& line) {
  lines_.append(line);
  list_->addItem(line);
  if (lines_.size() > kMostLines) {
    lines_.removeFirst();
    delete list_->takeItem(0);
  }
  list_->scrollToBottom();
  const int stage = StageOf(line);
  if (stage > 0) {
    bar_->setRange(0, StageCount());
    bar_->setValue(stage - 1);
  }
}

FailurePage::FailurePage(QWidget* parent) : QWidget(parent) {
  QVBoxLayout* column = MiddleColumn(this);
  column->addStretch(1);
  column->addWidget(reason_ = Title());
  column->addWidget(details_ = new QPlainTextEdit, 3);
  details_->setReadOnly(true);
  details_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  auto* row = new QHBoxLayout;
  column->addLayout(row);
  row->addStretch(1);
  auto* copy = new QPushButton("&Copy");
  copy->setObjectName("copy");
  copy->setToolTip("Copies this text, for a report");
  auto* again = new QPushButton("&Try again");
  again->setObjectName("again");
  row->addWidget(copy);
  row->addWidget(again);
  column->addStretch(1);
  connect(copy, &QPushButton::clicked, this, &FailurePage::Copy);
  connect(again, &QPushButton::clicked, this, &FailurePage::again);
}

void FailurePage::Show(const QString& reason, const QString& details) {
  reason_->setText(reason);
  details_->setPlainText(details);
}

void FailurePage::Copy() {
  QGuiApplication::clipboard()->setText(reason_->text() + "\n\n" + details_->toPlainText());
}

}  // namespace preview
