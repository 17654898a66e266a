#include "reading/dxf/dxf_cleaning.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

// A record before and one behind, so that pairs are known as such.
std::string Clean(const std::string& middle) {
  std::string text = CleanDxf("0\nLINE\n" + middle + "0\nEOF\n").text;
  EXPECT_TRUE(text.starts_with("0\nLINE\n")) << text;
  EXPECT_TRUE(text.ends_with("0\nEOF\n")) << text;
  text.erase(0, 7);
  text.resize(text.size() - 6);
  return text;
}

DxfRepairs RepairsOf(const std::string& text) {
  return CleanDxf(text).repairs;
}

TEST(DxfCleaning, LeavesProperPairsAlone) {
  EXPECT_EQ(Clean("8\nA\n10\n1.5\n20\n2.5\n"), "8\nA\n10\n1.5\n20\n2.5\n");
}

TEST(DxfCleaning, TakesAnyLineEnds) {
  EXPECT_EQ(CleanDxf("0\rLINE\r8\rA\r0\rEOF\r").text, "0\nLINE\n8\nA\n0\nEOF\n");
  EXPECT_EQ(CleanDxf("0\r\r\nLINE\r\r\n8\r\r\n\r\r\n0\r\r\nEOF\r\r\n").text,
            "0\nLINE\n8\n\n0\nEOF\n");
  EXPECT_EQ(RepairsOf("0\rLINE\r8\rA\r0\rEOF\r").CountOf(DxfRepair::kLineEnds), 6U);
}

TEST(DxfCleaning, TakesLineEndsInTheOtherOrder) {
  EXPECT_EQ(CleanDxf("0\n\rTEXT\n\r1\n\r\n\r8\n\rA\n\r0\n\rEOF\n\r").text,
            "0\nTEXT\n1\n\n8\nA\n0\nEOF\n");
  EXPECT_EQ(CleanDxf("0\n\rEOF\n").text, "0\nEOF\n");
  EXPECT_EQ(RepairsOf("0\n\rLINE\n\r8\n\rA\n\r0\n\rEOF\n\r").CountOf(DxfRepair::kLineEnds), 6U);
}

TEST(DxfCleaning, LeavesOutComments) {
  EXPECT_EQ(Clean("8\nA\n999\nwords\n10\n1.5\n"), "8\nA\n10\n1.5\n");
}

TEST(DxfCleaning, LeavesOutStrayAndBlankLines) {
  EXPECT_EQ(Clean("10\n1.5\n\n20\n2.5\n30\n0.0\n"), "10\n1.5\n20\n2.5\n30\n0.0\n");
  EXPECT_EQ(Clean("10\n1.5\n20\n2.5\nstray\n30\n0.0\n"), "10\n1.5\n20\n2.5\n30\n0.0\n");
}

TEST(DxfCleaning, JoinsABrokenText) {
  EXPECT_EQ(Clean("1\nfirst\nsecond\n10\n1.5\n"), "1\nfirst second\n10\n1.5\n");
  EXPECT_EQ(CleanDxf("0\nMTEXT\n1\na\nb\n10\n1.5\n0\nEOF\n").text,
            "0\nMTEXT\n1\na\\Pb\n10\n1.5\n0\nEOF\n");
}

TEST(DxfCleaning, FindsTheCodeBehindALostValue) {
  EXPECT_EQ(Clean("8\nA\n10\n20\n2.5\n30\n0.0\n"), "8\nA\n20\n2.5\n30\n0.0\n");
}

TEST(DxfCleaning, FindsTheValueBehindADoubledCode) {
  EXPECT_EQ(Clean("8\nA\n10\n10\n1.5\n20\n2.5\n"), "8\nA\n10\n1.5\n20\n2.5\n");
}

TEST(DxfCleaning, LeavesOutGroupCodesThatDoNotExist) {
  EXPECT_EQ(Clean("8\nA\n-666\nx\n1080\ny\n10\n1.5\n"), "8\nA\n10\n1.5\n");
}

TEST(DxfCleaning, PutsValuesRight) {
  EXPECT_EQ(Clean("10\n1,5\n20\n\n62\n3.0\n70\n\n"), "10\n1.5\n20\n0.0\n62\n3\n70\n0\n");
}

TEST(DxfCleaning, PutsNamesRight) {
  EXPECT_EQ(CleanDxf("0\nsection \n2\nEntities\n0\nline\n8\na\n0\nendsec\n0\neof\n").text,
            "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\na\n0\nENDSEC\n0\nEOF\n");
}

TEST(DxfCleaning, GivesOddHandlesTheSameNewOneEverywhere) {
  EXPECT_EQ(Clean("5\nXY\n330\nXY\n340\nZ\n"), "5\n7F000000\n330\n7F000000\n340\n7F000001\n");
}

TEST(DxfCleaning, CutsLongTextsAndLeavesOutNulBytes) {
  constexpr std::size_t kMost = 1000000;
  const std::string longest(kMost, 'x');
  EXPECT_EQ(Clean("1\n" + longest + "\n"), "1\n" + longest + "\n");
  const CleanedDxf cut = CleanDxf("1\n" + longest + "y\n");
  EXPECT_EQ(cut.text, "1\n" + longest + "\n");
  EXPECT_EQ(cut.repairs.CountOf(DxfRepair::kLongTexts), 1U);
  EXPECT_EQ(Clean(std::string("1\na\0b\n", 6)), "1\nab\n");
}

TEST(DxfCleaning, EndsAtTheEndOfTheFile) {
  const CleanedDxf cleaned = CleanDxf("0\nLINE\n0\nEOF\njunk\n\x1A\n");
  EXPECT_EQ(cleaned.text, "0\nLINE\n0\nEOF\n");
  EXPECT_EQ(cleaned.repairs.CountOf(DxfRepair::kTrailingLines), 1U);
}

TEST(DxfCleaning, MakesNothingOfWhatIsNoDxf) {
  EXPECT_EQ(CleanDxf("some words\nand more\n").text, "");
  EXPECT_EQ(CleanDxf("").text, "");
}

TEST(DxfCleaning, KnowsTheLinesOfTheFile) {
  const CleanedDxf cleaned = CleanDxf("0\nLINE\n\n\n8\nA\n10\n1,5\n0\nEOF\n");
  ASSERT_EQ(cleaned.text, "0\nLINE\n8\nA\n10\n1.5\n0\nEOF\n");
  EXPECT_EQ(cleaned.lines.LineOf(1), 1U);
  EXPECT_EQ(cleaned.lines.LineOf(3), 5U);
  EXPECT_EQ(cleaned.lines.LineOf(6), 8U);
  EXPECT_EQ(
      cleaned.repairs.Lines(),
      (std::vector<std::string>{"DXF repaired: 2 stray lines left out (first in line 3)",
                                "DXF repaired: 1 decimal in another notation (first in line 8)"}));
}

}  // namespace
