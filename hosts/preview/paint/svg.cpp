#include "paint/svg.hpp"

#include <QBuffer>
#include <QCryptographicHash>
#include <QLinearGradient>
#include <QRadialGradient>
#include <QTransform>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "paint/look.hpp"
#include "paint/sheet_painter.hpp"
#include "scene/dashes.hpp"

namespace preview {
namespace {

// The longer side of a picture in its own units.
constexpr double kPictureUnits = 10000;
// In those units: dashes and a pattern's lines that are closer look like a line or an area.
constexpr double kShortestPattern = 15;
constexpr double kClosestLines = 10;

// With at most two decimals, without trailing zeros.
void AppendNumber(QByteArray& out, double value) {
  const double limited = std::isfinite(value) ? std::clamp(value, -1e9, 1e9) : 0;
  const long long hundredths = std::llround(limited * 100);
  char text[32];
  const auto whole = std::to_chars(text, text + sizeof text, std::llabs(hundredths) / 100);
  if (hundredths < 0) {
    out += '-';
  }
  out.append(text, whole.ptr - text);
  const int rest = static_cast<int>(std::llabs(hundredths) % 100);
  if (rest != 0) {
    out += '.';
    out += static_cast<char>('0' + rest / 10);
    if (rest % 10 != 0) {
      out += static_cast<char>('0' + rest % 10);
    }
  }
}

void AppendPoint(QByteArray& out, char command, const QPainterPath::Element& point) {
  if (command != 0) {
    out += command;
  }
  AppendNumber(out, point.x);
  out += ' ';
  AppendNumber(out, point.y);
}

QByteArray PathData(const QPainterPath& path) {
  QByteArray out;
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPainterPath::Element element = path.elementAt(i);
    switch (element.type) {
      case QPainterPath::MoveToElement: AppendPoint(out, 'M', element); break;
      case QPainterPath::LineToElement: AppendPoint(out, 'L', element); break;
      case QPainterPath::CurveToElement: AppendPoint(out, 'C', element); break;
      case QPainterPath::CurveToDataElement: AppendPoint(out, ' ', element); break;
    }
  }
  return out;
}

QByteArray Matrix(const QTransform& t) {
  QByteArray out = "matrix(";
  for (const double value : {t.m11(), t.m12(), t.m21(), t.m22(), t.dx(), t.dy()}) {
    out += QByteArray::number(value, 'g', 12) + ' ';
  }
  out.back() = ')';
  return out;
}

QByteArray NameOf(const QColor& color) {
  return color.name().toLatin1();
}

// The foreground is the page's text colour, so that a page may turn dark.
QByteArray Paint(const Ink& ink) {
  return ink.foreground ? QByteArray("currentColor") : NameOf(QColor::fromRgb(ink.rgba));
}

QByteArray Opacity(const char* property, double alpha) {
  return alpha >= 0.999
             ? QByteArray()
             : QByteArray(" ") + property + "=\"" + QByteArray::number(alpha, 'g', 3) + '"';
}

double StrokeWidth(const Item& item, const ExportOptions& options) {
  return options.lineweights
             ? std::max(1.0, MillimetresOfLineweight(item.lineweight) * kScreenPixelsPerMillimetre)
             : 1.0;
}

QByteArray ClassOf(const Item& item) {
  QByteArray names = item.layer >= 0 ? "l" + QByteArray::number(item.layer) : QByteArray("l");
  if (item.owners > 0) {
    names += " s" + QByteArray::number(item.owners);
  }
  return " class=\"" + names + '"';
}

QByteArray RecordOf(const Item& item, const ExportOptions& options) {
  if (!options.namesRecords || item.record < 0) {
    return {};
  }
  const QByteArray use =
      item.use < 0 ? QByteArray() : " data-u=\"" + QByteArray::number(item.use) + '"';
  return " data-r=\"" + QByteArray::number(item.record) + '"' + use;
}

QByteArray FillAttributes(const Part& part, const Ink& ink) {
  if (part.fill == Fill::kPaper) {
    return " fill=\"var(--paper,#fff)\" stroke=\"none\"";
  }
  const double alpha =
      qAlpha(ink.rgba) / 255.0 * (part.fill == Fill::kPattern ? kPatternOpacity : 1);
  return " fill=\"" + Paint(ink) + "\" stroke=\"none\"" + Opacity("fill-opacity", alpha);
}

QByteArray StrokeAttributes(const Ink& ink, double width) {
  QByteArray out;
  if (!ink.foreground) {
    out += " stroke=\"" + Paint(ink) + '"';
  }
  if (width > 1.01) {
    out += " stroke-width=\"" + QByteArray::number(width, 'g', 3) + '"';
  }
  return out + Opacity("stroke-opacity", qAlpha(ink.rgba) / 255.0);
}

QByteArray Numbers(const char* name, double number) {
  return QByteArray(" ") + name + "=\"" + QByteArray::number(number, 'g', 8) + '"';
}

// Two gradients that are alike have one name, in all pictures of a page.
QByteArray NameOfGradient(const QByteArray& definition) {
  return "gradient" +
         QCryptographicHash::hash(definition, QCryptographicHash::Sha256).toHex().left(16);
}

QByteArray StopsOf(const QGradient& gradient) {
  QByteArray out;
  for (const auto& [at, color] : gradient.stops()) {
    out += "<stop" + Numbers("offset", at) + " stop-color=\"" + color.name().toLatin1() + "\"/>";
  }
  return out;
}

// The definition but for its name.
QByteArray DefinitionOf(const QGradient& gradient, const QTransform& toPicture) {
  QByteArray place;
  if (gradient.type() == QGradient::RadialGradient) {
    const auto& radial = static_cast<const QRadialGradient&>(gradient);
    place = Numbers("cx", radial.center().x()) + Numbers("cy", radial.center().y()) +
            Numbers("r", radial.radius());
  } else {
    const auto& linear = static_cast<const QLinearGradient&>(gradient);
    place = Numbers("x1", linear.start().x()) + Numbers("y1", linear.start().y()) +
            Numbers("x2", linear.finalStop().x()) + Numbers("y2", linear.finalStop().y());
  }
  return " gradientUnits=\"userSpaceOnUse\" gradientTransform=\"" + Matrix(toPicture) + "\"" +
         place + ">" + StopsOf(gradient);
}

QByteArray GradientElement(const QGradient& gradient, const QByteArray& definition) {
  const QByteArray tag =
      gradient.type() == QGradient::RadialGradient ? "radialGradient" : "linearGradient";
  return "<" + tag + " id=\"" + NameOfGradient(definition) + '"' + definition + "</" + tag + ">\n";
}

// Of a hatch's lines and the tint that stands for them, the one that is not seen.
bool IsPassedOver(const Part& part, const QTransform& transform) {
  const double spacing = part.spacing * std::sqrt(std::abs(transform.determinant()));
  return part.spacing > 0 && (part.fill == Fill::kPattern) != (spacing < kClosestLines);
}

// The part's path in the picture, in dashes where the item has them.
QPainterPath PicturePath(const Part& part, const Item& item, const Scene& scene,
                         const QTransform& toPicture) {
  const QPainterPath path = (*item.place * toPicture).map(part.path);
  if (part.fill != Fill::kNone || item.dashes == 0 || PartList(*item.shape).size() != 1) {
    return path;
  }
  const auto dashes =
      DashesOf(path, scene.dashPatterns[static_cast<std::size_t>(item.dashes)],
               {.scale = item.dashScale * std::sqrt(std::abs(toPicture.determinant())),
                .restarts = item.shape->restartsDashes,
                .area = path.controlPointRect().adjusted(-1, -1, 1, 1),
                .shortest = kShortestPattern});
  if (!dashes) {
    return path;
  }
  QPainterPath lines;
  for (const QLineF& dash : *dashes) {
    lines.moveTo(dash.p1());
    lines.lineTo(dash.p2());
  }
  return lines;
}

QByteArray PartElement(const Part& part, const Item& item, const Scene& scene,
                       const QTransform& toPicture, const ExportOptions& options) {
  if (IsPassedOver(part, *item.place * toPicture)) {
    return {};
  }
  const QPainterPath path = PicturePath(part, item, scene, toPicture);
  const Ink ink = part.ink.value_or(item.ink);
  const QByteArray definition =
      part.gradient ? DefinitionOf(*part.gradient, *item.place * toPicture) : QByteArray();
  QByteArray out = part.gradient ? GradientElement(*part.gradient, definition) : QByteArray();
  out += "<path" + ClassOf(item) + RecordOf(item, options);
  if (part.gradient) {
    out += " fill=\"url(#" + NameOfGradient(definition) + ")\" stroke=\"none\"";
  } else if (part.fill == Fill::kNone) {
    out += StrokeAttributes(ink, part.hairline ? 1.0 : StrokeWidth(item, options));
  } else {
    out += FillAttributes(part, ink);
  }
  if (part.fill != Fill::kNone && part.path.fillRule() == Qt::WindingFill) {
    out += " fill-rule=\"nonzero\"";
  }
  return out + " d=\"" + PathData(path) + "\"/>\n";
}

QByteArray ImageElement(const Item& item, const QTransform& toPicture,
                        const ExportOptions& options) {
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  item.shape->picture->image.save(&buffer, "PNG");
  const QTransform upright(1, 0, 0, -1, 0, 1);
  return "<image" + ClassOf(item) + RecordOf(item, options) +
         " width=\"1\" height=\"1\" preserveAspectRatio=\"none\" transform=\"" +
         Matrix(upright * item.shape->picture->place * *item.place * toPicture) +
         "\" href=\"data:image/png;base64," + png.toBase64() + "\"/>\n";
}

QByteArray ClipStart(const Scene& scene, int clip, const QTransform& toPicture) {
  const QPainterPath path = toPicture.map(scene.clips[static_cast<std::size_t>(clip)]);
  const QByteArray id = "clip" + QByteArray::number(clip);
  return "<clipPath id=\"" + id + "\"><path clip-rule=\"" +
         (path.fillRule() == Qt::OddEvenFill ? "evenodd" : "nonzero") + "\" d=\"" + PathData(path) +
         "\"/></clipPath>\n<g clip-path=\"url(#" + id + ")\">\n";
}

QByteArray ItemElements(const Item& item, const Scene& scene, const QTransform& toPicture,
                        const ExportOptions& options) {
  QByteArray out;
  if (item.shape->hasImage()) {
    out += ImageElement(item, toPicture, options);
  }
  const ShapePtr shape = scene.WithLetters(item);
  for (const Part& part : PartList(*shape)) {
    out += PartElement(part, item, scene, toPicture, options);
  }
  return out;
}

QByteArray Elements(const Scene& scene, const std::vector<Item>& items, const QTransform& toPicture,
                    const ExportOptions& options) {
  QByteArray out;
  int clip = 0;
  for (const Item& item : items) {
    if (item.hidden && !scene.showHidden) {
      continue;
    }
    if (item.clip != clip) {
      out += clip > 0 ? "</g>\n" : "";
      clip = item.clip;
      out += clip > 0 ? ClipStart(scene, clip, toPicture) : QByteArray();
    }
    out += ItemElements(item, scene, toPicture, options);
  }
  out += clip > 0 ? "</g>\n" : "";
  return out;
}

QRectF PictureBox(const QRectF& area) {
  const double scale = kPictureUnits / std::max({area.width(), area.height(), 1e-9});
  return {0, 0, area.width() * scale, area.height() * scale};
}

QTransform ToPicture(const QRectF& area) {
  return FitTransform(area, PictureBox(area), 0);
}

QTransform ModelToPicture(const Scene& scene, const ExportOptions& options) {
  ExportOptions whole = options;
  whole.region.reset();
  return ToPicture(PictureArea(scene.sheets.front(), whole));
}

QByteArray FrozenProperties(const Scene& scene, const ViewportView& viewport) {
  QByteArray out;
  for (std::size_t i = 0; i < viewport.frozen.size(); ++i) {
    if (viewport.frozen[i]) {
      out += "--f" + QByteArray::number(i) + ":none;";
    }
  }
  for (std::size_t i = 0; i < scene.ownerSets.size(); ++i) {
    if (AnyFrozen(scene.ownerSets[i], viewport.frozen)) {
      out += "--h" + QByteArray::number(i) + ":hidden;";
    }
  }
  return out;
}

QByteArray ModelUse(const QTransform& transform, const QByteArray& style) {
  return "<use href=\"#model\" transform=\"" + Matrix(transform) + "\" style=\"" + style + "\"/>\n";
}

QByteArray ViewportElement(const Scene& scene, const ViewportView& viewport,
                           const QTransform& toPicture, const QTransform& modelToPicture,
                           const QByteArray& id) {
  return "<clipPath id=\"" + id + "\"><path d=\"" + PathData(toPicture.map(viewport.clip)) +
         "\"/></clipPath>\n<g clip-path=\"url(#" + id + ")\">" +
         ModelUse(modelToPicture.inverted() * viewport.modelToSheet * toPicture,
                  FrozenProperties(scene, viewport)) +
         "</g>\n";
}

QByteArray PaperElement(const Sheet& sheet, const QTransform& toPicture) {
  if (!sheet.paper) {
    return {};
  }
  QPainterPath edge;
  edge.addRect(*sheet.paper);
  return "<path class=\"paper\" d=\"" + PathData(toPicture.map(edge)) + "\"/>\n";
}

QByteArray SheetContents(const Scene& scene, const Sheet& sheet, const QTransform& toPicture,
                         const ExportOptions& options, const QByteArray& id) {
  const QTransform modelToPicture = ModelToPicture(scene, options);
  if (sheet.isModel) {
    return ModelUse(modelToPicture.inverted() * toPicture, "");
  }
  QByteArray out = PaperElement(sheet, toPicture);
  for (std::size_t i = 0; i < sheet.viewports.size(); ++i) {
    out += ViewportElement(scene, sheet.viewports[i], toPicture, modelToPicture,
                           id + "-view" + QByteArray::number(i));
  }
  return out + "<g class=\"items\">\n" + Elements(scene, sheet.items, toPicture, options) +
         "</g>\n";
}

QByteArray ViewBox(const QRectF& area) {
  const QRectF box = PictureBox(area);
  QByteArray out = "0 0 ";
  AppendNumber(out, box.width());
  out += ' ';
  AppendNumber(out, box.height());
  return out;
}

}  // namespace

