// The blocks of a drawing, each with a small picture and the places where it is used.
#pragma once

#include <QHash>
#include <QImage>
#include <QWidget>

#include <vector>

#include "ask/blocks.hpp"

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace preview {

class Canvas;
class SceneIndex;

class BlocksPanel : public QWidget {
  Q_OBJECT

 public:
  explicit BlocksPanel(QWidget* parent = nullptr);

  // Lists the blocks of a canvas; null for none.
  void Show(Canvas* canvas);

 signals:
  // The list is filled.
  void listed(int count);

 private:
  struct Listing {
    std::vector<BlockEntry> entries;
    std::vector<QImage> pictures;
  };

  static Listing List(const SceneIndex& index, int side, bool isDark);
  void Fill(const Listing& listing);
  void AddPlaces(QTreeWidgetItem* row, const BlockEntry& entry);
  void Filter();
  void Jump(QTreeWidgetItem* row);

  Canvas* canvas_ = nullptr;
  std::vector<BlockEntry> entries_;
  QLineEdit* filter_;
  QTreeWidget* tree_;
};

}  // namespace preview
