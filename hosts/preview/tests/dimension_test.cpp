#include "scene/dimension.hpp"

#include <gtest/gtest.h>

#include "document.hpp"

namespace preview {
namespace {

QString Format(double value, const char* style) {
  return FormatMeasurement(value, Json(style));
}

TEST(FormatMeasurement, HasTheStylesDecimals) {
  EXPECT_EQ(Format(12.345, "{'dimDec':2,'dimLUnit':2}"), "12.35");
  EXPECT_EQ(Format(12.345, "{'dimDec':0,'dimLUnit':2}"), "12");
}

TEST(FormatMeasurement, SuppressesZeros) {
  EXPECT_EQ(Format(0.5, "{'dimDec':3,'dimZin':0}"), "0.500");
  EXPECT_EQ(Format(0.5, "{'dimDec':3,'dimZin':4}"), ".500");
  EXPECT_EQ(Format(0.5, "{'dimDec':3,'dimZin':8}"), "0.5");
  EXPECT_EQ(Format(100, "{'dimDec':3,'dimZin':12}"), "100");
}

TEST(FormatMeasurement, AppliesFactorAndRounding) {
  EXPECT_EQ(Format(10, "{'dimDec':1,'dimLFac':2.54}"), "25.4");
  EXPECT_EQ(Format(10.3, "{'dimDec':2,'dimRnd':0.25}"), "10.25");
}

TEST(FormatMeasurement, PutsPrefixAndSuffixAround) {
  EXPECT_EQ(Format(5, "{'dimDec':0,'dimPost':' mm'}"), "5 mm");
  EXPECT_EQ(Format(5, "{'dimDec':0,'dimPost':'ca. <> mm'}"), "ca. 5 mm");
}

TEST(FormatMeasurement, WritesFeetAndInches) {
  EXPECT_EQ(Format(30.5, "{'dimDec':4,'dimLUnit':4}"), "2'-6 1/2\"");
  EXPECT_EQ(Format(24, "{'dimDec':4,'dimLUnit':4}"), "2'");
  EXPECT_EQ(Format(6, "{'dimDec':4,'dimLUnit':4,'dimZin':1}"), "0'-6\"");
  EXPECT_EQ(Format(30.5, "{'dimDec':2,'dimLUnit':3}"), "2'-6.50\"");
}

TEST(FormatMeasurement, CarriesWhenRoundingFillsAFoot) {
  EXPECT_EQ(Format(23.999, "{'dimDec':2,'dimLUnit':4}"), "2'");
}

TEST(FormatMeasurement, WritesFractions) {
  EXPECT_EQ(Format(2.375, "{'dimDec':4,'dimLUnit':5}"), "2 3/8");
}

TEST(DimensionText, IsTheMeasuredValueWithoutAnOverride) {
  EXPECT_EQ(DimensionText(Json("{'measurement':5,'userText':'','dimDec':1}")), "5.0");
}

TEST(DimensionText, PutsTheValueIntoTheOverride) {
  EXPECT_EQ(DimensionText(Json("{'measurement':5,'userText':'(<>)','dimDec':0}")), "(5)");
  EXPECT_EQ(DimensionText(Json("{'measurement':5,'userText':'wide','dimDec':0}")), "wide");
}

TEST(DimensionText, IsNothingForABlank) {
  EXPECT_EQ(DimensionText(Json("{'measurement':5,'userText':' '}")), "");
}

TEST(DimensionText, DropsFormattingCodes) {
  EXPECT_EQ(DimensionText(Json("{'userText':'{\\\\H0.5x;a}\\\\Pb%%p1'}")),
            QString("a\nb") + QChar(0xB1) + "1");
}

TEST(DimensionText, MeasuresItselfWhenTheDocumentDoesNot) {
  EXPECT_EQ(DimensionText(Json("{'type':'DIMENSION_LINEAR','x1':0,'y1':0,'x2':3,'y2':4,"
                               "'dimRotationRad':0,'measurement':0,'userText':'','dimDec':0}")),
            "3");
  EXPECT_EQ(DimensionText(Json("{'type':'DIMENSION_ALIGNED','x1':0,'y1':0,'x2':3,'y2':4,"
                               "'measurement':0,'userText':'','dimDec':0}")),
            "5");
  EXPECT_EQ(DimensionText(Json("{'type':'DIMENSION_RADIUS','defX':0,'defY':0,'arcX':3,'arcY':4,"
                               "'measurement':0,'userText':'','dimDec':0}")),
            "R5");
}

TEST(DimensionParts, DrawTheLineThroughTheDefinitionPoint) {
  const std::vector<Part> parts =
      DimensionParts(Json("{'type':'DIMENSION_LINEAR','x1':0,'y1':0,'x2':100,'y2':0,'defX':100,"
                          "'defY':20,'dimRotationRad':0,'measurement':100,'userText':' ',"
                          "'textMidX':50,'textMidY':20,'textHeight':4,'arrowSize':3}"),
                     {}, {});
  // Two extension lines from 1 off their origins to 2 beyond, two arrows, the line.
  ASSERT_EQ(parts.size(), 5U);
  EXPECT_EQ(parts[0].path.boundingRect(), QRectF(0, 1, 0, 21));
  EXPECT_EQ(parts[1].path.boundingRect(), QRectF(100, 1, 0, 21));
  EXPECT_EQ(parts[2].path.elementAt(0), QPointF(0, 20));
  EXPECT_EQ(parts[3].path.elementAt(0), QPointF(100, 20));
  EXPECT_EQ(parts[4].path.boundingRect(), QRectF(0, 20, 100, 0));
}

}  // namespace
}  // namespace preview
