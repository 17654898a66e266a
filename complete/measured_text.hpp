// Measured values as dimensions show them, with the codes of multi-line text for
// stacked fractions and tolerances.
#pragma once

#include <string>
#include <string_view>

#include "complete/dimension_format.hpp"

enum class Measure { kLength, kRadius, kDiameter, kAngle, kArcLength };

// A length in the format's unit. Not finite values are shown as 0.
std::string LengthText(double value, const UnitFormat& format);

// An angle in radians, with the unit's sign.
std::string AngleText(double radians, const UnitFormat& format);

// What stands for "<>": the value with factor, rounding, prefix and suffix,
// tolerances and the value in alternate units.
std::string MeasuredText(double value, Measure measure, const DimensionFormat& format);

// The text of a dimension: `userText` with "<>" replaced, or the measured text when
// it is empty. A user text of one space shows nothing.
std::string ShownText(std::string_view userText, std::string_view measured);
