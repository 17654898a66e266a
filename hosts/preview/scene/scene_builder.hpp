// From the document to the scene.
#pragma once

#include <QDir>

#include "model/drawing.hpp"
#include "scene/scene.hpp"

namespace preview {

struct BuildLimits {
  // Items of one sheet; references beyond are left out, with a note.
  std::size_t items = 2'000'000;
  // References within references; a block that holds itself ends here too.
  int depth = 16;
  // Bytes of texts' fragments that are laid out; further texts are bars, with a note. A
  // letter takes up to a kilobyte.
  qsizetype letters = 2'000'000;
};

// Expands all references, resolves colours and lineweights, lays out texts.
// `folder` is the drawing's, for its images. May run in any thread.
Scene BuildScene(const Drawing& drawing, const QDir& folder, const BuildLimits& limits = {});

}  // namespace preview
