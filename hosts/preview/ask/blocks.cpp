#include "ask/blocks.hpp"

#include <map>
#include <optional>

#include "scene/vectors.hpp"

namespace preview {
namespace {

constexpr std::size_t kMostSampleItems = 3000;

struct UseExtent {
  std::size_t sheet = 0;
  std::optional<QRectF> bounds;
};

void Grow(std::optional<QRectF>& all, const QRectF& box) {
  all = all ? Around(*all, box) : box;
}

std::vector<UseExtent> ExtentsOfUses(const Scene& scene) {
  std::vector<UseExtent> extents(scene.uses.size());
  for (std::size_t s = 0; s < scene.sheets.size(); ++s) {
    for (const Item& item : scene.sheets[s].items) {
      if (item.use >= 0) {
        UseExtent& extent = extents[static_cast<std::size_t>(item.use)];
        extent.sheet = s;
        Grow(extent.bounds, item.bounds);
      }
    }
  }
  // A use stands behind the one that it stands in.
  for (std::size_t i = extents.size(); i-- > 0;) {
    const int parent = scene.uses[i].parent;
    if (parent >= 0 && extents[i].bounds) {
      UseExtent& outer = extents[static_cast<std::size_t>(parent)];
      outer.sheet = extents[i].sheet;
      Grow(outer.bounds, *extents[i].bounds);
    }
  }
  return extents;
}

}  // namespace

std::vector<BlockEntry> ListBlocks(const Scene& scene) {
  const std::vector<UseExtent> extents = ExtentsOfUses(scene);
  std::map<QString, BlockEntry> byName;
  for (std::size_t i = 0; i < extents.size(); ++i) {
    if (extents[i].bounds) {
      BlockEntry& entry = byName[scene.uses[i].block];
      entry.name = scene.uses[i].block;
      entry.places.push_back({extents[i].sheet, *extents[i].bounds, static_cast<int>(i)});
    }
  }
  std::vector<BlockEntry> entries;
  entries.reserve(byName.size());
  for (auto& [name, entry] : byName) {
    entries.push_back(std::move(entry));
  }
  return entries;
}

std::vector<Sheet> SamplesOf(const Scene& scene, const std::vector<BlockEntry>& entries) {
  std::vector<Sheet> samples(entries.size());
  std::map<int, std::size_t> entryOfUse;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    samples[i].name = entries[i].name;
    samples[i].extents = entries[i].places.front().bounds;
    entryOfUse[entries[i].places.front().use] = i;
  }
  for (const Sheet& sheet : scene.sheets) {
    for (const Item& item : sheet.items) {
      for (int use = item.use; use >= 0; use = scene.uses[static_cast<std::size_t>(use)].parent) {
        const auto found = entryOfUse.find(use);
        if (found != entryOfUse.end() && samples[found->second].items.size() < kMostSampleItems) {
          samples[found->second].items.push_back(item);
        }
      }
    }
  }
  return samples;
}

QStringList BlockPathOf(const Scene& scene, const Item& item) {
  QStringList path;
  for (int use = item.use; use >= 0; use = scene.uses[static_cast<std::size_t>(use)].parent) {
    path.prepend(scene.uses[static_cast<std::size_t>(use)].block);
  }
  return path;
}

}  // namespace preview
