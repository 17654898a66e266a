// What stands where a drawing will be: how far its worker is, or why it failed.
#pragma once

#include <QStringList>
#include <QWidget>

class QLabel;
class QListWidget;
class QPlainTextEdit;
class QProgressBar;

namespace preview {

class ProgressPage : public QWidget {
  Q_OBJECT

 public:
  explicit ProgressPage(QWidget* parent = nullptr);

  void Begin(const QString& drawing);
  // A line that the worker said.
  void Add(const QString& line);
  // The last lines, oldest first.
  const QStringList& lines() const { return lines_; }

 signals:
  void cancelled();

 private:
  QStringList lines_;
  QLabel* title_;
  QProgressBar* bar_;
  QListWidget* list_;
};

class FailurePage : public QWidget {
  Q_OBJECT

 public:
  explicit FailurePage(QWidget* parent = nullptr);

  // The reason in plain words, and all that helps to find the cause.
  void Show(const QString& reason, const QString& details);
  void Copy();

 signals:
  void again();

 private:
  QLabel* reason_;
  QPlainTextEdit* details_;
};

// Which stage of the work a worker's line begins, from 1; 0 for lines within a stage.
int StageOf(const QString& line);
// How many there are.
int StageCount();

}  // namespace preview
