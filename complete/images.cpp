#include "complete/images.hpp"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "complete/common_keys.hpp"
#include "complete/plane_keys.hpp"
#include "encode/fast/portable_math.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"
#include "entities/image.hpp"

namespace {

constexpr unsigned kShow = 1;
constexpr unsigned kTransparent = 8;

constexpr unsigned kUnderlayClipped = 1;
constexpr unsigned kUnderlayShown = 2;
constexpr unsigned kUnderlayMonochrome = 4;
constexpr unsigned kUnderlayAdjusted = 8;
constexpr unsigned kUnderlayInverted = 16;

// Two opposite corners stand for a rectangle. Texts have the first corner of a polygon
// again at its end.
std::vector<BITCODE_2RD> WholeBoundary(std::span<const BITCODE_2RD> stored) {
  if (stored.size() != 2) {
    const bool isClosed = stored.size() > 3 && stored.front().x == stored.back().x &&
                          stored.front().y == stored.back().y;
    return {stored.begin(), stored.end() - (isClosed ? 1 : 0)};
  }
  const BITCODE_2RD& a = stored[0];
  const BITCODE_2RD& b = stored[1];
  return {a, {b.x, a.y}, b, {a.x, b.y}};
}

// Where a point in pixels lies. They count from the centre of the upper left pixel,
// downward; the image begins at its lower left corner.
template <typename Raster>
SpacePoint PixelToWorld(const Raster& image, const BITCODE_2RD& pixel) {
  const double height = image.image_size.y > 0 ? image.image_size.y : 1;
  const double a = pixel.x + 0.5;
  const double b = height - 0.5 - pixel.y;
  return {image.pt0.x + a * image.uvec.x + b * image.vvec.x,
          image.pt0.y + a * image.uvec.y + b * image.vvec.y,
          image.pt0.z + a * image.uvec.z + b * image.vvec.z};
}

void AppendFlatPoints(JsonOut& out, std::string_view opening, std::span<const BITCODE_2RD> points) {
  JsonList list(out, opening);
  for (const BITCODE_2RD& point : points) {
    list.Point(point.x, point.y);
  }
  list.Close();
}

void AppendClip(JsonOut& out, const Dwg_Entity_IMAGE& image) {
  const auto stored = SpanOf(image.clip_verts, image.num_clip_verts);
  if (stored.empty()) {
    return;
  }
  AppendBoolKey(out, ",\"clip\":{\"on\":", image.clipping != 0);
  AppendBoolKey(out, ",\"inverted\":", image.clip_mode != 0);
  const std::vector<BITCODE_2RD> corners = WholeBoundary(stored);
  AppendFlatPoints(out, ",\"pixels\":[", corners);
  JsonList world(out, ",\"world\":[");
  for (const BITCODE_2RD& corner : corners) {
    AddPoint(world, PixelToWorld(image, corner));
  }
  world.Close();
  out += '}';
}

void AppendUnderlayClip(JsonOut& out, const Dwg_Entity_PDFUNDERLAY& underlay) {
  const auto stored = SpanOf(underlay.clip_verts, underlay.num_clip_verts);
  if (stored.empty()) {
    return;
  }
  AppendBoolKey(out, ",\"clip\":{\"on\":", (underlay.flag & kUnderlayClipped) != 0);
  AppendBoolKey(out, ",\"inverted\":", (underlay.flag & kUnderlayInverted) != 0);
  const std::vector<BITCODE_2RD> corners = WholeBoundary(stored);
  AppendFlatPoints(out, ",\"boundary\":[", corners);
  const SineAndCosine turn = PortableSinCos(underlay.angle);
  const EntityPlane plane(underlay.extrusion);
  JsonList world(out, ",\"world\":[");
  for (const BITCODE_2RD& corner : corners) {
    const double x = corner.x * underlay.scale.x;
    const double y = corner.y * underlay.scale.y;
    const SpacePoint way =
        plane.ToWorld(x * turn.cosine - y * turn.sine, x * turn.sine + y * turn.cosine, 0);
    world.Point(underlay.ins_pt.x + way.x, underlay.ins_pt.y + way.y, underlay.ins_pt.z + way.z);
  }
  world.Close();
  out += '}';
}

const PdfEntry* FindPdf(const Dwg_Entity_PDFUNDERLAY& underlay, const CompleteContext& context) {
  const Handle handle = HandleOf(underlay.definition_id);
  return handle == 0 ? nullptr : context.base.tables.pdfDefs.Find(handle);
}

}  // namespace

