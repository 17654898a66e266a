// The drawing area: one sheet, panned by dragging and zoomed by the wheel, asked by
// clicking.
//
// It always shows the last finished picture, moved and scaled to where the view
// is now, and asks for a new one. Questions about the scene are answered between two
// paintings, in the painting thread.
#pragma once

#include <QHash>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "ask/measure.hpp"
#include "ask/scene_index.hpp"
#include "scene/scene.hpp"
#include "window/marks.hpp"
#include "window/renderer.hpp"

namespace preview {

// What a click means.
enum class Tool { kSelect, kDistance, kArea };

class Canvas : public QWidget {
  Q_OBJECT

 public:
  explicit Canvas(QWidget* parent = nullptr);

  // Shows a scene's model space, all of it. A scene that takes the place of another one
  // keeps the sheet, the views and the layers of the same names.
  void SetScene(std::shared_ptr<const Scene> scene);
  void ShowSheet(std::size_t sheet);
  void SetLayerShown(std::size_t layer, bool shown);
  void SetLayersShown(std::vector<bool> shown);
  void SetDark(bool dark);
  void SetLineweights(bool on);
  void SetTool(Tool tool);
  void Fit();
  void ZoomBy(double factor);
  // By shares of the window.
  void PanBy(double right, double down);

  // Outlines what a hit names, and says so by `picked`.
  void Select(const Hit& hit);
  // Selects it and moves the view so that it is seen with some of its surroundings.
  void JumpTo(const Hit& hit);
  void JumpToArea(std::size_t sheet, const QRectF& area);
  // Of the sheet that is shown; nothing is selected then.
  void OutlineArea(const QRectF& area);
  // The next item of the sheet that shows, or the one before.
  void SelectNeighbour(int step);
  // Of the selection and of what was measured.
  void Clear();

  // Asks the scene between two paintings and hands the answer over in this thread,
  // unless another scene is shown by then.
  template <typename Question, typename Then>
  void Inquire(Question question, Then then) {
    renderer_.Run([this, index = index_, question, then] {
      const auto answer = question(*index);
      QMetaObject::invokeMethod(
          this,
          [this, index, answer, then] {
            if (index == index_) {
              then(answer);
            }
          },
          Qt::QueuedConnection);
    });
  }

  Renderer& renderer() { return renderer_; }
  const std::shared_ptr<const Scene>& scene() const { return scene_; }
  std::size_t sheet() const { return sheet_; }
  const std::vector<bool>& layersShown() const { return shown_; }
  // Of the sheet that is shown, to the widget's coordinates.
  const QTransform& view() const { return views_[sheet_]; }
  const std::optional<Hit>& selected() const { return selected_; }
  const std::optional<Measured>& measured() const { return measured_; }
  const Marks& marks() const { return marks_; }

 signals:
  // Of the pointer, in the sheet's coordinates.
  void pointed(QPointF position);
  // A click, or a jump, was answered: `selected` says by what.
  void picked();
  // A measuring click was answered.
  void measuredSome(const QString& text);
  void sheetChanged(std::size_t sheet);
  void layersChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  struct Picked {
    std::vector<Hit> hits;
    std::optional<Hit> hit;
    QPainterPath outline;
    std::optional<Measured> measured;
  };

  void Changed();
  void Ask();
  void ZoomAt(QPointF at, double factor);
  Pointer PointerAt(QPointF position) const;
  Shows ShownItems() const;
  void Pick(QPointF position);
  void TakePicked(const Picked& picked);
  void AskForSnap(QPointF position, bool isPoint);
  void TakeSnap(const Snap& snap, bool isPoint);
  static Picked Describe(const Scene& scene, std::size_t sheet, std::vector<Hit> hits,
                         const std::optional<Hit>& hit);

  Renderer renderer_;
  std::shared_ptr<const Scene> scene_;
  // Asked in the painting thread only.
  std::shared_ptr<SceneIndex> index_;
  std::size_t sheet_ = 0;
  // Where each sheet was left; invalid until it was shown.
  std::vector<QTransform> views_;
  std::vector<bool> isFitted_;
  std::vector<bool> shown_;
  bool isDark_ = false;
  bool hasLineweights_ = true;
  // Pixels of the screen for each of the window's, when a picture was asked for last.
  double ratio_ = 1;
  QImage image_;
  QTransform imageView_;
  QRectF imageDevice_;
  Tool tool_ = Tool::kSelect;
  Marks marks_;
  // What lay under the last click: the next click there takes the next of them.
  std::vector<Hit> hits_;
  std::optional<Hit> selected_;
  std::optional<Measured> measured_;
  bool isSnapping_ = false;
  std::optional<QPointF> nextSnap_;
  QPointF pressed_;
  QPointF dragged_;
  bool isDragging_ = false;
  bool isDoubleClick_ = false;
};

}  // namespace preview
