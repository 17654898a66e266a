#include "reading/dxf/dxf_values.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

std::string Real(std::string_view value) {
  return MendDxfValue(DxfValueKind::kReal, value).text;
}

DxfValueFlaw FlawOfReal(std::string_view value) {
  return MendDxfValue(DxfValueKind::kReal, value).flaw;
}

std::string Short(std::string_view value) {
  return MendDxfValue(DxfValueKind::kShort, value).text;
}

DxfValueFlaw FlawOfShort(std::string_view value) {
  return MendDxfValue(DxfValueKind::kShort, value).flaw;
}

TEST(DxfValues, TellTheKindOfAGroupCode) {
  EXPECT_EQ(KindOfDxfCode(0), DxfValueKind::kText);
  EXPECT_EQ(KindOfDxfCode(5), DxfValueKind::kHandle);
  EXPECT_EQ(KindOfDxfCode(10), DxfValueKind::kReal);
  EXPECT_EQ(KindOfDxfCode(70), DxfValueKind::kShort);
  EXPECT_EQ(KindOfDxfCode(90), DxfValueKind::kInteger);
  EXPECT_EQ(KindOfDxfCode(105), DxfValueKind::kHandle);
  EXPECT_EQ(KindOfDxfCode(160), DxfValueKind::kLong);
  EXPECT_EQ(KindOfDxfCode(290), DxfValueKind::kByte);
  EXPECT_EQ(KindOfDxfCode(310), DxfValueKind::kChunk);
  EXPECT_EQ(KindOfDxfCode(330), DxfValueKind::kHandle);
  EXPECT_EQ(KindOfDxfCode(1071), DxfValueKind::kInteger);
}

TEST(DxfValues, KnowWhichGroupCodesDoNotExist) {
  for (const int code : {-5, -1, 104, 106, 180, 480, 998, 1072, 70000}) {
    EXPECT_EQ(KindOfDxfCode(code), DxfValueKind::kNone) << code;
  }
}

TEST(DxfValues, ReadGroupCodesWithBlanksAndAsDecimals) {
  EXPECT_EQ(ParseDxfCode("  0"), 0);
  EXPECT_EQ(ParseDxfCode("\t10 \t"), 10);
  EXPECT_EQ(ParseDxfCode("3.0"), 3);
  EXPECT_EQ(ParseDxfCode("-5"), -5);
  EXPECT_EQ(ParseDxfCode("3.5"), std::nullopt);
  EXPECT_EQ(ParseDxfCode("AcDbLine"), std::nullopt);
  EXPECT_EQ(ParseDxfCode(""), std::nullopt);
}

TEST(DxfValues, TakeUsualDecimalsAsTheyStand) {
  for (const auto* const value : {"0", "1.5", "-.5", "+2.", "1e10", "1.5E-07", "  3.25", "4.0 "}) {
    EXPECT_TRUE(IsProperDxfValue(DxfValueKind::kReal, value)) << value;
    EXPECT_EQ(Real(value), value);
  }
}

TEST(DxfValues, ReadDecimalsInOtherNotations) {
  EXPECT_EQ(Real("1,5"), "1.5");
  EXPECT_EQ(Real("1.5D2"), "150.0");
  EXPECT_EQ(Real("1.5d+02"), "150.0");
  EXPECT_EQ(Real("1.5e 2"), "150.0");
  EXPECT_EQ(Real("1.5 E1"), "15.0");
  EXPECT_EQ(FlawOfReal("1,5"), DxfValueFlaw::kOdd);
}

TEST(DxfValues, ReadExponentsWithoutALetter) {
  EXPECT_EQ(Real("1.5 02"), "150.0");
  EXPECT_EQ(Real("1.5+02"), "150.0");
  EXPECT_EQ(Real("-1.5-01"), "-0.15");
  EXPECT_EQ(Real("+1,5+2"), "150.0");
  EXPECT_EQ(Real("1.+2"), "100.0");
  EXPECT_EQ(Real(".25-100"), "2.5e-101");
  EXPECT_EQ(FlawOfReal("1.5+02"), DxfValueFlaw::kOdd);
  EXPECT_EQ(FlawOfReal("1.5 02"), DxfValueFlaw::kOdd);
  EXPECT_EQ(Short("1.5+02"), "150");
}

