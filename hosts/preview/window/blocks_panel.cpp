#include "window/blocks_panel.hpp"

#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "paint/export.hpp"
#include "paint/sheet_painter.hpp"
#include "window/canvas.hpp"

namespace preview {
namespace {

constexpr int kPictureSide = 40;
// Of places in the list; the count counts all.
constexpr std::size_t kMostPlaces = 1000;
constexpr int kEntryRole = Qt::UserRole;
constexpr int kPlaceRole = Qt::UserRole + 1;

QImage PictureOf(const Scene& scene, const Sheet& sample, int side, bool isDark) {
  QImage picture(side, side, QImage::Format_RGB32);
  QPainter painter(&picture);
  View view;
  view.device = picture.rect();
  view.toDevice = FitTransform(sample.extents, view.device, 0.08);
  view.background = BackgroundOf(isDark);
  view.lineweights = false;
  PaintSheet(painter, scene, sample, view);
  return picture;
}

}  // namespace

BlocksPanel::BlocksPanel(QWidget* parent) : QWidget(parent) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(4, 4, 4, 4);
  column->addWidget(filter_ = new QLineEdit);
  filter_->setPlaceholderText("Filter blocks");
  filter_->setToolTip("Lists the blocks whose name has this text");
  filter_->setClearButtonEnabled(true);
  column->addWidget(tree_ = new QTreeWidget);
  tree_->setHeaderLabels({"Block", "Uses"});
  tree_->setIconSize(QSize(kPictureSide, kPictureSide));
  tree_->header()->setStretchLastSection(false);
  tree_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  tree_->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
  tree_->setToolTip("Enter or a click jumps to a use of the block");
  connect(filter_, &QLineEdit::textChanged, this, &BlocksPanel::Filter);
  connect(tree_, &QTreeWidget::currentItemChanged, this, &BlocksPanel::Jump);
  connect(tree_, &QTreeWidget::itemActivated, this, &BlocksPanel::Jump);
}

void BlocksPanel::Show(Canvas* canvas) {
  if (canvas_ != nullptr) {
    disconnect(canvas_, nullptr, this, nullptr);
  }
  canvas_ = canvas != nullptr && canvas->scene() ? canvas : nullptr;
  tree_->clear();
  entries_.clear();
  if (canvas_ == nullptr) {
    return;
  }
  connect(canvas_, &QObject::destroyed, this, [this] { canvas_ = nullptr; });
  const bool isDark = IsDark(palette().color(QPalette::Base));
  const int side = static_cast<int>(kPictureSide * devicePixelRatioF());
  canvas_->Inquire([side, isDark](SceneIndex& index) { return List(index, side, isDark); },
                   [this, canvas](const Listing& listing) {
                     if (canvas == canvas_) {
                       Fill(listing);
                     }
                   });
}

BlocksPanel::Listing BlocksPanel::List(const SceneIndex& index, int side, bool isDark) {
  Listing listing{ListBlocks(index.scene()), {}};
  for (const Sheet& sample : SamplesOf(index.scene(), listing.entries)) {
    listing.pictures.push_back(PictureOf(index.scene(), sample, side, isDark));
  }
  return listing;
}

void BlocksPanel::Fill(const Listing& listing) {
  tree_->clear();
  entries_ = listing.entries;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const BlockEntry& entry = entries_[i];
    auto* row = new QTreeWidgetItem({entry.name, QString::number(entry.places.size())});
    QPixmap picture = QPixmap::fromImage(listing.pictures[i]);
    picture.setDevicePixelRatio(static_cast<double>(picture.width()) / kPictureSide);
    row->setIcon(0, QIcon(picture));
    row->setToolTip(0, entry.name);
    row->setData(0, kEntryRole, static_cast<int>(i));
    row->setData(0, kPlaceRole, 0);
    AddPlaces(row, entry);
    tree_->addTopLevelItem(row);
  }
  Filter();
  emit listed(static_cast<int>(entries_.size()));
}

void BlocksPanel::AddPlaces(QTreeWidgetItem* row, const BlockEntry& entry) {
  const std::size_t count = std::min(entry.places.size(), kMostPlaces);
  for (std::size_t i = 0; i < count; ++i) {
    const BlockPlace& place = entry.places[i];
    const QPointF at = place.bounds.center();
    auto* child = new QTreeWidgetItem({QString("%1: %2, %3")
                                           .arg(canvas_->scene()->sheets[place.sheet].name)
                                           .arg(at.x(), 0, 'f', 2)
                                           .arg(at.y(), 0, 'f', 2)});
    child->setData(0, kEntryRole, row->data(0, kEntryRole));
    child->setData(0, kPlaceRole, static_cast<int>(i));
    row->addChild(child);
  }
}

void BlocksPanel::Filter() {
  for (int i = 0; i < tree_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* row = tree_->topLevelItem(i);
    row->setHidden(!row->text(0).contains(filter_->text(), Qt::CaseInsensitive));
  }
}

void BlocksPanel::Jump(QTreeWidgetItem* row) {
  if (canvas_ == nullptr || row == nullptr) {
    return;
  }
  const auto entry = static_cast<std::size_t>(row->data(0, kEntryRole).toInt());
  const auto number = static_cast<std::size_t>(row->data(0, kPlaceRole).toInt());
  const BlockPlace& place = entries_[entry].places[number];
  canvas_->JumpToArea(place.sheet, place.bounds.normalized());
  canvas_->OutlineArea(place.bounds.normalized());
}

}  // namespace preview
