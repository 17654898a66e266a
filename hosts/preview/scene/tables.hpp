// Frames with texts in them: tables without a block, and tolerances.
#pragma once

#include <QJsonObject>

#include <vector>

#include "scene/wires.hpp"

namespace preview {

// ACAD_TABLE from its cells: their edges, backgrounds and texts.
std::vector<Part> TableParts(const QJsonObject& record, const InkOfValue& inkOf);

// TOLERANCE: a frame for each row of cells, as high as two heights of its text.
std::vector<Part> ToleranceParts(const QJsonObject& record);

}  // namespace preview