// A date, two numbers, a sum: what stands behind the first number is none of its own.
TEST(DxfValues, TakeNothingElseForAnExponent) {
  for (const auto* const value : {"1.5 2", "1.5 023", "1.5+0002", "1.5+", "1.5 ab", "1.5+-2"}) {
    EXPECT_EQ(Real(value), "1.5") << value;
    EXPECT_EQ(FlawOfReal(value), DxfValueFlaw::kBad) << value;
  }
  EXPECT_EQ(Real("15+02"), "15.0");
  EXPECT_EQ(Real("++1.5"), "0.0");
}

TEST(DxfValues, ReadWhatIsNoNumberAsZero) {
  for (const auto* const value :
       {"", "   ", "abc", "nan", "-nan(ind)", "inf", "1.#QNAN", "-1.#IND"}) {
    EXPECT_EQ(Real(value), "0.0") << value;
    EXPECT_EQ(FlawOfReal(value), DxfValueFlaw::kBad) << value;
  }
}

TEST(DxfValues, KeepDecimalsInsideTheRange) {
  EXPECT_EQ(Real("1e-310"), "0.0");
  EXPECT_EQ(FlawOfReal("1e-310"), DxfValueFlaw::kOutside);
  EXPECT_EQ(Real("1e-400"), "0.0");
  EXPECT_EQ(std::strtod(Real("-1e400").c_str(), nullptr), -1.7976931348623157e308);
  EXPECT_EQ(FlawOfReal("-1e400"), DxfValueFlaw::kOutside);
}

TEST(DxfValues, ReadIntegersThatAreNoPlainOnes) {
  EXPECT_EQ(Short(" 7 "), "7");
  EXPECT_EQ(FlawOfShort(" 7 "), DxfValueFlaw::kNone);
  EXPECT_EQ(Short("3.0"), "3");
  EXPECT_EQ(FlawOfShort("3.0"), DxfValueFlaw::kBad);
  EXPECT_EQ(Short(""), "0");
  EXPECT_EQ(Short("word"), "0");
}

TEST(DxfValues, ClampIntegersToTheirRange) {
  EXPECT_EQ(Short("70000"), "65535");
  EXPECT_EQ(Short("-40000"), "-32768");
  EXPECT_EQ(FlawOfShort("70000"), DxfValueFlaw::kOutside);
  EXPECT_EQ(MendDxfValue(DxfValueKind::kByte, "300").text, "255");
  EXPECT_EQ(MendDxfValue(DxfValueKind::kInteger, "99999999999999999999").flaw,
            DxfValueFlaw::kOutside);
}

TEST(DxfValues, ReadHandlesOfSixteenDigits) {
  EXPECT_EQ(ParseDxfHandle("1F"), 0x1FU);
  EXPECT_EQ(ParseDxfHandle(" 00ab "), 0xABU);
  EXPECT_EQ(ParseDxfHandle("FEDCBA9876543210"), 0xFEDCBA9876543210U);
  EXPECT_EQ(ParseDxfHandle(""), 0U);
  EXPECT_EQ(ParseDxfHandle("XYZ"), std::nullopt);
  EXPECT_EQ(ParseDxfHandle("1FEDCBA9876543210"), std::nullopt);
  EXPECT_EQ(DxfHandleText(0x1AB), "1AB");
}

TEST(DxfValues, LeaveOutWhatIsNoHexadecimalDigitOfBytes) {
  EXPECT_TRUE(IsProperDxfValue(DxfValueKind::kChunk, "00fF"));
  EXPECT_EQ(MendDxfValue(DxfValueKind::kChunk, "0g0x").text, "00");
}

}  // namespace
