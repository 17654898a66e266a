// Dimensions, drawn from their values and the keys of their style.
//
// What the document does not hold is chosen here: extension lines start a
// quarter of the text height off their origin and end half of it beyond the
// dimension line; text stands along the dimension line, readable from below or
// from the right.
#pragma once

#include <QJsonObject>
#include <QString>

#include <vector>

#include "scene/scene.hpp"

namespace preview {

// The measured value as the style writes it: factor, rounding, decimals, zero
// suppression, unit format, prefix and suffix.
QString FormatMeasurement(double measurement, const QJsonObject& style);

// What the dimension says: its override with "<>" replaced, the measured value
// without one, nothing for a single blank. Formatting codes of the override are
// dropped, but for line breaks.
QString DimensionText(const QJsonObject& dimension);

// The parts of a DIMENSION record, text included. `line` and `text` are the
// colours of the two.
std::vector<Part> DimensionParts(const QJsonObject& dimension, const Ink& line, const Ink& text);

}  // namespace preview