QByteArray SvgHiddenLayers(const Scene& scene) {
  QByteArray out;
  for (std::size_t i = 0; i < scene.layers.size(); ++i) {
    if (!scene.layers[i].visible) {
      out += "--v" + QByteArray::number(i) + ":none;";
    }
  }
  return out;
}

QByteArray SvgStyle(const Scene& scene) {
  QByteArray out =
      ".items{fill:none;stroke:currentColor;stroke-width:1;stroke-linecap:round;"
      "stroke-linejoin:round;fill-rule:evenodd}\n"
      ".items path{vector-effect:non-scaling-stroke}\n"
      ".paper{fill:var(--paper,#fff);stroke:" +
      NameOf(kPaperEdge) + ";vector-effect:non-scaling-stroke}\n";
  for (std::size_t i = 0; i < scene.layers.size(); ++i) {
    const QByteArray n = QByteArray::number(i);
    out += ".l" + n + "{display:var(--f" + n + ",var(--v" + n + ",inline))}\n";
  }
  for (std::size_t i = 1; i < scene.ownerSets.size(); ++i) {
    const QByteArray n = QByteArray::number(i);
    out += ".s" + n + "{visibility:var(--h" + n + ",inherit)}\n";
  }
  return out;
}

QByteArray SvgModelGroup(const Scene& scene, const ExportOptions& options) {
  return "<g id=\"model\" class=\"items\">\n" +
         Elements(scene, scene.sheets.front().items, ModelToPicture(scene, options), options) +
         "</g>\n";
}

