#include "complete/measured_text.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace {

enum LengthUnit { kScientific = 1, kDecimal, kEngineering, kArchitectural, kFractional };
enum AngleUnit { kDegrees, kDegreesMinutesSeconds, kGradians, kRadians };

constexpr double kHalfTurn = 180;
constexpr double kHalfTurnInGradians = 200;

// Bits of DIMZIN above the two that speak of feet and inches.
constexpr std::int32_t kFeetAndInches = 3;
constexpr std::int32_t kNoLeadingZero = 4;
constexpr std::int32_t kNoTrailingZeros = 8;

// What the two lower bits say.
enum FeetAndInches { kNoZeroFeetNorInches, kAllZeros, kNoZeroInches, kNoZeroFeet };

constexpr std::int32_t kMostDecimals = 8;
constexpr double kInchesPerFoot = 12;

std::int32_t Decimals(const UnitFormat& format) {
  return std::clamp(format.decimals, 0, kMostDecimals);
}

// A drawing's values beyond this are no measures, and their digits would only be
// noise.
double Shown(double value) {
  constexpr double kLargest = 1e15;
  return std::isfinite(value) && std::abs(value) < kLargest ? value : 0;
}

std::string Digits(double value, std::chars_format form, std::int32_t decimals) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, form, decimals).ptr;
  return {text.data(), end};
}

void DropTrailingZeros(std::string& text) {
  if (text.find('.') == std::string::npos) {
    return;
  }
  text.erase(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) {
    text.pop_back();
  }
}

void DropLeadingZero(std::string& text) {
  const std::size_t start = text.starts_with('-') ? 1 : 0;
  if (text.compare(start, 2, "0.") == 0) {
    text.erase(start, 1);
  }
}

// Digits with a point, whose zeros may be dropped at both ends.
std::string Fixed(double value, std::int32_t decimals, bool hasLeading, bool hasTrailing,
                  char separator) {
  std::string text = Digits(value, std::chars_format::fixed, decimals);
  if (!hasTrailing) {
    DropTrailingZeros(text);
  }
  if (!hasLeading) {
    DropLeadingZero(text);
  }
  std::replace(text.begin(), text.end(), '.', separator);
  return text;
}

std::string FixedLength(double value, const UnitFormat& format) {
  return Fixed(value, Decimals(format), (format.zeros & kNoLeadingZero) == 0,
               (format.zeros & kNoTrailingZeros) == 0, format.separator);
}

std::string ScientificLength(double value, const UnitFormat& format) {
  std::string text = Digits(value, std::chars_format::scientific, Decimals(format));
  const std::size_t exponent = text.find('e');
  std::string mantissa = text.substr(0, exponent);
  if ((format.zeros & kNoTrailingZeros) != 0) {
    DropTrailingZeros(mantissa);
  }
  std::replace(mantissa.begin(), mantissa.end(), '.', format.separator);
  return mantissa + 'E' + text.substr(exponent + 1);
}

// A whole number and a fraction of the least step, in lowest terms.
struct Mixed {
  std::int64_t whole = 0;
  std::int64_t numerator = 0;
  std::int64_t denominator = 1;
};

Mixed Split(double value, const UnitFormat& format) {
  const std::int64_t steps = std::int64_t{1} << Decimals(format);
  const auto total = static_cast<std::int64_t>(std::llround(value * static_cast<double>(steps)));
  Mixed mixed{.whole = total / steps, .numerator = total % steps, .denominator = steps};
  while (mixed.numerator != 0 && mixed.numerator % 2 == 0) {
    mixed.numerator /= 2;
    mixed.denominator /= 2;
  }
  return mixed;
}

std::string Fraction(const Mixed& mixed, const UnitFormat& format, bool hasWhole) {
  const std::string above = std::to_string(mixed.numerator);
  const std::string below = std::to_string(mixed.denominator);
  switch (format.fractions) {
    case 0: return "{\\S" + above + '/' + below + ";}";
    case 1: return "{\\S" + above + '#' + below + ";}";
    default: return (hasWhole ? " " : "") + above + '/' + below;
  }
}

// A whole part of 0 stands behind feet only.
std::string MixedText(const Mixed& mixed, const UnitFormat& format, bool isBehindFeet = false) {
  if (mixed.numerator == 0) {
    return std::to_string(mixed.whole);
  }
  const bool hasWhole = mixed.whole != 0 || isBehindFeet;
  return (hasWhole ? std::to_string(mixed.whole) : std::string{}) +
         Fraction(mixed, format, hasWhole);
}

