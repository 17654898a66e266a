#include "scene/viewport_mapping.hpp"

#include <cmath>

#include "model/record.hpp"
#include "scene/units.hpp"

namespace preview {
namespace {

// The view plane's axes, as the drawing format derives them from a direction:
// X is horizontal, across the world's Z, unless the view is from (nearly)
// straight above or below, when it comes from the world's Y.
struct ViewAxes {
  double xOfX = 1, yOfX = 0;
  double xOfY = 0, yOfY = 1;
  double zOfX = 0, zOfY = 0;
};

ViewAxes AxesOf(double dx, double dy, double dz) {
  const double length = std::sqrt(dx * dx + dy * dy + dz * dz);
  if (!(length > 0)) {
    return {};
  }
  dx /= length;
  dy /= length;
  dz /= length;
  double ax = -dy;
  double ay = dx;
  double az = 0;
  if (std::abs(dx) < 1.0 / 64 && std::abs(dy) < 1.0 / 64) {
    ax = dz;
    ay = 0;
    az = -dx;
  }
  const double across = std::sqrt(ax * ax + ay * ay + az * az);
  ax /= across;
  ay /= across;
  az /= across;
  return {.xOfX = ax,
          .yOfX = ay,
          .xOfY = dy * az - dz * ay,
          .yOfY = dz * ax - dx * az,
          .zOfX = az,
          .zOfY = dx * ay - dy * ax};
}

// World coordinates of the plane Z = 0 to the view plane, with the target as
// its origin.
QTransform WorldToView(const QJsonObject& viewport) {
  const ViewAxes axes =
      AxesOf(viewport["dirX"].toDouble(), viewport["dirY"].toDouble(), viewport["dirZ"].toDouble());
  const double tx = viewport["targetX"].toDouble();
  const double ty = viewport["targetY"].toDouble();
  const double tz = viewport["targetZ"].toDouble();
  return {axes.xOfX,
          axes.xOfY,
          axes.yOfX,
          axes.yOfY,
          -(tx * axes.xOfX + ty * axes.yOfX + tz * axes.zOfX),
          -(tx * axes.xOfY + ty * axes.yOfY + tz * axes.zOfY)};
}

// Sizes with the sheet's quarter turns applied: what is left of the drawing
// lies at the paper's bottom after one turn counter-clockwise, and so on.
struct TurnedPage {
  QSizeF size;
  double left = 0, bottom = 0, right = 0, top = 0;
};

TurnedPage Turned(const PageSetup& page) {
  switch (page.rotation & 3) {
    case 1: return {page.paper.transposed(), page.bottom, page.right, page.top, page.left};
    case 2: return {page.paper, page.right, page.top, page.left, page.bottom};
    case 3: return {page.paper.transposed(), page.top, page.left, page.bottom, page.right};
    default: return {page.paper, page.left, page.bottom, page.right, page.top};
  }
}

double MillimetresOfUnit(const PageSetup& page) {
  const double unit = page.unit == 0 ? kMillimetresPerInch : 1.0;
  const double scale = page.scaleNumerator / page.scaleDenominator;
  return std::isfinite(scale) && scale > 0 ? unit * scale : unit;
}

}  // namespace

QTransform ModelToSheet(const QJsonObject& viewport) {
  const double viewSize = viewport["viewSize"].toDouble();
  const double scale = viewSize > 0 ? viewport["height"].toDouble() / viewSize : 0;
  QTransform toSheet;
  toSheet.translate(viewport["cx"].toDouble(), viewport["cy"].toDouble());
  toSheet.scale(scale, scale);
  toSheet.translate(-viewport["viewCtrX"].toDouble(), -viewport["viewCtrY"].toDouble());
  toSheet.rotateRadians(viewport["twist"].toDouble());
  return WorldToView(viewport) * toSheet;
}

QRectF FrameOf(const QJsonObject& viewport) {
  const double width = viewport["width"].toDouble();
  const double height = viewport["height"].toDouble();
  return {viewport["cx"].toDouble() - width / 2, viewport["cy"].toDouble() - height / 2, width,
          height};
}

bool IsOn(const QJsonObject& viewport) {
  return (static_cast<unsigned>(viewport["status"].toDouble()) & kViewportOff) == 0 &&
         viewport["viewSize"].toDouble() > 0;
}

PaperPlace PlacePaper(const PageSetup& page) {
  const TurnedPage turned = Turned(page);
  const double unit = MillimetresOfUnit(page);
  const QRectF paper(-(turned.left + page.plotOrigin.x()) / unit,
                     -(turned.bottom + page.plotOrigin.y()) / unit, turned.size.width() / unit,
                     turned.size.height() / unit);
  return {.paper = paper,
          .printable = paper.adjusted(turned.left / unit, turned.bottom / unit,
                                      -turned.right / unit, -turned.top / unit),
          .millimetresPerUnit = unit};
}

}  // namespace preview
