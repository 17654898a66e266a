// Lines of dashes, gaps and dots.
#pragma once

#include <QLineF>
#include <QList>
#include <QPainterPath>
#include <QRectF>
#include <QTransform>

#include <optional>

#include "model/drawing.hpp"
#include "scene/scene.hpp"

namespace preview {

// What a line type's lengths come to; empty for a continuous one and for one that
// never draws.
DashPattern PatternOf(const LineType& type);

struct DashOptions {
  // Of the pattern's lengths to the path's.
  double scale = 1;
  // Each element of the path begins the pattern anew.
  bool restarts = false;
  // What lies outside is left out.
  QRectF area;
  // The least length of a whole pattern; a shorter one looks like a line.
  double shortest = 0;
};

// The dashes of a path, dots as lines without length. Nothing where it should be
// drawn as a continuous line: the pattern is too short, or longer than the path
// altogether, or there would be too many dashes.
std::optional<QList<QLineF>> DashesOf(const QPainterPath& path, const DashPattern& pattern,
                                      const DashOptions& options);

}  // namespace preview