bool HasFeet(std::int64_t feet, const UnitFormat& format) {
  const std::int32_t zeros = format.zeros & kFeetAndInches;
  return feet != 0 || zeros == kAllZeros || zeros == kNoZeroInches;
}

std::string FeetText(std::int64_t feet, std::string_view inches, bool isZeroInches,
                     const UnitFormat& format) {
  const std::int32_t zeros = format.zeros & kFeetAndInches;
  const bool hasFeet = HasFeet(feet, format);
  const bool hasInches =
      !isZeroInches || zeros == kAllZeros || zeros == kNoZeroFeet || (feet == 0 && !hasFeet);
  std::string text = hasFeet ? std::to_string(feet) + '\'' : std::string{};
  if (hasInches) {
    text += hasFeet ? "-" : "";
    text += inches;
    text += '"';
  }
  return text;
}

std::string ArchitecturalLength(double value, const UnitFormat& format) {
  Mixed inches = Split(value, format);
  const auto perFoot = static_cast<std::int64_t>(kInchesPerFoot);
  const std::int64_t feet = inches.whole / perFoot;
  inches.whole %= perFoot;
  return FeetText(feet, MixedText(inches, format, HasFeet(feet, format)),
                  inches.whole == 0 && inches.numerator == 0, format);
}

std::string EngineeringLength(double value, const UnitFormat& format) {
  const double scale = std::pow(10.0, Decimals(format));
  const double rounded = std::round(value * scale) / scale;
  const double feet = std::floor(rounded / kInchesPerFoot);
  const double inches = rounded - feet * kInchesPerFoot;
  return FeetText(static_cast<std::int64_t>(feet), FixedLength(inches, format), inches == 0,
                  format);
}

std::string PositiveLength(double value, const UnitFormat& format) {
  switch (format.unit) {
    case kScientific: return ScientificLength(value, format);
    case kEngineering: return EngineeringLength(value, format);
    case kArchitectural: return ArchitecturalLength(value, format);
    case kFractional: return MixedText(Split(value, format), format);
    default: return FixedLength(value, format);
  }
}

std::string FixedAngle(double value, const UnitFormat& format) {
  constexpr std::int32_t kNoLeading = 1;
  constexpr std::int32_t kNoTrailing = 2;
  return Fixed(value, Decimals(format), (format.zeros & kNoLeading) == 0,
               (format.zeros & kNoTrailing) == 0, format.separator);
}

// Minutes from the first decimal on, seconds from the third, their decimals from
// the fifth.
std::string SexagesimalAngle(double degrees, const UnitFormat& format) {
  constexpr double kSixty = 60;
  constexpr std::int32_t kMinutesUpTo = 2;
  constexpr std::int32_t kWholeSecondsUpTo = 4;
  const std::int32_t decimals = Decimals(format);
  if (decimals == 0) {
    return Digits(degrees, std::chars_format::fixed, 0) + "°";
  }
  if (decimals <= kMinutesUpTo) {
    const double minutes = std::round(degrees * kSixty);
    const double whole = std::floor(minutes / kSixty);
    return Digits(whole, std::chars_format::fixed, 0) + "°" +
           Digits(minutes - whole * kSixty, std::chars_format::fixed, 0) + "'";
  }
  const std::int32_t places = std::max(0, decimals - kWholeSecondsUpTo);
  const double scale = std::pow(10.0, places);
  const double seconds = std::round(degrees * kSixty * kSixty * scale) / scale;
  const double minutes = std::floor(seconds / kSixty);
  const double whole = std::floor(minutes / kSixty);
  return Digits(whole, std::chars_format::fixed, 0) + "°" +
         Digits(minutes - whole * kSixty, std::chars_format::fixed, 0) + "'" +
         Digits(seconds - minutes * kSixty, std::chars_format::fixed, places) + "\"";
}

double Rounded(double value, double rounding) {
  return rounding > 0 && std::isfinite(rounding) ? std::round(value / rounding) * rounding : value;
}

// Both parts of DIMPOST and DIMAPOST; a text without the mark is a suffix.
struct Affixes {
  std::string_view prefix;
  std::string_view suffix;
};

Affixes SplitAt(std::string_view text, std::string_view mark) {
  const std::size_t at = text.find(mark);
  if (at == std::string_view::npos) {
    return {.prefix = {}, .suffix = text};
  }
  return {.prefix = text.substr(0, at), .suffix = text.substr(at + mark.size())};
}

