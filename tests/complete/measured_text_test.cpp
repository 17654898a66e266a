#include "complete/measured_text.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;

UnitFormat Unit(std::int32_t unit, std::int32_t decimals, std::int32_t zeros = 0,
                std::int32_t fractions = 2) {
  return {.unit = unit, .decimals = decimals, .zeros = zeros, .fractions = fractions};
}

}  // namespace

TEST(LengthText, DecimalKeepsOrDropsZeros) {
  EXPECT_EQ(LengthText(12.5, Unit(2, 3)), "12.500");
  EXPECT_EQ(LengthText(12.5, Unit(2, 3, 8)), "12.5");
  EXPECT_EQ(LengthText(12, Unit(2, 3, 8)), "12");
  EXPECT_EQ(LengthText(0.25, Unit(2, 2, 4)), ".25");
  EXPECT_EQ(LengthText(-0.25, Unit(2, 2, 4)), "-.25");
  EXPECT_EQ(LengthText(100, Unit(2, 0, 8)), "100");
}

TEST(LengthText, SeparatorTakesThePlaceOfThePoint) {
  UnitFormat format = Unit(2, 2);
  format.separator = ',';
  EXPECT_EQ(LengthText(1.5, format), "1,50");
}

TEST(LengthText, Scientific) {
  EXPECT_EQ(LengthText(1234.5, Unit(1, 2)), "1.23E+03");
  EXPECT_EQ(LengthText(1200, Unit(1, 3, 8)), "1.2E+03");
}

TEST(LengthText, EngineeringHasFeetAndDecimalInches) {
  EXPECT_EQ(LengthText(15.5, Unit(3, 2)), "1'-3.50\"");
  EXPECT_EQ(LengthText(3.5, Unit(3, 2)), "3.50\"");
  EXPECT_EQ(LengthText(3.5, Unit(3, 2, 1)), "0'-3.50\"");
}

// 15.5 inches are a foot and three and a half.
TEST(LengthText, ArchitecturalHasFractionsInLowestTerms) {
  EXPECT_EQ(LengthText(15.5, Unit(4, 4)), "1'-3 1/2\"");
  EXPECT_EQ(LengthText(15.5, Unit(4, 4, 0, 0)), "1'-3{\\S1/2;}\"");
  EXPECT_EQ(LengthText(15.5, Unit(4, 4, 0, 1)), "1'-3{\\S1#2;}\"");
  EXPECT_EQ(LengthText(12.25, Unit(4, 4)), "1'-0 1/4\"");
  EXPECT_EQ(LengthText(0.25, Unit(4, 4)), "1/4\"");
  EXPECT_EQ(LengthText(0.25, Unit(4, 4, 1)), "0'-0 1/4\"");
  EXPECT_EQ(LengthText(12, Unit(4, 4)), "1'");
  EXPECT_EQ(LengthText(12, Unit(4, 4, 1)), "1'-0\"");
  EXPECT_EQ(LengthText(12, Unit(4, 4, 3)), "1'-0\"");
  EXPECT_EQ(LengthText(5, Unit(4, 4, 2)), "0'-5\"");
  EXPECT_EQ(LengthText(0, Unit(4, 4)), "0\"");
}

// The least fraction is 1/2^decimals: 0.3 is nearest to 5/16.
TEST(LengthText, Fractional) {
  EXPECT_EQ(LengthText(2.75, Unit(5, 4)), "2 3/4");
  EXPECT_EQ(LengthText(0.3, Unit(5, 4)), "5/16");
  EXPECT_EQ(LengthText(3, Unit(5, 4)), "3");
}

TEST(LengthText, NumbersThatAreNoMeasures) {
  EXPECT_EQ(LengthText(std::numeric_limits<double>::quiet_NaN(), Unit(2, 1)), "0.0");
  EXPECT_EQ(LengthText(std::numeric_limits<double>::infinity(), Unit(4, 1)), "0\"");
  EXPECT_EQ(LengthText(1e300, Unit(3, 8)), "0.00000000\"");
  EXPECT_EQ(LengthText(2, Unit(2, 30000)), "2.00000000");
  EXPECT_EQ(LengthText(2, Unit(5, -3)), "2");
}

TEST(AngleText, Units) {
  EXPECT_EQ(AngleText(kPi / 4, Unit(0, 0)), "45°");
  EXPECT_EQ(AngleText(kPi / 4, Unit(0, 2)), "45.00°");
  EXPECT_EQ(AngleText(kPi / 4, Unit(0, 2, 2)), "45°");
  EXPECT_EQ(AngleText(kPi / 4, Unit(2, 1)), "50.0g");
  EXPECT_EQ(AngleText(0.5, Unit(3, 2)), "0.50r");
}

