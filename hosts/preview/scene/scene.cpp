#include "scene/scene.hpp"

#include "scene/curves.hpp"

namespace preview {
namespace {

Part PartOfItself(const Shape& shape) {
  Part part;
  if (shape.round) {
    part.path = RoundPath(*shape.round);
  } else {
    part.path = StraightPath(shape.polyline, false);
    part.fill = shape.lateHeight > 0 ? Fill::kPattern : Fill::kNone;
  }
  return part;
}

}  // namespace

PartList::PartList(const Shape& shape)
    : begin_(shape.parts.data()), end_(begin_ + shape.parts.size()) {
  if (shape.parts.empty() && (shape.round || !shape.polyline.isEmpty())) {
    own_ = PartOfItself(shape);
    begin_ = &own_;
    end_ = begin_ + 1;
  }
}

ShapePtr Scene::WithLetters(const Item& item) const {
  bool isNew = false;
  const ShapePtr shape =
      item.shape->lateHeight > 0 && letters ? letters(item.record, true, isNew) : nullptr;
  return shape ? shape : item.shape;
}

const SharedTransform& NoTransform() {
  static const SharedTransform identity = std::make_shared<const QTransform>();
  return identity;
}

int FindSheet(const Scene& scene, const QString& name) {
  for (std::size_t i = 0; i < scene.sheets.size(); ++i) {
    if (scene.sheets[i].name == name) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

}  // namespace preview
