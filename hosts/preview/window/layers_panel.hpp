// The layers of a drawing with their switches.
#pragma once

#include <QWidget>

class QComboBox;
class QLineEdit;
class QListWidget;

namespace preview {

class Canvas;

class LayersPanel : public QWidget {
  Q_OBJECT

 public:
  explicit LayersPanel(QWidget* parent = nullptr);

  // Lists the layers of a canvas; null for none.
  void Show(Canvas* canvas);

 private:
  void Fill();
  void FillColors();
  // Hides the rows that the filter leaves out.
  void Filter();
  void SetAll(bool shown);
  void Isolate();

  Canvas* canvas_ = nullptr;
  QLineEdit* filter_;
  QComboBox* color_;
  QListWidget* list_;
};

}  // namespace preview
