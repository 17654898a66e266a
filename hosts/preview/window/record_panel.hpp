// The keys of the record that was picked.
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QWidget>

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace preview {

class Canvas;

class RecordPanel : public QWidget {
  Q_OBJECT

 public:
  explicit RecordPanel(QWidget* parent = nullptr);

  // Lists what is selected on a canvas, from now on; null for none.
  void Show(Canvas* canvas);
  // The record as JSON into the clipboard.
  void Copy();

 private:
  void Fill();
  void AddRow(const QString& key, const QString& value);
  void AddPlace();

  Canvas* canvas_ = nullptr;
  QJsonObject record_;
  QTreeWidget* tree_;
  QPushButton* copy_;
};

}  // namespace preview
