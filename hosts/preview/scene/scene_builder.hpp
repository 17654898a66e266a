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
  // Characters of texts' fragments that are laid out at once; letters of further texts
  // are made when they are seen. A letter takes up to a kilobyte.
  qsizetype letters = 300'000;
  // Of a drawing with more records in model space none is laid out at once.
  std::size_t records = 50'000;
};

// Expands all references, resolves colours and lineweights, lays out texts.
// `folder` is the drawing's, for its images. May run in any thread.
Scene BuildScene(const Drawing& drawing, const QDir& folder, const BuildLimits& limits = {});

}  // namespace preview