// 30.5125 degrees are 30 degrees, 30 minutes, 45 seconds.
TEST(AngleText, DegreesMinutesSeconds) {
  const double angle = 30.5125 * kPi / 180;
  EXPECT_EQ(AngleText(angle, Unit(1, 0)), "31°");
  EXPECT_EQ(AngleText(angle, Unit(1, 1)), "30°31'");
  EXPECT_EQ(AngleText(angle, Unit(1, 4)), "30°30'45\"");
  EXPECT_EQ(AngleText(angle, Unit(1, 5)), "30°30'45.0\"");
}

TEST(MeasuredText, FactorAndRounding) {
  DimensionFormat format{.length = Unit(2, 2)};
  format.linearFactor = 2.54;
  EXPECT_EQ(MeasuredText(10, Measure::kLength, format), "25.40");
  format.rounding = 0.5;
  EXPECT_EQ(MeasuredText(10, Measure::kLength, format), "25.50");
  format.linearFactor = 0;
  EXPECT_EQ(MeasuredText(10.2, Measure::kLength, format), "10.00");
}

TEST(MeasuredText, SignsGiveWayToThePrefix) {
  DimensionFormat format{.length = Unit(2, 0)};
  EXPECT_EQ(MeasuredText(5, Measure::kRadius, format), "R5");
  EXPECT_EQ(MeasuredText(5, Measure::kDiameter, format), "\u22055");
  EXPECT_EQ(MeasuredText(5, Measure::kArcLength, format), "5");
  format.postfix = "rad <> mm";
  EXPECT_EQ(MeasuredText(5, Measure::kRadius, format), "rad 5 mm");
  format.postfix = " mm";
  EXPECT_EQ(MeasuredText(5, Measure::kRadius, format), "R5 mm");
  EXPECT_EQ(MeasuredText(kPi / 2, Measure::kAngle, format), "90°");
}

TEST(MeasuredText, Tolerances) {
  DimensionFormat format{.length = Unit(2, 1)};
  format.plus = 0.2;
  format.minus = 0.2;
  format.toleranceDecimals = 2;
  EXPECT_EQ(MeasuredText(5, Measure::kLength, format), "5.0");
  format.hasTolerance = true;
  EXPECT_EQ(MeasuredText(5, Measure::kLength, format), "5.0±0.20");
  format.minus = 0.1;
  EXPECT_EQ(MeasuredText(5, Measure::kLength, format), "5.0{\\S+0.20^ -0.10;}");
  format.hasLimits = true;
  EXPECT_EQ(MeasuredText(5, Measure::kLength, format), "{\\S5.2^4.9;}");
}

// 0.1 degrees are six minutes.
TEST(MeasuredText, TolerancesOfAnglesAreInTheUnitThatIsShown) {
  DimensionFormat format{.angle = Unit(0, 0)};
  format.plus = 0.1;
  format.minus = 0.2;
  format.toleranceDecimals = 1;
  format.hasTolerance = true;
  EXPECT_EQ(MeasuredText(kPi / 4, Measure::kAngle, format), "45°{\\S+0.1°^ -0.2°;}");
  format.angle.unit = 1;
  EXPECT_EQ(MeasuredText(kPi / 4, Measure::kAngle, format), "45°{\\S+0°6'^ -0°12';}");
  format.angle.unit = 2;
  EXPECT_EQ(MeasuredText(kPi / 4, Measure::kAngle, format), "50g{\\S+0.1g^ -0.2g;}");
  format.angle.unit = 3;
  format.minus = 0.1;
  EXPECT_EQ(MeasuredText(0.75, Measure::kAngle, format), "1r±0.1r");
  format.angle = Unit(0, 1);
  format.hasLimits = true;
  EXPECT_EQ(MeasuredText(kPi / 4, Measure::kAngle, format), "{\\S45.1°^44.9°;}");
}

TEST(MeasuredText, AlternateUnits) {
  DimensionFormat format{.length = Unit(2, 0), .alternateLength = Unit(2, 2)};
  format.hasAlternate = true;
  format.alternateFactor = 25.4;
  EXPECT_EQ(MeasuredText(2, Measure::kLength, format), "2 [50.80]");
  format.alternatePostfix = "[] mm";
  EXPECT_EQ(MeasuredText(2, Measure::kLength, format), "2 [50.80 mm]");
}

TEST(ShownText, ReplacesTheMark) {
  EXPECT_EQ(ShownText("", "5"), "5");
  EXPECT_EQ(ShownText(" ", "5"), "");
  EXPECT_EQ(ShownText("<>", "5"), "5");
  EXPECT_EQ(ShownText("a <> b <>", "5"), "a 5 b 5");
  EXPECT_EQ(ShownText("about a foot", "12"), "about a foot");
  EXPECT_EQ(ShownText("<", "5"), "<");
}
