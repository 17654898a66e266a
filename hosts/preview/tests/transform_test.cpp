// Where things come to lie: references, viewports, paper.
#include <gtest/gtest.h>

#include <numbers>

#include "document.hpp"
#include "scene/viewport_mapping.hpp"

namespace preview {
namespace {

void ExpectNear(QPointF a, QPointF b) {
  EXPECT_NEAR(a.x(), b.x(), 1e-9);
  EXPECT_NEAR(a.y(), b.y(), 1e-9);
}

void ExpectNear(const QRectF& a, const QRectF& b) {
  ExpectNear(a.topLeft(), b.topLeft());
  ExpectNear(a.bottomRight(), b.bottomRight());
}

constexpr char kBlock[] =
    "{'name':'B','baseX':1,'baseY':1,'entities':["
    "{'type':'LINE','layer':'0','startX':1,'startY':1,'endX':3,'endY':1,'color':'L','lw':'L'}]}";

TEST(References, PutTheBasePointAtTheInsertionPoint) {
  const Scene scene = SceneOf(
      "{'type':'INSERT','blockName':'B','x':10,'y':20,'rotationRad':0,'scaleX':1,'scaleY':1}",
      kBlock);
  ExpectNear(scene.sheets[0].items[0].bounds, {10, 20, 2, 0});
}

TEST(References, ScaleBeforeTheyRotate) {
  const Scene scene = SceneOf(
      "{'type':'INSERT','blockName':'B','x':10,'y':20,'rotationRad':1.5707963267948966,"
      "'scaleX':3,'scaleY':5}",
      kBlock);
  ExpectNear(scene.sheets[0].items[0].bounds, {10, 20, 0, 6});
}

TEST(References, MirrorWithANegativeScale) {
  const Scene scene = SceneOf(
      "{'type':'INSERT','blockName':'B','x':10,'y':20,'rotationRad':0,'scaleX':-1,'scaleY':1}",
      kBlock);
  ExpectNear(scene.sheets[0].items[0].bounds, {8, 20, 2, 0});
}

TEST(References, CombineWhenNested) {
  const QByteArray assets =
      QByteArray(kBlock) +
      ",{'name':'C','entities':[{'type':'INSERT','blockName':'B','x':5,'y':0,'rotationRad':0,"
      "'scaleX':2,'scaleY':2}]}";
  const Scene scene = SceneOf(
      "{'type':'INSERT','blockName':'C','x':100,'y':0,'rotationRad':1.5707963267948966,"
      "'scaleX':10,'scaleY':10}",
      assets);
  ExpectNear(scene.sheets[0].items[0].bounds, {100, 50, 0, 40});
}

TEST(References, AreWhatTheirItemsWereMadeFrom) {
  const QByteArray assets =
      QByteArray(kBlock) + ",{'name':'C','entities':[{'type':'INSERT','blockName':'B'}]}";
  const Scene scene = SceneOf("{'type':'INSERT','blockName':'C'},{'type':'POINT'}", assets);
  ASSERT_EQ(scene.sheets[0].items.size(), 2U);
  const Item& line = scene.sheets[0].items[0];
  EXPECT_EQ(scene.records[static_cast<std::size_t>(line.record)]["type"], "LINE");
  const BlockUse& inner = scene.uses[static_cast<std::size_t>(line.use)];
  EXPECT_EQ(inner.block, "B");
  ASSERT_GE(inner.parent, 0);
  const BlockUse& outer = scene.uses[static_cast<std::size_t>(inner.parent)];
  EXPECT_EQ(outer.block, "C");
  EXPECT_EQ(scene.records[static_cast<std::size_t>(outer.record)]["blockName"], "C");
  EXPECT_EQ(outer.parent, -1);
  const Item& point = scene.sheets[0].items[1];
  EXPECT_EQ(scene.records[static_cast<std::size_t>(point.record)]["type"], "POINT");
  EXPECT_EQ(point.use, -1);
}

TEST(References, EndWhereABlockHoldsItself) {
  const Scene scene = SceneOf(
      "{'type':'INSERT','blockName':'B','x':0,'y':0}",
      "{'name':'B','entities':[{'type':'POINT','x':0,'y':0},{'type':'INSERT','blockName':'B'}]}");
  EXPECT_EQ(scene.sheets[0].items.size(), 1U);
  EXPECT_TRUE(scene.notes.last().contains("hold each other"));
}

TEST(References, StopAtTheLimitWithANote) {
  const Scene scene =
      BuildScene(DrawingOf("{'type':'INSERT','blockName':'A'}",
                           "{'name':'A','entities':[{'type':'INSERT','blockName':'B'},"
                           "{'type':'INSERT','blockName':'B'}]},"
                           "{'name':'B','entities':[{'type':'POINT'},{'type':'POINT'}]}"),
                 QDir(), {.items = 3, .depth = 16});
  EXPECT_EQ(scene.sheets[0].items.size(), 3U);
  EXPECT_TRUE(scene.notes.last().contains("too large"));
}

QJsonObject Viewport(double twist = 0) {
  QJsonObject viewport = Json(
      "{'cx':100,'cy':50,'width':40,'height':20,'viewCtrX':7,'viewCtrY':3,'viewSize':200,"
      "'targetX':0,'targetY':0,'targetZ':0,'dirX':0,'dirY':0,'dirZ':1,'twist':0,'status':0}");
  viewport["twist"] = twist;
  return viewport;
}

TEST(ModelToSheet, PutsTheViewsCentreIntoTheMiddleOfTheFrame) {
  ExpectNear(ModelToSheet(Viewport()).map(QPointF(7, 3)), {100, 50});
}

TEST(ModelToSheet, ScalesTheViewsHeightToTheFrames) {
  ExpectNear(ModelToSheet(Viewport()).map(QPointF(7, 103)), {100, 60});
  ExpectNear(ModelToSheet(Viewport()).map(QPointF(107, 3)), {110, 50});
}

TEST(ModelToSheet, MeasuresFromTheTarget) {
  QJsonObject viewport = Viewport();
  viewport["targetX"] = 1000;
  viewport["targetY"] = -500;
  ExpectNear(ModelToSheet(viewport).map(QPointF(1007, -497)), {100, 50});
}

TEST(ModelToSheet, TurnsTheDrawingByTheTwist) {
  // The point (3, -7), turned a quarter counter-clockwise, is (7, 3).
  const QTransform map = ModelToSheet(Viewport(std::numbers::pi / 2));
  ExpectNear(map.map(QPointF(3, -7)), {100, 50});
  // What lay to the right lies above.
  ExpectNear(map.map(QPointF(103, -7)), {100, 60});
}

TEST(ModelToSheet, MirrorsAViewFromBelow) {
  QJsonObject viewport = Viewport();
  viewport["dirZ"] = -1;
  // Seen from below with Y up, X points to the left.
  ExpectNear(ModelToSheet(viewport).map(QPointF(-7, 3)), {100, 50});
  ExpectNear(ModelToSheet(viewport).map(QPointF(-107, 3)), {110, 50});
}

TEST(ModelToSheet, ForeshortensAnObliqueView) {
  QJsonObject viewport = Viewport();
  viewport["viewCtrX"] = 0;
  viewport["viewCtrY"] = 0;
  viewport["dirY"] = -1;
  viewport["dirZ"] = 1;
  // From the front and above at 45 degrees: widths stay, depths shrink.
  ExpectNear(ModelToSheet(viewport).map(QPointF(10, 0)), {101, 50});
  ExpectNear(ModelToSheet(viewport).map(QPointF(0, 10)), {100, 50 + std::sqrt(0.5)});
}

TEST(ModelToSheet, ShowsNothingOfAViewWithoutSize) {
  QJsonObject viewport = Viewport();
  viewport["viewSize"] = 0;
  EXPECT_FALSE(IsOn(viewport));
  EXPECT_TRUE(IsOn(Viewport()));
}

TEST(Viewports, AreOffWithTheirStatusBit) {
  QJsonObject viewport = Viewport();
  viewport["status"] = 0x20000 + 32;
  EXPECT_FALSE(IsOn(viewport));
}

TEST(Viewports, FreezeLayersAndWhatStandsInReferencesOnThem) {
  const Scene scene = SceneOf("", "", kLayers,
                              "{'name':'S','entities':[{'type':'VIEWPORT','layer':'0','cx':1,"
                              "'cy':2,'width':4,'height':2,'viewCtrX':50,'viewSize':1,'dirZ':1,"
                              "'frozenLayers':['Red','unknown'],'color':'L','lw':'L'}]}");
  ASSERT_EQ(scene.sheets[1].viewports.size(), 1U);
  EXPECT_EQ(scene.sheets[1].viewports[0].frozen, (std::vector<bool>{false, true, false}));
  ExpectNear(scene.sheets[1].viewports[0].clip.boundingRect(), {-1, 1, 4, 2});
}

TEST(Viewports, AreClippedByTheirOutline) {
  const Scene scene =
      SceneOf("", "", kLayers,
              "{'name':'S','entities':[{'type':'VIEWPORT','layer':'0','cx':1,'cy':2,'width':4,"
              "'height':2,'viewCtrX':50,'viewSize':1,'dirZ':1,'frozenLayers':[],"
              "'clip':{'type':'CIRCLE','cx':1,'cy':2,'radius':0.5},'color':'L','lw':'L'}]}");
  EXPECT_TRUE(scene.sheets[1].viewports[0].clip.contains(QPointF(1.4, 2)));
  EXPECT_FALSE(scene.sheets[1].viewports[0].clip.contains(QPointF(1.4, 2.4)));
}

TEST(Viewports, OfTheSheetItselfShowNoModelSpace) {
  const Scene scene =
      SceneOf("", "", kLayers,
              "{'name':'S','entities':[{'type':'VIEWPORT','layer':'0','cx':5,'cy':4,'width':12,"
              "'height':9,'viewCtrX':5,'viewCtrY':4,'viewSize':9,'dirZ':1,'frozenLayers':[]}]}");
  EXPECT_TRUE(scene.sheets[1].viewports.empty());
}

PageSetup A4() {
  return {.paper = {210, 297}, .left = 7.5, .bottom = 20, .right = 7, .top = 19, .plotOrigin = {}};
}

TEST(PlacePaper, PutsThePrintableAreasCornerAtTheOrigin) {
  const PaperPlace place = PlacePaper(A4());
  ExpectNear(place.paper, {-7.5, -20, 210, 297});
  ExpectNear(place.printable, {0, 0, 195.5, 258});
}

TEST(PlacePaper, TurnsThePaper) {
  PageSetup page = A4();
  page.rotation = 1;
  ExpectNear(PlacePaper(page).paper, {-20, -7, 297, 210});
  page.rotation = 2;
  ExpectNear(PlacePaper(page).paper, {-7, -19, 210, 297});
  page.rotation = 3;
  ExpectNear(PlacePaper(page).paper, {-19, -7.5, 297, 210});
}

TEST(PlacePaper, MeasuresSheetsInInchesFromMillimetres) {
  PageSetup page = A4();
  page.unit = 0;
  ExpectNear(PlacePaper(page).paper, {-7.5 / 25.4, -20 / 25.4, 210 / 25.4, 297 / 25.4});
}

TEST(PlacePaper, FollowsThePlotsScaleAndOrigin) {
  PageSetup page = A4();
  page.scaleNumerator = 1;
  page.scaleDenominator = 50;
  page.plotOrigin = {10, 5};
  ExpectNear(PlacePaper(page).paper, {-17.5 * 50, -25 * 50, 210 * 50, 297 * 50});
  EXPECT_NEAR(PlacePaper(page).millimetresPerUnit, 0.02, 1e-12);
}

}  // namespace
}  // namespace preview
