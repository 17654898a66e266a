// Polylines with a width.
#pragma once

#include <QPainterPath>
#include <QPointF>

#include <span>
#include <utility>
#include <vector>

namespace preview {

// Widths at both ends of a segment.
using SegmentWidth = std::pair<double, double>;

// The area that the polyline covers, to be filled with the winding rule: each
// segment from its first width to its second, corners mitred as far as twice the
// width. `bulges` as for BulgedPath. Segments beyond the list have no width.
QPainterPath WidePath(std::span<const QPointF> points, std::span<const double> bulges,
                      std::span<const SegmentWidth> widths, bool closed);

}  // namespace preview
