#include "entities/vertex_index.hpp"

#include <algorithm>
#include <functional>

#include "entities/drawing_access.hpp"

namespace {

constexpr unsigned kSplineFrameControlPoint = 16;

bool EndsWalk(const Dwg_Object& object) {
  return !IsEntity(object) || object.fixedtype == DWG_TYPE_SEQEND;
}

}  // namespace

VertexIndex::VertexIndex(std::span<const Dwg_Object> objects) : objects_(objects) {
  for (const Dwg_Object& object : objects) {
    Add(object);
  }
}

void VertexIndex::Add(const Dwg_Object& object) {
  if (EndsWalk(object)) {
    walkEnds_.push_back(&object);
  } else if (object.fixedtype == DWG_TYPE_VERTEX_2D) {
    if (const auto* vertex = EntityData(object, &EntityTio::VERTEX_2D)) {
      const bool isFrame = (vertex->flag & kSplineFrameControlPoint) != 0;
      (isFrame ? framePoints_ : points_).push_back(&object);
    }
  } else if (object.fixedtype == DWG_TYPE_VERTEX_3D &&
             EntityData(object, &EntityTio::VERTEX_3D) != nullptr) {
    spatialPoints_.push_back(&object);
  }
}

VertexIndex::Vertices VertexIndex::After(const Dwg_Object& polyline,
                                         const ObjectList& vertices) const {
  const std::size_t begin = std::size_t{polyline.index} + 1;
  if (begin >= objects_.size()) {
    return {};
  }
  const auto firstFrom = [](const ObjectList& list, const Dwg_Object* object) {
    return std::lower_bound(list.begin(), list.end(), object, std::less<>());
  };
  const auto first = firstFrom(vertices, &objects_[begin]);
  const auto walkEnd = firstFrom(walkEnds_, &objects_[begin]);
  return {first, walkEnd == walkEnds_.end() ? vertices.end() : firstFrom(vertices, *walkEnd)};
}
