#include "scene/text_layout.hpp"

#include <gtest/gtest.h>

#include "document.hpp"

namespace preview {
namespace {

TextSource Source(const QString& html, double height = 10) {
  TextSource source;
  source.html = html;
  source.height = height;
  source.family = "Arial";
  return source;
}

QRectF BoundsOf(const TextLayout& layout) {
  QRectF all;
  for (const Part& part : layout.parts) {
    all |= part.path.boundingRect();
  }
  return all;
}

TEST(LayOutText, MakesCapitalsAsHighAsTheText) {
  const QRectF bounds = BoundsOf(LayOutText(Source("<p>H</p>")));
  EXPECT_NEAR(bounds.height(), 10, 0.2);
  EXPECT_NEAR(bounds.top(), 0, 0.1);
}

TEST(LayOutText, ScalesSizesOfFragmentsFromDrawingUnits) {
  const QRectF bounds =
      BoundsOf(LayOutText(Source("<p><span style=\"font-size:0.7874pt\">H</span></p>")));
  EXPECT_NEAR(bounds.height(), 20, 0.4);
}

TEST(LayOutText, HasNothingForATextWithoutHeight) {
  EXPECT_TRUE(LayOutText(Source("<p>H</p>", 0)).parts.empty());
}

TEST(LayOutText, AdvancesLinesByFiveThirdsOfTheHeight) {
  const TextLayout layout = LayOutText(Source("<p>H</p><p>H</p>"));
  EXPECT_NEAR(layout.height, 10 + 10 * 5.0 / 3, 0.01);
  EXPECT_NEAR(BoundsOf(layout).height(), 10 + 10 * 5.0 / 3, 0.3);
}

TEST(LayOutText, KeepsEmptyParagraphs) {
  EXPECT_NEAR(LayOutText(Source("<p>H</p><p></p><p>H</p>")).height, 10 + 20 * 5.0 / 3, 0.01);
}

TEST(LayOutText, WrapsAtTheFrameWithoutBreakingWords) {
  TextSource source = Source("<p>HHHHHHHHHH HHHHHHHHHH</p>");
  source.width = 20;
  EXPECT_NEAR(LayOutText(source).height, 10 + 10 * 5.0 / 3, 0.01);
}

TEST(LayOutText, TakesColorsOfFragments) {
  const TextLayout layout =
      LayOutText(Source("<p>a<span style=\"color:rgb(255,0,0)\">b</span></p>"));
  ASSERT_EQ(layout.parts.size(), 2U);
  EXPECT_FALSE(layout.parts[0].ink);
  EXPECT_EQ(layout.parts[1].ink->rgba, qRgb(255, 0, 0));
}

TEST(LayOutText, StretchesRuns) {
  TextSource source = Source("<p>HHHH</p>");
  const double normal = BoundsOf(LayOutText(source)).width();
  source.runs = Json("{'runs':[{'start':0,'length':4,'stretch':200}]}")["runs"].toArray();
  EXPECT_NEAR(BoundsOf(LayOutText(source)).width() / normal, 2, 0.1);
}

TEST(LayOutText, LetsTheLaterOfTwoRunsWin) {
  TextSource source = Source("<p>HHHH</p>");
  const double normal = BoundsOf(LayOutText(source)).width();
  source.runs = Json(
                    "{'runs':[{'start':2,'length':2,'stretch':100},"
                    "{'start':0,'length':4,'stretch':200}]}")["runs"]
                    .toArray();
  EXPECT_NEAR(BoundsOf(LayOutText(source)).width() / normal, 1.5, 0.1);
}

TEST(LayOutText, SpacesRunsByTheirTracking) {
  TextSource source = Source("<p>HHHH</p>");
  const double normal = LayOutText(source).width;
  source.runs = Json("{'runs':[{'start':0,'length':4,'tracking':150}]}")["runs"].toArray();
  EXPECT_NEAR(LayOutText(source).width / normal, 1.5, 0.1);
}

TEST(LayOutText, AlignsAndIndentsParagraphs) {
  TextSource source = Source("<p>H</p><p>H</p>");
  source.width = 200;
  source.blocks =
      Json("{'blocks':[{'index':0,'leftMargin':50},{'index':1,'alignment':'r'}]}")["blocks"]
          .toArray();
  const TextLayout layout = LayOutText(source);
  ASSERT_EQ(layout.parts.size(), 2U);
  EXPECT_NEAR(layout.parts[0].path.boundingRect().left(), 51, 1);
  EXPECT_NEAR(layout.parts[1].path.boundingRect().right(), 199, 1);
}

TEST(LayOutText, PutsTabsAtTheirStops) {
  TextSource source = Source("<p>\tH</p>");
  source.blocks = Json("{'blocks':[{'index':0,'tabStops':[80]}]}")["blocks"].toArray();
  EXPECT_NEAR(BoundsOf(LayOutText(source)).left(), 81, 1.5);
}

TEST(LayOutText, DoesNotKern) {
  const double apart = LayOutText(Source("<p>A</p>")).width + LayOutText(Source("<p>V</p>")).width;
  // Each width is rounded up to a hundredth of the height.
  EXPECT_NEAR(LayOutText(Source("<p>AV</p>")).width, apart, 0.25);
}

TEST(LayOutText, PutsFractionsOverEachOther) {
  const char* fraction =
      "<p><span style=\"vertical-align:super\">1</span>/"
      "<span style=\"vertical-align:sub\">2</span></p>";
  TextSource source = Source(fraction);
  const QRectF bottom = BoundsOf(LayOutText(source));
  EXPECT_NEAR(bottom.top(), 0, 0.3);
  // Two texts and the gaps between them.
  EXPECT_NEAR(bottom.height(), 24, 0.5);
  EXPECT_LT(bottom.width(), 10);
  source.stackAlignment = 1;
  EXPECT_NEAR(BoundsOf(LayOutText(source)).center().y(), 5, 0.3);
  source.stackAlignment = 2;
  EXPECT_NEAR(BoundsOf(LayOutText(source)).bottom(), 10, 0.3);
}

TEST(LayOutText, PutsTolerancesOverEachOtherWithoutALine) {
  const char* both =
      "<p>H<span style=\"vertical-align:super\">HH</span>"
      "<span style=\"vertical-align:sub\">H</span></p>";
  const TextLayout layout = LayOutText(Source(both));
  ASSERT_EQ(layout.parts.size(), 2U);
  const double letter = layout.parts[0].path.boundingRect().right();
  // Behind the first letter, and nothing in the middle between both.
  const QRectF bounds = layout.parts[1].path.boundingRect();
  EXPECT_GT(bounds.left(), letter);
  EXPECT_NEAR(bounds.height(), 24, 0.5);
  const QRectF middle(bounds.left(), bounds.center().y() - 0.5, bounds.width(), 1);
  EXPECT_FALSE(layout.parts[1].path.intersects(middle));
}

TEST(LayOutText, KeepsARaisedTextWithoutALoweredOne) {
  const TextLayout layout =
      LayOutText(Source("<p>H<span style=\"vertical-align:super\">H</span></p>"));
  ASSERT_EQ(layout.parts.size(), 2U);
  EXPECT_NEAR(layout.parts[1].path.boundingRect().top(), 14, 0.3);
}

TEST(LayOutText, DrawsByTheWidthOfTheStyle) {
  TextSource source = Source("<p>HHHH HHHH</p>");
  const double normal = BoundsOf(LayOutText(source)).width();
  source.widthFactor = 0.5;
  EXPECT_NEAR(BoundsOf(LayOutText(source)).width() / normal, 0.5, 0.02);
  // So narrow it finds room in a frame that was too small.
  source.width = normal * 0.6;
  EXPECT_NEAR(LayOutText(source).height, 10, 0.1);
  source.widthFactor = 1;
  EXPECT_GT(LayOutText(source).height, 20);
}

TEST(LayOutText, LetsAWidthOfItsOwnTakeThePlaceOfTheStyles) {
  TextSource source = Source("<p>HHHH</p>");
  const double normal = BoundsOf(LayOutText(source)).width();
  source.widthFactor = 0.5;
  source.runs = Json("{'runs':[{'start':0,'length':4,'stretch':100}]}")["runs"].toArray();
  EXPECT_NEAR(BoundsOf(LayOutText(source)).width() / normal, 1, 0.05);
}

TEST(LayOutText, BreaksColumnsWhereItsCodesSay) {
  TextSource source = Source("<p>NHNH</p>");
  source.width = 50;
  source.columnGutter = 10;
  source.columnBreaks = {1};
  const TextLayout layout = LayOutText(source);
  ASSERT_EQ(layout.parts.size(), 2U);
  EXPECT_NEAR(layout.parts[1].path.boundingRect().left(), 61, 1);
  EXPECT_NEAR(layout.parts[1].path.boundingRect().top(), 0, 0.1);
}

TEST(LayOutText, DropsAColumnBreakAtTheEnd) {
  TextSource source = Source("<p>HN</p>");
  source.columnBreaks = {0};
  EXPECT_NEAR(BoundsOf(LayOutText(source)).width(),
              BoundsOf(LayOutText(Source("<p>H</p>"))).width(), 0.01);
}

TEST(LayOutText, ShowsBarsInsteadOfLetters) {
  TextSource source = Source("<p><b>HH</b></p><p>HHHHH</p>");
  source.asBars = true;
  const TextLayout layout = LayOutText(source);
  ASSERT_EQ(layout.parts.size(), 1U);
  EXPECT_EQ(layout.parts[0].fill, Fill::kPattern);
  EXPECT_NEAR(layout.height, 10 + 10 * 5.0 / 3, 1e-9);
  EXPECT_EQ(layout.parts[0].path.boundingRect(), QRectF(0, -50.0 / 3, 40, 10 + 50.0 / 3));
}

TEST(ColumnBreaksOf, CountsTheLettersThatAreSeen) {
  EXPECT_TRUE(ColumnBreaksOf("NN").empty());
  EXPECT_EQ(ColumnBreaksOf("aNb\\Nc"), std::vector<int>{1});
  // Not the names of fonts, but the letters of a stack.
  EXPECT_EQ(ColumnBreaksOf("\\fNNN|b0;x\\Ny"), std::vector<int>{0});
  EXPECT_EQ(ColumnBreaksOf("\\SN/N;\\N"), std::vector<int>{2});
  EXPECT_EQ(ColumnBreaksOf("\\\\N\\N"), std::vector<int>{1});
  EXPECT_TRUE(ColumnBreaksOf("\\fNever ends").empty());
  EXPECT_TRUE(ColumnBreaksOf("\\").empty());
}

TEST(StackAlignmentOf, TakesTheLastCode) {
  EXPECT_EQ(StackAlignmentOf(""), 0);
  EXPECT_EQ(StackAlignmentOf("\\A1;x"), 1);
  EXPECT_EQ(StackAlignmentOf("\\A1;x\\A2;y"), 2);
  EXPECT_EQ(StackAlignmentOf("\\A9;x"), 0);
  EXPECT_EQ(StackAlignmentOf("\\A"), 0);
}

TextLayout Box() {
  TextLayout layout;
  layout.width = 40;
  layout.height = 30;
  layout.ascent = 10;
  layout.descent = 3;
  return layout;
}

TEST(PlaceMultiLine, PutsTheAttachmentPointAtThePosition) {
  QJsonObject record = Json("{'x':100,'y':50,'rotationRad':0,'attachment':1}");
  EXPECT_EQ(PlaceMultiLine(Box(), record).map(QPointF(0, 10)), QPointF(100, 50));
  record["attachment"] = 5;
  EXPECT_EQ(PlaceMultiLine(Box(), record).map(QPointF(20, -5)), QPointF(100, 50));
  record["attachment"] = 9;
  EXPECT_EQ(PlaceMultiLine(Box(), record).map(QPointF(40, -20)), QPointF(100, 50));
}

TEST(PlaceMultiLine, RotatesAroundThePosition) {
  const QJsonObject record =
      Json("{'x':100,'y':50,'rotationRad':1.5707963267948966,'attachment':7}");
  const QPointF end = PlaceMultiLine(Box(), record).map(QPointF(40, -20));
  EXPECT_NEAR(end.x(), 100, 1e-9);
  EXPECT_NEAR(end.y(), 90, 1e-9);
}

TEST(PlaceSingleLine, StandsOnItsInsertionPoint) {
  const QJsonObject record = Json("{'x':1,'y':2,'rotationRad':0}");
  EXPECT_EQ(PlaceSingleLine(Box(), record).map(QPointF(0, 0)), QPointF(1, 2));
}

TEST(PlaceSingleLine, TakesTheAlignmentPoint) {
  QJsonObject record = Json("{'x':1,'y':2,'ax':100,'ay':50,'rotationRad':0,'halign':1,'valign':3}");
  EXPECT_EQ(PlaceSingleLine(Box(), record).map(QPointF(20, 10)), QPointF(100, 50));
  record["halign"] = 2;
  record["valign"] = 1;
  EXPECT_EQ(PlaceSingleLine(Box(), record).map(QPointF(40, -3)), QPointF(100, 50));
  record["halign"] = 4;
  record["valign"] = 0;
  EXPECT_EQ(PlaceSingleLine(Box(), record).map(QPointF(20, 5)), QPointF(100, 50));
}

TEST(PlaceSingleLine, FitsBetweenTwoPoints) {
  QJsonObject record = Json("{'x':0,'y':0,'ax':80,'ay':0,'rotationRad':1,'halign':5,'valign':0}");
  EXPECT_EQ(PlaceSingleLine(Box(), record).map(QPointF(40, 10)), QPointF(80, 10));
  record["halign"] = 3;
  EXPECT_EQ(PlaceSingleLine(Box(), record).map(QPointF(40, 10)), QPointF(80, 20));
}

}  // namespace
}  // namespace preview
