#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include "paint/export.hpp"
#include "paint/sheet_painter.hpp"
#include "window/printing.hpp"

namespace preview {
namespace {

constexpr double kThinnestMillimetres = 0.09;

std::shared_ptr<QPrinter> NewPrinter(bool isWide) {
  auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
  printer->setPageOrientation(isWide ? QPageLayout::Landscape : QPageLayout::Portrait);
  printer->setCreator("dwg_preview");
  return printer;
}

// A sheet with a scale keeps it when the paper is large enough.
QTransform PlaceOnPaper(const Sheet& sheet, const QRectF& paper, double dotsPerMillimetre) {
  const QRectF area = PictureArea(sheet, {});
  const QTransform fitted = FitTransform(area, paper, 0);
  const double scale = sheet.millimetresPerUnit * dotsPerMillimetre;
  if (!(scale > 0) || scale > std::abs(fitted.m11())) {
    return fitted;
  }
  QTransform place;
  place.translate(paper.center().x(), paper.center().y());
  place.scale(scale, -scale);
  place.translate(-area.center().x(), -area.center().y());
  return place;
}

QString Print(QPrinter& printer, const Scene& scene, const Sheet& sheet) {
  printer.setDocName(sheet.name);
  QPainter painter;
  if (!painter.begin(&printer)) {
    return "The printer does not answer.";
  }
  View view;
  view.device = QRectF(QPointF(0, 0), printer.pageRect(QPrinter::DevicePixel).size());
  view.pixelsPerMillimetre = printer.resolution() / kMillimetresPerInch;
  view.thinnestLine = kThinnestMillimetres * view.pixelsPerMillimetre;
  view.toDevice = PlaceOnPaper(sheet, view.device, view.pixelsPerMillimetre);
  view.shown = PlottedLayers(scene);
  PaintSheet(painter, scene, sheet, view);
  return painter.end() ? QString() : QString("The sheet was not printed.");
}

PrintJob JobOf(std::shared_ptr<QPrinter> printer) {
  return [printer = std::move(printer)](const Scene& scene, const Sheet& sheet) {
    return Print(*printer, scene, sheet);
  };
}

}  // namespace

bool CanPrint() {
  return true;
}

PrintJob AskForPrinter(QWidget* parent, bool isWide) {
  std::shared_ptr<QPrinter> printer = NewPrinter(isWide);
  QPrintDialog dialog(printer.get(), parent);
  dialog.setOptions(QAbstractPrintDialog::PrintToFile);
  return dialog.exec() == QDialog::Accepted ? JobOf(std::move(printer)) : PrintJob();
}

PrintJob PrintToFile(const QString& file, bool isWide) {
  std::shared_ptr<QPrinter> printer = NewPrinter(isWide);
  printer->setOutputFormat(QPrinter::PdfFormat);
  printer->setOutputFileName(file);
  return JobOf(std::move(printer));
}

}  // namespace preview
