// Text in all sheets of a scene.
#pragma once

#include <QString>

#include <vector>

#include "ask/scene_index.hpp"

namespace preview {

struct Found {
  Hit hit;
  // The line that holds what was looked for.
  QString line;
};

struct FindResult {
  std::vector<Found> found;
  // Whether there were more than are listed.
  bool isCut = false;
};

// The items whose record says the text, in the order of the sheets and of their items:
// a text in a block once for each reference. Layers that are off count too. Nothing
// for an empty text.
FindResult FindText(SceneIndex& index, const QString& text, Qt::CaseSensitivity cases,
                    std::size_t limit = 5000);

}  // namespace preview