void AppendAnyImage(JsonOut& out, const Dwg_Entity_IMAGE& image, const CompleteContext& context) {
  Dwg_Entity_IMAGE shown = image;
  shown.display_props |= kShow;
  AppendImage(out, shown, context.base);
}

void AppendImageFurtherKeys(JsonOut& out, const Dwg_Entity_IMAGE& image) {
  AppendNonZeroKey(out, ",\"pz0\":", image.pt0.z);
  AppendNonZeroKey(out, ",\"uz\":", image.uvec.z);
  AppendNonZeroKey(out, ",\"vz\":", image.vvec.z);
  AppendBoolKey(out, ",\"shown\":", (image.display_props & kShow) != 0);
  AppendIntKey(out, ",\"brightness\":", image.brightness);
  AppendIntKey(out, ",\"contrast\":", image.contrast);
  AppendIntKey(out, ",\"fade\":", image.fade);
  AppendTrueKey(out, ",\"transparent\":", (image.display_props & kTransparent) != 0);
  AppendClip(out, image);
}

void AppendWholeWipeout(JsonOut& out, const Dwg_Entity_WIPEOUT& wipeout) {
  const auto stored = SpanOf(wipeout.clip_verts, wipeout.num_clip_verts);
  if ((wipeout.display_props & kShow) == 0 || stored.empty()) {
    return;
  }
  JsonList points(out, ",\"verts\":[");
  for (const BITCODE_2RD& corner : WholeBoundary(stored)) {
    const SpacePoint point = PixelToWorld(wipeout, corner);
    points.Point(point.x, point.y);
  }
  points.Close();
}

void AppendWipeoutFurtherKeys(JsonOut& out, const Dwg_Entity_WIPEOUT& wipeout) {
  AppendTrueKey(out, ",\"inverted\":", wipeout.clip_mode != 0);
  JsonList world(out, ",\"world\":[");
  for (const BITCODE_2RD& corner :
       WholeBoundary(SpanOf(wipeout.clip_verts, wipeout.num_clip_verts))) {
    AddPoint(world, PixelToWorld(wipeout, corner));
  }
  world.Close();
}

void AppendAnyPdfUnderlay(JsonOut& out, const Dwg_Entity_PDFUNDERLAY& underlay,
                          const CompleteContext& context) {
  const std::size_t start = out.size();
  AppendPdfUnderlay(out, underlay, context.base);
  if (out.size() != start) {
    return;
  }
  const PdfEntry* entry = FindPdf(underlay, context);
  if (entry == nullptr) {
    AppendUnderlayKeys(out, underlay, {}, 1);
  } else {
    AppendUnderlayKeys(out, underlay, entry->declaredPath, entry->page);
  }
}

void AppendPdfUnderlayFurtherKeys(JsonOut& out, const Dwg_Entity_PDFUNDERLAY& underlay,
                                  const CompleteContext& context) {
  const PdfEntry* entry = FindPdf(underlay, context);
  AppendBoolKey(out, ",\"found\":", entry != nullptr && !entry->resolvedPath.empty());
  AppendNonZeroKey(out, ",\"iz\":", underlay.ins_pt.z);
  AppendNumberKey(out, ",\"sz\":", underlay.scale.z);
  AppendBoolKey(out, ",\"shown\":", (underlay.flag & kUnderlayShown) != 0);
  AppendTrueKey(out, ",\"monochrome\":", (underlay.flag & kUnderlayMonochrome) != 0);
  AppendTrueKey(out, ",\"adjusted\":", (underlay.flag & kUnderlayAdjusted) != 0);
  AppendIntKey(out, ",\"contrast\":", underlay.contrast);
  AppendIntKey(out, ",\"fade\":", underlay.fade);
  AppendUnderlayClip(out, underlay);
  AppendPlaneKeys(out, 0, 0, underlay.extrusion);
}
