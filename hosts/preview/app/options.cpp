#include "app/options.hpp"

#include <QCommandLineParser>
#include <QStringView>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "paint/look.hpp"

namespace preview {
namespace {

[[noreturn]] void Fail(const QString& message) {
  fprintf(stderr, "dwg_preview: %s\n", qPrintable(message));
  std::exit(2);
}

int PositiveNumber(const QCommandLineParser& parser, const QString& name) {
  bool isNumber = false;
  const int number = parser.value(name).toInt(&isNumber);
  if (!isNumber || number < 1) {
    Fail(QString("--%1 needs a number above 0.").arg(name));
  }
  return number;
}

std::optional<QRectF> RegionOf(const QString& text) {
  if (text.isEmpty()) {
    return std::nullopt;
  }
  QList<double> numbers;
  bool isNumber = true;
  for (const QString& field : text.split(',')) {
    bool ok = false;
    numbers.append(field.toDouble(&ok));
    isNumber = isNumber && ok;
  }
  if (!isNumber || numbers.size() != 4 || numbers[2] <= numbers[0] || numbers[3] <= numbers[1]) {
    Fail("--region needs four numbers, x1,y1,x2,y2, the smaller ones first.");
  }
  return QRectF(QPointF(numbers[0], numbers[1]), QPointF(numbers[2], numbers[3]));
}

QColor BackgroundNamed(const QString& name) {
  if (name == "light" || name == "dark") {
    return BackgroundOf(name == "dark");
  }
  Fail("--background is light or dark.");
}

void AddOptions(QCommandLineParser& parser) {
  const WorkerLimits limits;
  parser.setApplicationDescription("Shows a drawing, or writes pictures of it.");
  parser.addHelpOption();
  parser.addPositionalArgument("drawing", "A DWG or DXF file; several for a window.",
                               "[drawing...]");
  parser.addOptions({
      {"png", "Writes a picture.", "file"},
      {"svg", "Writes a picture of lines.", "file"},
      {"pdf", "Writes a page.", "file"},
      {"html", "Writes a page for browsers with all sheets.", "file"},
      {"layout", "The sheet by its name; model space without it.", "name"},
      {"width", "Width of the picture in pixels.", "pixels",
       QString::number(ExportOptions{}.width)},
      {"region", "What to show, in the sheet's coordinates.", "x1,y1,x2,y2"},
      {"background", "light or dark.", "name", "light"},
      {"no-lineweights", "All lines as thin as can be."},
      {"monochrome", "All in black, or white on a dark background; PNG and PDF."},
      {"plain", "Asks the worker for the plain document, not for the complete one."},
      {"show-hidden", "Draws frozen layers and invisible entities too."},
      {"list", "Prints sheets and their extents as JSON."},
      {"frames", "Times so many frames of zooming and panning.", "number"},
      {"worker", "The program that reads drawings.", "file"},
      {"seconds", "How long it may read.", "number", QString::number(limits.seconds)},
      {"megabytes", "How much memory it may use.", "number", QString::number(limits.megabytes)},
  });
}

}  // namespace

bool Options::Headless() const {
  return list || frames > 0 || !(png + svg + pdf + html).isEmpty();
}

bool AsksForNoWindow(int argc, char** argv) {
  constexpr std::string_view kWords[] = {"--png",  "--svg",    "--pdf",  "--html",
                                         "--list", "--frames", "--help", "-h"};
  return std::any_of(argv + 1, argv + argc, [&](const char* argument) {
    const std::string_view name =
        std::string_view(argument).substr(0, std::string_view(argument).find('='));
    return std::find(std::begin(kWords), std::end(kWords), name) != std::end(kWords);
  });
}

Options ParseOptions(const QStringList& arguments) {
  QCommandLineParser parser;
  AddOptions(parser);
  parser.process(arguments);
  Options options;
  options.drawings = parser.positionalArguments();
  options.load.worker = parser.value("worker");
  options.load.limits.seconds = PositiveNumber(parser, "seconds");
  options.load.limits.megabytes = PositiveNumber(parser, "megabytes");
  options.exporting.width = std::min(PositiveNumber(parser, "width"), kLargestPictureSide);
  options.exporting.background = BackgroundNamed(parser.value("background"));
  options.exporting.lineweights = !parser.isSet("no-lineweights");
  options.exporting.monochrome = parser.isSet("monochrome");
  options.exporting.region = RegionOf(parser.value("region"));
  options.load.limits.complete = !parser.isSet("plain");
  options.load.showHidden = parser.isSet("show-hidden");
  options.layout = parser.value("layout");
  options.png = parser.value("png");
  options.svg = parser.value("svg");
  options.pdf = parser.value("pdf");
  options.html = parser.value("html");
  options.list = parser.isSet("list");
  options.frames = parser.isSet("frames") ? PositiveNumber(parser, "frames") : 0;
  if (options.Headless() && options.drawings.size() != 1) {
    Fail(options.drawings.isEmpty() ? "which drawing?" : "only one drawing without a window.");
  }
  return options;
}

}  // namespace preview