std::string_view SignOf(Measure measure) {
  switch (measure) {
    case Measure::kRadius: return "R";
    case Measure::kDiameter: return "\u2205";
    default: return {};
  }
}

std::string ValueText(double value, Measure measure, const UnitFormat& length,
                      const DimensionFormat& format) {
  return measure == Measure::kAngle ? AngleText(value, format.angle) : LengthText(value, length);
}

// Of an angle the variables give the tolerance in the unit that is shown.
double Tolerance(double stored, Measure measure, const DimensionFormat& format) {
  if (measure != Measure::kAngle) {
    return stored;
  }
  switch (format.angle.unit) {
    case kGradians: return stored * std::numbers::pi / kHalfTurnInGradians;
    case kRadians: return stored;
    default: return stored * std::numbers::pi / kHalfTurn;
  }
}

std::string ToleranceText(double value, Measure measure, const DimensionFormat& format) {
  DimensionFormat tolerance = format;
  tolerance.length.decimals = format.toleranceDecimals;
  tolerance.length.zeros = format.toleranceZeros;
  tolerance.angle.decimals = format.toleranceDecimals;
  return ValueText(value, measure, tolerance.length, tolerance);
}

std::string WithTolerance(double value, Measure measure, const DimensionFormat& format) {
  const double plus = Tolerance(format.plus, measure, format);
  const double minus = Tolerance(format.minus, measure, format);
  if (format.hasLimits) {
    return "{\\S" + ValueText(value + plus, measure, format.length, format) + '^' +
           ValueText(value - minus, measure, format.length, format) + ";}";
  }
  std::string text = ValueText(value, measure, format.length, format);
  if (!format.hasTolerance) {
    return text;
  }
  if (format.plus == format.minus) {
    return text + "±" + ToleranceText(std::abs(plus), measure, format);
  }
  return text + "{\\S+" + ToleranceText(plus, measure, format) + "^ -" +
         ToleranceText(minus, measure, format) + ";}";
}

std::string AlternateText(double value, const DimensionFormat& format) {
  const Affixes affixes = SplitAt(format.alternatePostfix, "[]");
  const double alternate = Rounded(value * format.alternateFactor, format.alternateRounding);
  return " [" + std::string(affixes.prefix) + LengthText(alternate, format.alternateLength) +
         std::string(affixes.suffix) + ']';
}

// The sign takes the prefix's place when the style has none.
std::string WithAffixes(const std::string& text, Measure measure, const DimensionFormat& format) {
  if (measure == Measure::kAngle) {
    return text;
  }
  const Affixes affixes = SplitAt(format.postfix, "<>");
  const std::string_view prefix = affixes.prefix.empty() ? SignOf(measure) : affixes.prefix;
  return std::string(prefix) + text + std::string(affixes.suffix);
}

}  // namespace

std::string LengthText(double value, const UnitFormat& format) {
  const double shown = Shown(value);
  const std::string text = PositiveLength(std::abs(shown), format);
  return shown < 0 ? '-' + text : text;
}

std::string AngleText(double radians, const UnitFormat& format) {
  const double turned = Shown(radians) / std::numbers::pi;
  switch (format.unit) {
    case kDegreesMinutesSeconds: return SexagesimalAngle(turned * kHalfTurn, format);
    case kGradians: return FixedAngle(turned * kHalfTurnInGradians, format) + 'g';
    case kRadians: return FixedAngle(Shown(radians), format) + 'r';
    default: return FixedAngle(turned * kHalfTurn, format) + "°";
  }
}

std::string MeasuredText(double value, Measure measure, const DimensionFormat& format) {
  if (measure == Measure::kAngle) {
    return WithTolerance(value, measure, format);
  }
  const double factor = format.linearFactor == 0 ? 1 : std::abs(format.linearFactor);
  const double scaled = Shown(value) * factor;
  std::string text = WithAffixes(WithTolerance(Rounded(scaled, format.rounding), measure, format),
                                 measure, format);
  if (format.hasAlternate) {
    text += AlternateText(scaled, format);
  }
  return text;
}

std::string ShownText(std::string_view userText, std::string_view measured) {
  constexpr std::string_view kMark = "<>";
  if (userText.empty()) {
    return std::string(measured);
  }
  if (userText == " ") {
    return {};
  }
  std::string text;
  for (std::size_t at = userText.find(kMark); at != std::string_view::npos;
       at = userText.find(kMark)) {
    text += userText.substr(0, at);
    text += measured;
    userText.remove_prefix(at + kMark.size());
  }
  text += userText;
  return text;
}
