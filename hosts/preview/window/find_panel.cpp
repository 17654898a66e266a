#include "window/find_panel.hpp"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "window/canvas.hpp"

namespace preview {

FindPanel::FindPanel(QWidget* parent) : QWidget(parent) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(4, 4, 4, 4);
  column->addWidget(text_ = new QLineEdit);
  text_->setPlaceholderText("Text in all sheets");
  text_->setToolTip("Enter or F3: the next hit; Shift+F3: the one before");
  text_->setClearButtonEnabled(true);
  auto* row = new QHBoxLayout;
  column->addLayout(row);
  row->addWidget(cases_ = new QCheckBox("&Match case"));
  row->addWidget(count_ = new QLabel, 1, Qt::AlignRight);
  column->addWidget(list_ = new QListWidget);
  list_->setUniformItemSizes(true);
  connect(text_, &QLineEdit::textChanged, this, &FindPanel::Find);
  connect(cases_, &QCheckBox::toggled, this, &FindPanel::Find);
  connect(text_, &QLineEdit::returnPressed, this, [this] { Step(1); });
  connect(list_, &QListWidget::currentRowChanged, this, &FindPanel::Jump);
}

void FindPanel::Show(Canvas* canvas) {
  if (canvas_ != nullptr) {
    disconnect(canvas_, nullptr, this, nullptr);
  }
  canvas_ = canvas != nullptr && canvas->scene() ? canvas : nullptr;
  if (canvas_ != nullptr) {
    connect(canvas_, &QObject::destroyed, this, [this] { canvas_ = nullptr; });
  }
  Find();
}

void FindPanel::Begin() {
  text_->setFocus();
  text_->selectAll();
}

void FindPanel::Step(int step) {
  const int count = list_->count();
  if (count == 0) {
    return;
  }
  const int row = list_->currentRow();
  const int next = row < 0 ? (step > 0 ? 0 : count - 1) : (row + step + count) % count;
  if (next == row) {
    Jump(row);
  } else {
    list_->setCurrentRow(next);
  }
}

void FindPanel::Find() {
  const int question = ++question_;
  if (canvas_ == nullptr || text_->text().simplified().isEmpty()) {
    Fill({});
    count_->clear();
    return;
  }
  const Qt::CaseSensitivity cases = cases_->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive;
  canvas_->Inquire(
      [text = text_->text(), cases](SceneIndex& index) { return FindText(index, text, cases); },
      [this, question](const FindResult& result) {
        if (question == question_) {
          Fill(result);
        }
      });
}

void FindPanel::Fill(const FindResult& result) {
  const QSignalBlocker blocker(list_);
  list_->clear();
  found_ = result.found;
  for (const Found& found : found_) {
    const Scene& scene = *canvas_->scene();
    const Item& item = ItemOf(scene, found.hit);
    auto* row = new QListWidgetItem(scene.sheets[found.hit.sheet].name + ": " + found.line, list_);
    const QString layer =
        item.layer >= 0 ? scene.layers[static_cast<std::size_t>(item.layer)].name : QString();
    row->setToolTip(found.line + "\nLayer " + layer);
  }
  count_->setText(result.isCut ? QString("the first %1").arg(found_.size())
                               : QString("%1 found").arg(found_.size()));
  emit listed(static_cast<int>(found_.size()));
}

void FindPanel::Jump(int row) {
  if (canvas_ != nullptr && row >= 0 && static_cast<std::size_t>(row) < found_.size()) {
    canvas_->JumpTo(found_[static_cast<std::size_t>(row)].hit);
  }
}

}  // namespace preview
