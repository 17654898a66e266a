// Where a viewport shows model space on its sheet, and where the sheet's paper
// lies in the sheet's coordinates.
#pragma once

#include <QJsonObject>
#include <QRectF>
#include <QTransform>

#include "model/drawing.hpp"

namespace preview {

inline constexpr unsigned kViewportOff = 0x20000;

// From the record of a VIEWPORT: model-space X and Y (Z is 0) to the sheet.
//
// Model space is seen from `dir` towards the target, turned by the twist; the
// view's centre lies in the middle of the frame, and `viewSize` units fill its
// height. Not invertible when the view looks along the plane; the identity
// scaled to 0 when the view has no size.
QTransform ModelToSheet(const QJsonObject& viewport);

// The frame of a VIEWPORT record, in the sheet's coordinates.
QRectF FrameOf(const QJsonObject& viewport);

// Whether the viewport shows anything at all.
bool IsOn(const QJsonObject& viewport);

struct PaperPlace {
  QRectF paper;
  QRectF printable;
  double millimetresPerUnit = 1;
};
// Paper sizes, margins and the plot's origin are millimetres whatever the
// plot's unit is; the unit says what one unit of the sheet is. The printable
// area's lower left corner, as plotted, is the sheet's origin.
PaperPlace PlacePaper(const PageSetup& page);

}  // namespace preview
