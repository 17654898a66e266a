#include "paint/export.hpp"

#include <QFile>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include <algorithm>
#include <cmath>

#include "paint/html_page.hpp"
#include "paint/sheet_painter.hpp"
#include "paint/svg.hpp"

namespace preview {
namespace {

constexpr double kRim = 0.02;
constexpr int kPdfResolution = 600;
constexpr double kThinnestPdfLine = 0.09;
// The longer side of a page whose drawing has no paper of its own: A3.
constexpr double kPageMillimetres = 420;

QSize ImageSize(const QRectF& area, int width) {
  const double height = width * area.height() / area.width();
  return {width,
          static_cast<int>(std::clamp(std::round(height), 1.0, double{kLargestPictureSide}))};
}

// Pixels for a millimetre on paper, or on a screen for model space.
double PixelsPerMillimetre(const Sheet& sheet, const QTransform& toDevice) {
  return sheet.millimetresPerUnit > 0 && sheet.paper
             ? std::abs(toDevice.m11()) / sheet.millimetresPerUnit
             : kScreenPixelsPerMillimetre;
}

View ViewOf(const Sheet& sheet, const QRectF& area, const QRectF& device,
            const ExportOptions& options) {
  View view;
  view.device = device;
  view.toDevice = FitTransform(area, device, 0);
  view.pixelsPerMillimetre = PixelsPerMillimetre(sheet, view.toDevice);
  view.background = options.background;
  view.lineweights = options.lineweights;
  view.monochrome = options.monochrome;
  return view;
}

QSizeF PageMillimetres(const Sheet& sheet, const QRectF& area, const ExportOptions& options) {
  if (sheet.paper && sheet.millimetresPerUnit > 0 && !options.region) {
    return area.size() * sheet.millimetresPerUnit;
  }
  return area.size() * (kPageMillimetres / std::max(area.width(), area.height()));
}

QString NotWritten(const QString& file) {
  return QString("%1 cannot be written.").arg(file);
}

QString WriteText(const QString& file, const QByteArray& text) {
  QSaveFile out(file);
  if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size() || !out.commit()) {
    return QString("%1 cannot be written: %2.").arg(file, out.errorString());
  }
  return {};
}

}  // namespace

QRectF PictureArea(const Sheet& sheet, const ExportOptions& options) {
  if (options.region) {
    return *options.region;
  }
  if (sheet.paper) {
    return *sheet.paper;
  }
  const double longer = std::max({sheet.extents.width(), sheet.extents.height(), 1e-6});
  // A drawing that is a single line still needs a picture with some height.
  const double width = std::max(sheet.extents.width(), longer / 20) + 2 * kRim * longer;
  const double height = std::max(sheet.extents.height(), longer / 20) + 2 * kRim * longer;
  const QPointF center = sheet.extents.center();
  return {center.x() - width / 2, center.y() - height / 2, width, height};
}

QTransform FitSheet(const Sheet& sheet, const QRectF& device) {
  constexpr double kMargin = 0.01;
  return FitTransform(PictureArea(sheet, {}), device, kMargin);
}

QImage RenderImage(const Scene& scene, const Sheet& sheet, const ExportOptions& options) {
  const QRectF area = PictureArea(sheet, options);
  QImage image(ImageSize(area, options.width), QImage::Format_ARGB32_Premultiplied);
  image.fill(options.background);
  QPainter painter(&image);
  PaintSheet(painter, scene, sheet, ViewOf(sheet, area, image.rect(), options));
  return image;
}

QString WritePng(const Scene& scene, const Sheet& sheet, const ExportOptions& options,
                 const QString& file) {
  const QImage image = RenderImage(scene, sheet, options).convertToFormat(QImage::Format_RGB32);
  return image.save(file, "PNG") ? QString() : NotWritten(file);
}

QString WritePdf(const Scene& scene, const Sheet& sheet, const ExportOptions& options,
                 const QString& file) {
  const QRectF area = PictureArea(sheet, options);
  QPdfWriter writer(file);
  writer.setCreator("dwg_preview");
  writer.setTitle(sheet.name);
  writer.setResolution(kPdfResolution);
  writer.setPageLayout({QPageSize(PageMillimetres(sheet, area, options), QPageSize::Millimeter,
                                  QString(), QPageSize::ExactMatch),
                        QPageLayout::Portrait, QMarginsF(), QPageLayout::Millimeter});
  QPainter painter;
  if (!painter.begin(&writer)) {
    return NotWritten(file);
  }
  View view = ViewOf(sheet, area, QRectF(0, 0, writer.width(), writer.height()), options);
  view.pixelsPerMillimetre = kPdfResolution / kMillimetresPerInch;
  view.thinnestLine = kThinnestPdfLine * view.pixelsPerMillimetre;
  view.shown = PlottedLayers(scene);
  PaintSheet(painter, scene, sheet, view);
  painter.end();
  return {};
}

QString WriteSvg(const Scene& scene, const Sheet& sheet, const ExportOptions& options,
                 const QString& file) {
  return WriteText(file, SvgOfSheet(scene, sheet, PictureArea(sheet, options), options));
}

QString WriteHtml(const Scene& scene, const QString& title, const ExportOptions& options,
                  const QString& file) {
  return WriteText(file, HtmlPage(scene, title, options));
}

}  // namespace preview
