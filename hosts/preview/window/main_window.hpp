// The window: tabs, drawing area, layers, notes, progress.
#pragma once

#include <QMainWindow>

#include "app/loader.hpp"

class QLabel;
class QListWidget;
class QProgressBar;
class QTabBar;

namespace preview {

class Canvas;

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit MainWindow(LoadOptions options, QWidget* parent = nullptr);
  ~MainWindow() override;

  // Starts a worker; a drawing that is still loading is given up.
  void Open(const QString& drawing);

 signals:
  // A drawing is shown, or was explained away.
  void settled(bool shown);

 private:
  void BuildMenus();
  void BuildDocks();
  void OnLoaded(const LoadedDrawing& loaded);
  void ShowFailure(const QString& message);
  void FillLayers();
  void FillNotes();
  void FillTabs();
  void AskAndOpen();
  void AskAndExport();

  LoadOptions options_;
  QString drawing_;
  Loader* loader_ = nullptr;
  Canvas* canvas_ = nullptr;
  QTabBar* tabs_ = nullptr;
  QListWidget* layers_ = nullptr;
  QListWidget* notes_ = nullptr;
  QLabel* message_ = nullptr;
  QLabel* position_ = nullptr;
  QProgressBar* busy_ = nullptr;
};

}  // namespace preview
