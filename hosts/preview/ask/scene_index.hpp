// Questions about a scene: what lies at a point, where to snap to.
//
// Part of what was handed to the painting thread: a scene is asked there, since
// the transforms that it shares with the painting keep notes for themselves.
// Trees are built when a sheet is asked for the first time.
#pragma once

#include <QPainterPath>
#include <QPointF>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "ask/box_tree.hpp"
#include "scene/scene.hpp"

namespace preview {

// An item as it is seen on a sheet.
struct Hit {
  // The sheet that the item belongs to: the asked one, or model space.
  std::size_t sheet = 0;
  std::size_t item = 0;
  // Of the asked sheet, through which it is seen; -1 for none.
  int viewport = -1;

  friend bool operator==(const Hit&, const Hit&) = default;
};

struct Pointer {
  std::size_t sheet = 0;
  // In the sheet's coordinates.
  QPointF at;
  // How far off is near enough, in the sheet's units.
  double reach = 0;
};

// Whether an item shows, through a viewport where some layers are frozen.
using Shows = std::function<bool(const Item& item, const std::vector<bool>* frozen)>;

enum class SnapKind { kNone, kEnd, kCrossing, kMiddle, kCenter };

struct Snap {
  SnapKind kind = SnapKind::kNone;
  // On the sheet that was asked.
  QPointF at;
  // The same in the coordinates of model space, when it is seen through a viewport.
  QPointF inSpace;
  int viewport = -1;
};

class SceneIndex {
 public:
  explicit SceneIndex(std::shared_ptr<const Scene> scene) : scene_(std::move(scene)) {}

  // The shown items within reach, those painted last first, 64 at most. An area counts
  // as far as it is filled, a text as its box.
  std::vector<Hit> HitsAt(const Pointer& pointer, const Shows& shows);

  // The nearest end, crossing, middle or centre within reach of the pointer, else the
  // pointer itself.
  Snap SnapAt(const Pointer& pointer, const Shows& shows);

  // The texts of all records, in their order; empty for those without.
  const std::vector<QString>& texts();

  const Scene& scene() const { return *scene_; }

 private:
  // What is seen at a point of a sheet: its own items, or model space through a viewport.
  struct Space;

  std::vector<Space> SpacesAt(const Pointer& pointer) const;
  const BoxTree& TreeOf(std::size_t sheet);
  std::vector<std::size_t> ItemsNear(const Space& space, const Shows& shows);

  std::shared_ptr<const Scene> scene_;
  std::map<std::size_t, BoxTree> trees_;
  std::optional<std::vector<QString>> texts_;
};

// What is drawn around a hit, in the coordinates of the sheet that was asked: a text's
// and a picture's frame, else the paths of the item.
QPainterPath OutlineOf(const Scene& scene, std::size_t sheet, const Hit& hit);

// The item of a hit.
const Item& ItemOf(const Scene& scene, const Hit& hit);

}  // namespace preview
