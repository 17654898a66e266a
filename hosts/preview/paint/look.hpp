// What all ways to paint a sheet have in common: window, picture, PDF, SVG and
// the page for browsers.
#pragma once

#include <QtGui/qrgb.h>
#include <QColor>

#include "scene/units.hpp"

namespace preview {

// Of a screen, as browsers count.
inline constexpr double kScreenPixelsPerMillimetre = 96 / kMillimetresPerInch;

inline constexpr QRgb kDarkBackground = qRgb(0x1B, 0x1D, 0x20);
inline constexpr QRgb kPaperEdge = qRgb(0xA0, 0xA0, 0xA0);

// The tint of areas whose pattern is not known.
inline constexpr double kPatternOpacity = 0.3;

inline QColor BackgroundOf(bool dark) {
  return dark ? QColor(kDarkBackground) : QColor(Qt::white);
}

// Whether the foreground on it is white.
inline bool IsDark(const QColor& background) {
  return background.lightnessF() <= 0.5F;
}

}  // namespace preview
