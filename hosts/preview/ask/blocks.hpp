// The blocks that a scene uses, and where.
#pragma once

#include <QRectF>
#include <QString>

#include <vector>

#include "scene/scene.hpp"

namespace preview {

struct BlockPlace {
  std::size_t sheet = 0;
  QRectF bounds;
  // Index into the scene's uses.
  int use = -1;
};

struct BlockEntry {
  QString name;
  // Of the references that show anything.
  std::vector<BlockPlace> places;
};

// By name.
std::vector<BlockEntry> ListBlocks(const Scene& scene);

// For each entry the contents of its first place as a sheet of its own, of 3000 items at
// most: enough for a small picture.
std::vector<Sheet> SamplesOf(const Scene& scene, const std::vector<BlockEntry>& entries);

// The names of the blocks around an item, outermost first.
QStringList BlockPathOf(const Scene& scene, const Item& item);

}  // namespace preview
