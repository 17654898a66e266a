// Pictures without a window.
#pragma once

#include "app/options.hpp"

namespace preview {

// Loads the drawing and writes what the options ask for. Progress and problems
// go to standard error. Gives the exit status: 0, or 1 when the drawing could
// not be read or a file not be written. Needs an application object.
int RunHeadless(const Options& options);

// The sheets as JSON: name, extents, paper, counts.
QByteArray SheetList(const Scene& scene);

// Paints `frames` views that zoom into the sheet and pan over it, and gives the
// milliseconds of each.
std::vector<double> TimeFrames(const Scene& scene, const Sheet& sheet, int frames);

}  // namespace preview
