// The window: drawings as tabs, panels for what is asked of the one in front.
#pragma once

#include <QMainWindow>

#include <functional>

#include "app/loader.hpp"
#include "window/settings.hpp"

class QActionGroup;
class QDockWidget;
class QLabel;
class QListWidget;
class QMenu;
class QProgressBar;
class QTabWidget;

namespace preview {

class BlocksPanel;
class Canvas;
class DrawingView;
class FindPanel;
class LayersPanel;
class RecordPanel;

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit MainWindow(LoadOptions options, QWidget* parent = nullptr);
  ~MainWindow() override;

  // Opens a tab; a drawing that has one is loaded anew there. Two workers run at once
  // at most, the others wait.
  void Open(const QString& drawing);

  // The drawing in front; null for none.
  DrawingView* current() const;

 signals:
  // A drawing is shown, or was explained away.
  void settled(bool shown);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void BuildDocks();
  QDockWidget* AddDock(const QString& title, const QString& name, QWidget* widget,
                       Qt::DockWidgetArea area);
  void BuildMenus();
  void BuildFileMenu();
  void BuildEditMenu();
  void BuildViewMenu();
  void BuildToolMenu();
  void BuildPanelMenu();
  void BuildThemeMenu(QMenu* menu);
  void FillRecent(QMenu* menu);
  void WithCanvas(const std::function<void(Canvas&)>& action) const;
  DrawingView* AddView(const QString& drawing);
  DrawingView* ViewOf(const QString& drawing) const;
  void Enqueue(DrawingView* view);
  void LoadNext();
  void OnSettled(DrawingView* view, bool shown);
  void CloseView(int tab);
  // Shows in all panels what belongs to the drawing in front.
  void ShowCurrent();
  void ShowMessage();
  void FillNotes();
  void StepDrawing(int step);
  void Find();
  void SetDark(bool dark);
  void SetTheme(Theme theme);
  void AskAndOpen();
  void AskAndExport();
  void AskAndPrint();
  // Runs a task that paints, in the renderer's thread, and says what became of it.
  void RunForSheet(const std::function<QString(const Scene&, const Sheet&)>& task,
                   const QString& success);

  LoadOptions options_;
  // Views that wait for a worker.
  QList<DrawingView*> waiting_;
  bool isDark_ = false;
  bool hasLineweights_ = true;
  int tool_ = 0;
  QTabWidget* drawings_ = nullptr;
  LayersPanel* layers_ = nullptr;
  BlocksPanel* blocks_ = nullptr;
  RecordPanel* record_ = nullptr;
  FindPanel* find_ = nullptr;
  QListWidget* notes_ = nullptr;
  QList<QDockWidget*> docks_;
  QAction* dark_ = nullptr;
  QLabel* message_ = nullptr;
  QLabel* position_ = nullptr;
  QProgressBar* busy_ = nullptr;
};

}  // namespace preview
