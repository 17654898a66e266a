#include "app/headless.hpp"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "paint/sheet_painter.hpp"

namespace preview {
namespace {

void Say(const QString& text) {
  fprintf(stderr, "%s\n", qPrintable(text));
}

// Null when the drawing could not be loaded, which has been said then.
LoadedDrawing Load(const Options& options) {
  Loader loader;
  LoadedDrawing result;
  QEventLoop loop;
  QObject::connect(&loader, &Loader::progress, Say);
  QObject::connect(&loader, &Loader::failed, &loop, [&](const QString& message) {
    Say(message);
    loop.quit();
  });
  QObject::connect(&loader, &Loader::loaded, &loop, [&](const LoadedDrawing& loaded) {
    result = loaded;
    loop.quit();
  });
  loader.Start(options.drawings.first(), options.load);
  loop.exec();
  return result;
}

QJsonArray BoxOf(const QRectF& box) {
  return {box.left(), box.top(), box.right(), box.bottom()};
}

QString NamesOf(const Scene& scene) {
  QStringList names;
  for (const Sheet& sheet : scene.sheets) {
    names << sheet.name;
  }
  return names.join(", ");
}

QString WriteAll(const Scene& scene, const Sheet& sheet, const Options& options) {
  QStringList problems;
  if (!options.png.isEmpty()) {
    problems << WritePng(scene, sheet, options.exporting, options.png);
  }
  if (!options.svg.isEmpty()) {
    problems << WriteSvg(scene, sheet, options.exporting, options.svg);
  }
  if (!options.pdf.isEmpty()) {
    problems << WritePdf(scene, sheet, options.exporting, options.pdf);
  }
  if (!options.html.isEmpty()) {
    problems << WriteHtml(scene, QFileInfo(options.drawings.first()).fileName(), options.exporting,
                          options.html);
  }
  problems.removeAll(QString());
  return problems.join('\n');
}

// As in the window.
constexpr int kTextsAtOnce = 100;
// The size of the frames that are timed.
constexpr QSize kFrame(1600, 1000);

void PrintFrames(const LoadedDrawing& loaded, const Sheet& sheet, int frames) {
  std::vector<double> times = TimeFrames(*loaded.scene, sheet, frames);
  printf("scene after %lld ms, first picture after %.0f ms more\n",
         static_cast<long long>(loaded.buildMilliseconds), times.front());
  std::sort(times.begin(), times.end());
  printf("%zu items, %zu frames of %d x %d: median %.1f ms, largest %.1f ms\n", sheet.items.size(),
         times.size(), kFrame.width(), kFrame.height(), times[times.size() / 2], times.back());
}

}  // namespace

QByteArray SheetList(const Scene& scene) {
  QJsonArray sheets;
  for (const Sheet& sheet : scene.sheets) {
    QJsonObject record{{"name", sheet.name},
                       {"extents", BoxOf(sheet.extents)},
                       {"geometryExtents", BoxOf(sheet.geometryExtents)},
                       {"items", static_cast<qint64>(sheet.items.size())},
                       {"viewports", static_cast<qint64>(sheet.viewports.size())}};
    if (sheet.paper) {
      record["paper"] = BoxOf(*sheet.paper);
    }
    sheets.append(record);
  }
  return QJsonDocument(sheets).toJson(QJsonDocument::Indented);
}

std::vector<double> TimeFrames(const Scene& scene, const Sheet& sheet, int frames) {
  const QRectF device(QPointF(0, 0), kFrame);
  const QTransform whole = FitSheet(sheet, device);
  const QPointF middle(kFrame.width() / 2.0, kFrame.height() / 2.0);
  std::vector<double> times;
  for (int i = 0; i < frames; ++i) {
    // Up to eight times larger and back, circling around the middle.
    const double turn = 2 * std::numbers::pi * i / frames;
    const double zoom = std::pow(8.0, (1 - std::cos(turn)) / 2);
    View view;
    view.device = device;
    view.toDevice = whole *
                    QTransform::fromTranslate(-middle.x() - 300 * std::sin(turn),
                                              -middle.y() - 200 * std::cos(3 * turn)) *
                    QTransform::fromScale(zoom, zoom) *
                    QTransform::fromTranslate(middle.x(), middle.y());
    QElapsedTimer clock;
    clock.start();
    view.newTexts = kTextsAtOnce;
    PictureOf(scene, sheet, view);
    times.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
  }
  return times;
}

int RunHeadless(const Options& options) {
  const LoadedDrawing loaded = Load(options);
  if (!loaded.scene) {
    return 1;
  }
  const int index = options.layout.isEmpty() ? 0 : FindSheet(*loaded.scene, options.layout);
  if (index < 0) {
    Say(QString("There is no sheet named %1. The sheets are: %2.")
            .arg(options.layout, NamesOf(*loaded.scene)));
    return 1;
  }
  const Sheet& sheet = loaded.scene->sheets[static_cast<std::size_t>(index)];
  for (const QString& note : loaded.scene->notes) {
    Say("Note: " + note);
  }
  if (options.list) {
    fputs(SheetList(*loaded.scene).constData(), stdout);
  }
  if (options.frames > 0) {
    PrintFrames(loaded, sheet, options.frames);
  }
  const QString problem = WriteAll(*loaded.scene, sheet, options);
  if (!problem.isEmpty()) {
    Say(problem);
  }
  return problem.isEmpty() ? 0 : 1;
}

}  // namespace preview
