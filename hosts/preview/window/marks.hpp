// What the window paints over a sheet: the outline of a picked record, the place that a
// measuring pointer snaps to, the measured points, a line of text.
#pragma once

#include <QPainter>
#include <QPainterPath>
#include <QRect>
#include <QString>
#include <QTransform>

#include <optional>
#include <vector>

#include "ask/scene_index.hpp"

namespace preview {

struct Marks {
  // In the sheet's coordinates, as all points here.
  QPainterPath outline;
  std::optional<Snap> snap;
  std::vector<Snap> points;
  QString note;
};

void PaintMarks(QPainter& painter, const Marks& marks, const QTransform& toDevice,
                const QRect& area, bool isDark);

// Of a snap, for the eye: "end", "middle"; empty for none.
QString NameOf(SnapKind kind);

}  // namespace preview
