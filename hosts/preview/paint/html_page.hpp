// All sheets of a scene as one page for a browser, without anything to load.
#pragma once

#include <QByteArray>
#include <QString>

#include "paint/export.hpp"
#include "scene/scene.hpp"

namespace preview {

// Tabs for the sheets, switches for the layers, pan and zoom, the notes; the keys of a
// record that is clicked, and a search for text.
// Nothing in the page is fetched, and it forbids itself to fetch anything.
QByteArray HtmlPage(const Scene& scene, const QString& title, const ExportOptions& options);

}  // namespace preview
