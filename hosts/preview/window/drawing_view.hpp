// One drawing in the window: its sheets, or how far it is loaded, or why it failed.
#pragma once

#include <QStringList>
#include <QWidget>

#include "app/loader.hpp"

class QStackedWidget;
class QTabBar;

namespace preview {

class Canvas;
class FailurePage;
class FileWatch;
class ProgressPage;

class DrawingView : public QWidget {
  Q_OBJECT

 public:
  DrawingView(QString drawing, LoadOptions options, QWidget* parent = nullptr);
  ~DrawingView() override;

  // Starts a worker. What is shown stays until its drawing is there; `settled` follows.
  void Load();
  // Ends the worker. `settled` follows.
  void Cancel();
  // To the next sheet, or the one before; around the ends.
  void StepSheet(int step);

  Canvas* canvas() const { return canvas_; }
  const QString& drawing() const { return drawing_; }
  QString Title() const;
  bool isLoading() const { return isLoading_; }
  // The document's warnings and what could not be drawn, or why there is nothing.
  const QStringList& notes() const { return notes_; }
  // For the status bar.
  const QString& message() const { return message_; }

 signals:
  // A drawing is shown, or was explained away.
  void settled(bool shown);
  void messageChanged();
  // The drawing's file has changed, and is to be loaded anew.
  void outdated();

 private:
  void OnLoaded(const LoadedDrawing& loaded);
  void OnFailed(const QString& reason);
  void FillTabs();
  void Say(const QString& message);

  QString drawing_;
  LoadOptions options_;
  QStringList notes_;
  QString message_;
  bool isLoading_ = false;
  Loader* loader_ = nullptr;
  FileWatch* watch_;
  QStackedWidget* pages_;
  QWidget* sheets_;
  QTabBar* tabs_;
  Canvas* canvas_;
  ProgressPage* progress_;
  FailurePage* failure_;
};

}  // namespace preview
