// A sheet of a scene on any painter: window, picture, PDF.
#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QTransform>

#include <atomic>
#include <limits>
#include <span>
#include <vector>

#include "paint/look.hpp"
#include "scene/scene.hpp"

namespace preview {

// How a sheet is looked at.
struct View {
  // Sheet coordinates to the device's; the device's Y points down.
  QTransform toDevice;
  QRectF device;
  // Of the device, for lineweights and for what is too small to be seen.
  double pixelsPerMillimetre = kScreenPixelsPerMillimetre;
  double thinnestLine = 1;
  QColor background = Qt::white;
  bool lineweights = true;
  bool antialiasing = true;
  // Everything in the foreground's colour, as many plotters do it.
  bool monochrome = false;
  // For every layer whether it is shown; empty for the layers that are on.
  std::vector<bool> shown;
  // Everything is painted under what is there already, what comes last first, and lines
  // are not smoothed: on a QImage as PictureOf() prepares it.
  bool fromTheFront = false;
  // Texts whose letters may be made for this picture; further ones are bars, and
  // `isUnfinished` becomes true: the next picture has more of them.
  int newTexts = std::numeric_limits<int>::max();
  bool* isUnfinished = nullptr;
  // Painting ends early, with a part of the sheet, when this becomes true.
  const std::atomic<bool>* cancelled = nullptr;
};

// The transform that shows all of `area` in `device` with the same margin, a
// share of the device's shorter side, all around, and Y turned.
QTransform FitTransform(const QRectF& area, const QRectF& device, double margin);

// The layers that are on, for `View::shown`.
std::vector<bool> VisibleLayers(const Scene& scene);

// Those of them that are plotted, for what goes on paper.
std::vector<bool> PlottedLayers(const Scene& scene);

// An ink on a background.
QColor ColorOn(const Ink& ink, const QColor& background);

// Whether one of the layers is frozen. Records on unknown layers (-1) never are.
bool AnyFrozen(std::span<const int> layers, const std::vector<bool>& frozen);

// Whether an item shows when some layers are off and, through a viewport, some
// are frozen: a frozen layer also hides what stands in references on it. Hidden
// items show only when the scene shows them.
bool IsShown(const Scene& scene, const Item& item, const std::vector<bool>& shown,
             const std::vector<bool>* frozen);

// The device's part as a picture, smoothed unless there is too much to see.
QImage PictureOf(const Scene& scene, const Sheet& sheet, const View& view);

// Paints background, paper, viewports and items.
void PaintSheet(QPainter& painter, const Scene& scene, const Sheet& sheet, const View& view);

}  // namespace preview
