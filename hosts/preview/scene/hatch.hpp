// Hatches: their areas, the lines of their patterns, their gradients.
#pragma once

#include <QBrush>
#include <QJsonObject>
#include <QPainterPath>

#include <memory>
#include <optional>

#include "scene/scene.hpp"

namespace preview {

// The area, even-odd, in the hatch's plane: by its exact boundary where the record
// has one, by the points of its loops else. Loops that the island style passes over
// are left out.
QPainterPath HatchPath(const QJsonObject& record);

struct PatternLines {
  QPainterPath path;
  // The least distance of two lines of a family.
  double spacing = 0;
};

// The pattern's lines within an area, dashes included. Nothing when there would be
// too many, or when the pattern has none.
std::optional<PatternLines> LinesOfPattern(const QPainterPath& area, const QJsonObject& pattern);

// The gradient over the box around an area. Names that are not known are linear.
std::shared_ptr<const QGradient> GradientOf(const QRectF& box, const QJsonObject& gradient);

}  // namespace preview
