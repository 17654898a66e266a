#include "window/layers_panel.hpp"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "window/canvas.hpp"

namespace preview {
namespace {

QIcon Swatch(QRgb color) {
  // With an edge, since a white layer would not be seen on a white list.
  QPixmap pixmap(12, 12);
  pixmap.fill(Qt::gray);
  QPainter(&pixmap).fillRect(pixmap.rect().adjusted(1, 1, -1, -1), QColor::fromRgb(color));
  return {pixmap};
}

QPushButton* Button(const QString& text, const QString& tip) {
  auto* button = new QPushButton(text);
  button->setToolTip(tip);
  return button;
}

}  // namespace

LayersPanel::LayersPanel(QWidget* parent) : QWidget(parent) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(4, 4, 4, 4);
  column->addWidget(filter_ = new QLineEdit);
  filter_->setPlaceholderText("Filter layers");
  filter_->setToolTip("Lists the layers whose name has this text");
  filter_->setClearButtonEnabled(true);
  column->addWidget(color_ = new QComboBox);
  color_->setToolTip("Lists the layers of this colour");
  auto* buttons = new QHBoxLayout;
  column->addLayout(buttons);
  QPushButton* on = Button("&On", "Shows all listed layers");
  QPushButton* off = Button("O&ff", "Hides all listed layers");
  QPushButton* isolate = Button("&Isolate", "Shows the marked layers and hides all others");
  for (QPushButton* button : {on, off, isolate}) {
    buttons->addWidget(button);
  }
  column->addWidget(list_ = new QListWidget);
  list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  connect(filter_, &QLineEdit::textChanged, this, &LayersPanel::Filter);
  connect(color_, &QComboBox::currentIndexChanged, this, &LayersPanel::Filter);
  connect(on, &QPushButton::clicked, this, [this] { SetAll(true); });
  connect(off, &QPushButton::clicked, this, [this] { SetAll(false); });
  connect(isolate, &QPushButton::clicked, this, &LayersPanel::Isolate);
  connect(list_, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
    canvas_->SetLayerShown(static_cast<std::size_t>(list_->row(item)),
                           item->checkState() == Qt::Checked);
  });
}

void LayersPanel::Show(Canvas* canvas) {
  if (canvas_ != nullptr) {
    disconnect(canvas_, nullptr, this, nullptr);
  }
  canvas_ = canvas != nullptr && canvas->scene() ? canvas : nullptr;
  if (canvas_ != nullptr) {
    connect(canvas_, &Canvas::layersChanged, this, &LayersPanel::Fill);
    connect(canvas_, &QObject::destroyed, this, [this] { canvas_ = nullptr; });
  }
  setEnabled(canvas_ != nullptr);
  FillColors();
  Fill();
}

void LayersPanel::Fill() {
  const QSignalBlocker blocker(list_);
  list_->clear();
  if (canvas_ == nullptr) {
    return;
  }
  const std::vector<Layer>& layers = canvas_->scene()->layers;
  for (std::size_t i = 0; i < layers.size(); ++i) {
    const Layer& layer = layers[i];
    auto* item = new QListWidgetItem(Swatch(layer.color), layer.name, list_);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(canvas_->layersShown()[i] ? Qt::Checked : Qt::Unchecked);
    item->setToolTip(layer.locked ? layer.name + " (locked)" : layer.name);
  }
  Filter();
}

void LayersPanel::FillColors() {
  const QSignalBlocker blocker(color_);
  color_->clear();
  color_->addItem("All colours");
  if (canvas_ == nullptr) {
    return;
  }
  for (const Layer& layer : canvas_->scene()->layers) {
    if (color_->findData(layer.color) < 0) {
      color_->addItem(Swatch(layer.color), QColor::fromRgb(layer.color).name(), layer.color);
    }
  }
}

void LayersPanel::Filter() {
  if (canvas_ == nullptr) {
    return;
  }
  const QVariant color = color_->currentData();
  const std::vector<Layer>& layers = canvas_->scene()->layers;
  for (int row = 0; row < list_->count(); ++row) {
    const Layer& layer = layers[static_cast<std::size_t>(row)];
    const bool hasColor = !color.isValid() || color.toUInt() == layer.color;
    const bool isListed = hasColor && layer.name.contains(filter_->text(), Qt::CaseInsensitive);
    list_->item(row)->setHidden(!isListed);
  }
}

void LayersPanel::SetAll(bool shown) {
  if (canvas_ == nullptr) {
    return;
  }
  std::vector<bool> all = canvas_->layersShown();
  for (int row = 0; row < list_->count(); ++row) {
    if (!list_->item(row)->isHidden()) {
      all[static_cast<std::size_t>(row)] = shown;
    }
  }
  canvas_->SetLayersShown(all);
}

void LayersPanel::Isolate() {
  if (canvas_ == nullptr || list_->selectedItems().isEmpty()) {
    return;
  }
  std::vector<bool> all(canvas_->layersShown().size(), false);
  for (const QListWidgetItem* item : list_->selectedItems()) {
    all[static_cast<std::size_t>(list_->row(item))] = true;
  }
  canvas_->SetLayersShown(all);
}

}  // namespace preview
