// Boxes that can be asked which of them touch an area.
//
// Built once, packed: neighbours along a space-filling curve share a node, so
// that a few boxes that reach across the drawing cost nothing.
#pragma once

#include <QRectF>

#include <cstdint>
#include <functional>
#include <vector>

namespace preview {

// Whether boxes have a point in common; those without width or height count.
bool Touches(const QRectF& a, const QRectF& b);

class BoxTree {
 public:
  BoxTree() = default;
  // Boxes with numbers that are not finite are never found.
  explicit BoxTree(const std::vector<QRectF>& boxes);

  // Visits the indices of the boxes that touch the area, in no order.
  void Visit(const QRectF& area, const std::function<void(std::size_t)>& visit) const;

 private:
  struct Node {
    QRectF box;
    // Of the level below: nodes, or in the lowest level indices of boxes.
    std::uint32_t first = 0;
    std::uint32_t count = 0;
  };

  void AddLevel(const std::vector<QRectF>& below);
  void VisitNode(std::size_t level, const Node& node, const QRectF& area,
                 const std::function<void(std::size_t)>& visit) const;

  std::vector<std::uint32_t> order_;
  std::vector<QRectF> boxes_;
  // From the lowest; the last has one node.
  std::vector<std::vector<Node>> levels_;
};

}  // namespace preview
