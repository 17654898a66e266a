// Finds text in all sheets of a drawing.
#pragma once

#include <QWidget>

#include <vector>

#include "ask/find.hpp"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;

namespace preview {

class Canvas;

class FindPanel : public QWidget {
  Q_OBJECT

 public:
  explicit FindPanel(QWidget* parent = nullptr);

  // Looks into the drawing of a canvas, from now on; null for none.
  void Show(Canvas* canvas);
  // Makes the field ready to type.
  void Begin();
  // Jumps to the next hit, or to the one before; around the ends.
  void Step(int step);

 signals:
  // The list is filled for what was typed last.
  void listed(int count);

 private:
  void Find();
  void Fill(const FindResult& result);
  void Jump(int row);

  Canvas* canvas_ = nullptr;
  std::vector<Found> found_;
  // Of what was typed last: answers to what was typed before are dropped.
  int question_ = 0;
  QLineEdit* text_;
  QCheckBox* cases_;
  QLabel* count_;
  QListWidget* list_;
};

}  // namespace preview