QByteArray SvgSheetElement(const Scene& scene, const Sheet& sheet, const QRectF& area,
                           const ExportOptions& options, const QByteArray& id) {
  return "<svg id=\"" + id + "\" class=\"sheet\" viewBox=\"" + ViewBox(area) + "\">\n" +
         SheetContents(scene, sheet, ToPicture(area), options, id) + "</svg>\n";
}

QByteArray SvgOfSheet(const Scene& scene, const Sheet& sheet, const QRectF& area,
                      const ExportOptions& options) {
  const bool dark = IsDark(options.background);
  const QByteArray paper = NameOf(options.background);
  const int height = static_cast<int>(std::lround(options.width * area.height() / area.width()));
  QByteArray out = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
                   QByteArray::number(options.width) + "\" height=\"" +
                   QByteArray::number(std::max(1, height)) + "\" viewBox=\"" + ViewBox(area) +
                   "\" style=\"background:" + paper + ";color:" + (dark ? "#fff" : "#000") +
                   ";--paper:" + paper + ';' + SvgHiddenLayers(scene) + "\">\n<style>" +
                   SvgStyle(scene) + "</style>\n";
  if (sheet.isModel || !sheet.viewports.empty()) {
    out += "<defs>" + SvgModelGroup(scene, options) + "</defs>\n";
  }
  return out + SheetContents(scene, sheet, ToPicture(area), options, "sheet") + "</svg>\n";
}

}  // namespace preview
