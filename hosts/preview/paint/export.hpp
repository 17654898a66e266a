// Sheets as files: PNG, PDF, SVG and the page for browsers.
#pragma once

#include <QRectF>
#include <QString>

#include <optional>

#include "scene/scene.hpp"

namespace preview {

// Of a PNG, in pixels.
inline constexpr int kLargestPictureSide = 20000;

struct ExportOptions {
  // Of a PNG, in pixels; of the other formats, whose lines are sharp at any
  // size, only the proportions follow.
  int width = 1600;
  QColor background = Qt::white;
  bool lineweights = true;
  // Everything in the foreground's colour; PNG and PDF.
  bool monochrome = false;
  // Of the sheet, in its coordinates, instead of all of it.
  std::optional<QRectF> region;
  // Elements of SVG say which record and which use of a block they were made from
  // (data-r, data-u); the page for browsers.
  bool namesRecords = false;
};

// What a picture of the sheet shows: the region, or the paper, or everything
// with a rim of two per cent.
QRectF PictureArea(const Sheet& sheet, const ExportOptions& options);

// The transform that shows all of the sheet in a window of this size.
QTransform FitSheet(const Sheet& sheet, const QRectF& device);

// The picture, no taller than the largest side.
QImage RenderImage(const Scene& scene, const Sheet& sheet, const ExportOptions& options);

// Each writes one file and gives an empty text, or a reason.
QString WritePng(const Scene& scene, const Sheet& sheet, const ExportOptions& options,
                 const QString& file);
QString WritePdf(const Scene& scene, const Sheet& sheet, const ExportOptions& options,
                 const QString& file);
QString WriteSvg(const Scene& scene, const Sheet& sheet, const ExportOptions& options,
                 const QString& file);
// All sheets; `title` names the page.
QString WriteHtml(const Scene& scene, const QString& title, const ExportOptions& options,
                  const QString& file);

}  // namespace preview
