#include "ask/box_tree.hpp"

#include <algorithm>
#include <cmath>

#include "scene/vectors.hpp"

namespace preview {
namespace {

constexpr std::size_t kFanOut = 16;
// Cells of the space-filling curve on each side.
constexpr double kCells = 65535;

bool IsFinite(const QRectF& box) {
  return std::isfinite(box.left()) && std::isfinite(box.top()) && std::isfinite(box.right()) &&
         std::isfinite(box.bottom());
}

// The bits of a 16-bit number with a gap behind each.
std::uint32_t Spread(std::uint32_t bits) {
  bits = (bits | (bits << 8U)) & 0x00FF00FFU;
  bits = (bits | (bits << 4U)) & 0x0F0F0F0FU;
  bits = (bits | (bits << 2U)) & 0x33333333U;
  return (bits | (bits << 1U)) & 0x55555555U;
}

std::uint32_t CellOf(double value, double from, double size) {
  const double share = size > 0 ? (value - from) / size : 0;
  return static_cast<std::uint32_t>(std::clamp(share, 0.0, 1.0) * kCells);
}

std::uint32_t PlaceOnCurve(QPointF point, const QRectF& all) {
  return Spread(CellOf(point.x(), all.left(), all.width())) |
         (Spread(CellOf(point.y(), all.top(), all.height())) << 1U);
}

// The box of the centres: a box that reaches far says nothing of where most are.
QRectF AroundCenters(const std::vector<QRectF>& boxes, const std::vector<std::uint32_t>& order) {
  QRectF all(boxes[order.front()].center(), QSizeF(0, 0));
  for (const std::uint32_t index : order) {
    all = Around(all, QRectF(boxes[index].center(), QSizeF(0, 0)));
  }
  return all;
}

}  // namespace

bool Touches(const QRectF& a, const QRectF& b) {
  return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() &&
         b.top() <= a.bottom();
}

BoxTree::BoxTree(const std::vector<QRectF>& boxes) {
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    if (IsFinite(boxes[i])) {
      order_.push_back(static_cast<std::uint32_t>(i));
    }
  }
  if (order_.empty()) {
    return;
  }
  const QRectF all = AroundCenters(boxes, order_);
  std::vector<std::pair<std::uint32_t, std::uint32_t>> keyed;
  keyed.reserve(order_.size());
  for (const std::uint32_t index : order_) {
    keyed.emplace_back(PlaceOnCurve(boxes[index].center(), all), index);
  }
  std::sort(keyed.begin(), keyed.end());
  boxes_.reserve(keyed.size());
  for (std::size_t i = 0; i < keyed.size(); ++i) {
    order_[i] = keyed[i].second;
    boxes_.push_back(boxes[keyed[i].second]);
  }
  AddLevel(boxes_);
  while (levels_.back().size() > 1) {
    std::vector<QRectF> below;
    for (const Node& node : levels_.back()) {
      below.push_back(node.box);
    }
    AddLevel(below);
  }
}

void BoxTree::AddLevel(const std::vector<QRectF>& below) {
  std::vector<Node> level;
  for (std::size_t first = 0; first < below.size(); first += kFanOut) {
    const std::size_t count = std::min(kFanOut, below.size() - first);
    Node node{below[first], static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(count)};
    for (std::size_t i = first + 1; i < first + count; ++i) {
      node.box = Around(node.box, below[i]);
    }
    level.push_back(node);
  }
  levels_.push_back(std::move(level));
}

void BoxTree::Visit(const QRectF& area, const std::function<void(std::size_t)>& visit) const {
  if (!levels_.empty() && IsFinite(area)) {
    VisitNode(levels_.size() - 1, levels_.back().front(), area, visit);
  }
}

// As deep as the tree: at most eight levels for 2^32 boxes.
void BoxTree::VisitNode(std::size_t level, const Node& node, const QRectF& area,
                        const std::function<void(std::size_t)>& visit) const {
  if (!Touches(node.box, area)) {
    return;
  }
  for (std::size_t i = node.first; i < node.first + node.count; ++i) {
    if (level > 0) {
      VisitNode(level - 1, levels_[level - 1][i], area, visit);
    } else if (Touches(boxes_[i], area)) {
      visit(order_[i]);
    }
  }
}

}  // namespace preview
