// Sheets as SVG text.
//
// Every shape carries its layer as a class, and layers are switched by custom
// properties, which also reach into the copies of model space that viewports
// show:
//   --vN: none      on the root hides layer N everywhere
//   --fN: none      on a viewport's copy hides layer N, which is frozen there
//   --hN: hidden    likewise what stands in references on such a layer
// Coordinates are moved to the picture's own, since browsers calculate with
// single precision and drawings may lie millions of units from the origin.
#pragma once

#include <QByteArray>
#include <QRectF>

#include "paint/export.hpp"
#include "scene/scene.hpp"

namespace preview {

// A picture that stands for itself.
QByteArray SvgOfSheet(const Scene& scene, const Sheet& sheet, const QRectF& area,
                      const ExportOptions& options);

// The pieces for a page of several sheets: the rules of the style sheet, the
// group with the id "model" that sheets refer to, and a sheet's element with
// the given id, whose view box shows `area`.
QByteArray SvgStyle(const Scene& scene);
QByteArray SvgModelGroup(const Scene& scene, const ExportOptions& options);
QByteArray SvgSheetElement(const Scene& scene, const Sheet& sheet, const QRectF& area,
                           const ExportOptions& options, const QByteArray& id);

// The properties that hide the layers that are off.
QByteArray SvgHiddenLayers(const Scene& scene);

}  // namespace preview
