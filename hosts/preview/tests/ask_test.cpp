// Questions about scenes: what lies at a point, where to snap to, how long it is, where a
// text stands, which blocks there are.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "ask/blocks.hpp"
#include "ask/box_tree.hpp"
#include "ask/find.hpp"
#include "ask/measure.hpp"
#include "ask/record_text.hpp"
#include "ask/scene_index.hpp"
#include "ask/segments.hpp"
#include "document.hpp"

namespace preview {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::size_t> Touching(const BoxTree& tree, const QRectF& area) {
  std::vector<std::size_t> found;
  tree.Visit(area, [&](std::size_t index) { found.push_back(index); });
  return found;
}

TEST(BoxTree, FindsWhatALoopOverAllBoxesFinds) {
  std::vector<QRectF> boxes;
  boxes.reserve(2000);
  for (int i = 0; i < 2000; ++i) {
    boxes.emplace_back(i * 37 % 101, i * 53 % 97, i % 7, i % 11);
  }
  const BoxTree tree(boxes);
  for (const QRectF& area : {QRectF(10, 10, 5, 5), QRectF(0, 0, 200, 200), QRectF(50, 50, 0, 0)}) {
    std::vector<std::size_t> expected;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      if (Touches(boxes[i], area)) {
        expected.push_back(i);
      }
    }
    EXPECT_THAT(Touching(tree, area), testing::UnorderedElementsAreArray(expected));
  }
}

TEST(BoxTree, LeavesOutBoxesThatAreNotFinite) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  const BoxTree tree({QRectF(nan, 0, 1, 1), QRectF(0, 0, inf, 1), QRectF(0, 0, 1, 1)});
  EXPECT_THAT(Touching(tree, QRectF(-1e9, -1e9, 2e9, 2e9)), ElementsAre(2));
  EXPECT_THAT(Touching(tree, QRectF(nan, nan, 1, 1)), IsEmpty());
}

TEST(BoxTree, OfNothingFindsNothing) {
  EXPECT_THAT(Touching(BoxTree(), QRectF(0, 0, 1, 1)), IsEmpty());
}

TEST(Segments, CurvesAreAsLongAsTheirCircle) {
  QPainterPath circle;
  circle.addEllipse(QPointF(0, 0), 10, 10);
  double length = 0;
  VisitSegments(circle, {}, 1e-6, false,
                [&](QPointF a, QPointF b) { length += std::hypot(b.x() - a.x(), b.y() - a.y()); });
  EXPECT_NEAR(length, 20 * std::numbers::pi, 0.02);
}

TEST(Segments, ProbeSaysHowFarAndWhetherInside) {
  QPainterPath square;
  square.addRect(0, 0, 10, 10);
  const PathProbe inside = ProbePath(square, {}, {4, 5}, 0.1);
  EXPECT_TRUE(inside.isInside);
  EXPECT_DOUBLE_EQ(inside.distance, 4);
  const PathProbe outside = ProbePath(square, {}, {13, 14}, 0.1);
  EXPECT_FALSE(outside.isInside);
  EXPECT_DOUBLE_EQ(outside.distance, 5);
}

TEST(Segments, AHoleIsOutside) {
  QPainterPath ring;
  ring.addRect(0, 0, 10, 10);
  ring.addRect(4, 4, 2, 2);
  EXPECT_FALSE(ProbePath(ring, {}, {5, 5}, 0.1).isInside);
  EXPECT_TRUE(ProbePath(ring, {}, {2, 2}, 0.1).isInside);
}

TEST(Segments, AFigureWithoutEndIsClosedToBeFilledOnly) {
  QPainterPath open;
  open.moveTo(0, 0);
  open.lineTo(10, 0);
  open.lineTo(10, 10);
  const PathProbe probe = ProbePath(open, {}, {6, 5}, 0.1);
  EXPECT_TRUE(probe.isInside);
  EXPECT_DOUBLE_EQ(probe.distance, 4);
}

class Ask : public testing::Test {
 protected:
  void Build(const char* entities, const char* assets = "", const char* layouts = "") {
    scene_ = std::make_shared<Scene>(SceneOf(entities, assets, kLayers, layouts));
    index_ = std::make_unique<SceneIndex>(scene_);
  }

  // By the layer table, as the window's first picture has it.
  Shows Visible() const {
    return [this](const Item& item, const std::vector<bool>* frozen) {
      const auto layer = static_cast<std::size_t>(item.layer);
      return item.layer < 0 ||
             (scene_->layers[layer].visible && (frozen == nullptr || !(*frozen)[layer]));
    };
  }

  std::vector<int> RecordsAt(double x, double y, double reach = 0.5, std::size_t sheet = 0) {
    std::vector<int> records;
    for (const Hit& hit : index_->HitsAt({sheet, {x, y}, reach}, Visible())) {
      records.push_back(ItemOf(*scene_, hit).record);
    }
    return records;
  }

  Snap SnapAt(double x, double y, double reach = 1) {
    return index_->SnapAt({0, {x, y}, reach}, Visible());
  }

  std::vector<QString> Find(const QString& text, Qt::CaseSensitivity cases = Qt::CaseInsensitive) {
    std::vector<QString> lines;
    for (const Found& found : FindText(*index_, text, cases).found) {
      lines.push_back(scene_->sheets[found.hit.sheet].name + ":" + found.line);
    }
    return lines;
  }

  std::shared_ptr<const Scene> scene_;
  std::unique_ptr<SceneIndex> index_;
};

constexpr char kCross[] =
    "{'type':'LINE','layer':'0','startX':0,'startY':0,'endX':10,'endY':10},"
    "{'type':'LINE','layer':'Red','startX':0,'startY':10,'endX':10,'endY':0},"
    "{'type':'LINE','layer':'Off','startX':0,'startY':5,'endX':10,'endY':5}";

TEST_F(Ask, ClicksMissWhatAClipTakesAway) {
  Build(
      "{'type':'INSERT','layer':'0','blockName':'B','x':0,'y':0,'scaleX':1,'scaleY':1,"
      "'clip':{'on':true,'inverted':false,'block':[[2,-1],[5,-1],[5,1],[2,1]]}}",
      "{'name':'B','entities':[{'type':'LINE','layer':'0','startX':0,'startY':0,'endX':10,"
      "'endY':0,'color':'L','lw':'L'}]}");
  EXPECT_EQ(RecordsAt(3, 0).size(), 1U);
  EXPECT_TRUE(RecordsAt(8, 0).empty());
}

TEST_F(Ask, TheLastPaintedLineIsHitFirst) {
  Build(kCross);
  EXPECT_THAT(RecordsAt(5, 5), ElementsAre(1, 0));
  EXPECT_THAT(RecordsAt(2, 2), ElementsAre(0));
}

TEST_F(Ask, LayersThatAreOffAreNotHit) {
  Build(kCross);
  EXPECT_THAT(RecordsAt(8, 5), IsEmpty());
}

TEST_F(Ask, NothingIsHitBesideALine) {
  Build(kCross);
  EXPECT_THAT(RecordsAt(2, 3), IsEmpty());
  EXPECT_THAT(RecordsAt(2, 3, 0.8), ElementsAre(0));
}

TEST_F(Ask, ACircleIsHitAtItsEdgeAndAnAreaWithin) {
  Build(
      "{'type':'CIRCLE','layer':'0','cx':0,'cy':0,'radius':10},"
      "{'type':'SOLID','layer':'0','pts':[[20,0],[30,0],[30,10],[20,10]]}");
  EXPECT_THAT(RecordsAt(0, 0), IsEmpty());
  EXPECT_THAT(RecordsAt(10, 0), ElementsAre(0));
  EXPECT_THAT(RecordsAt(25, 5), ElementsAre(1));
}

TEST_F(Ask, ATextIsHitBetweenItsLetters) {
  Build("{'type':'TEXT','layer':'0','html':'<p>I I</p>','x':0,'y':0,'height':10,'rotationRad':0}");
  const QRectF box = scene_->sheets[0].items.at(0).bounds.normalized();
  EXPECT_THAT(RecordsAt(box.center().x(), box.center().y(), 0.01), ElementsAre(0));
}

constexpr char kBlock[] =
    "{'name':'Door','baseX':0,'baseY':0,'entities':["
    "{'type':'LINE','layer':'0','startX':0,'startY':0,'endX':4,'endY':0}]},"
    "{'name':'Wall','baseX':0,'baseY':0,'entities':["
    "{'type':'INSERT','layer':'0','blockName':'Door','x':0,'y':5,'scaleX':1,'scaleY':1}]}";
constexpr char kInserts[] =
    "{'type':'INSERT','layer':'0','blockName':'Wall','x':100,'y':0,'scaleX':2,'scaleY':2},"
    "{'type':'INSERT','layer':'0','blockName':'Door','x':0,'y':0,'scaleX':1,'scaleY':1}";

TEST_F(Ask, WhatStandsInBlocksIsHitWhereItIsSeen) {
  Build(kInserts, kBlock);
  const std::vector<Hit> hits = index_->HitsAt({0, {104, 10}, 0.1}, Visible());
  ASSERT_EQ(hits.size(), 1U);
  const Item& item = ItemOf(*scene_, hits[0]);
  EXPECT_EQ(scene_->records[static_cast<std::size_t>(item.record)]["type"], "LINE");
  EXPECT_EQ(BlockPathOf(*scene_, item), QStringList({"Wall", "Door"}));
}

TEST_F(Ask, BlocksAreListedWithAllTheirPlaces) {
  Build(kInserts, kBlock);
  const std::vector<BlockEntry> blocks = ListBlocks(*scene_);
  ASSERT_EQ(blocks.size(), 2U);
  EXPECT_EQ(blocks[0].name, "Door");
  ASSERT_EQ(blocks[0].places.size(), 2U);
  EXPECT_EQ(blocks[0].places[0].bounds, QRectF(100, 10, 8, 0));
  EXPECT_EQ(blocks[0].places[1].bounds, QRectF(0, 0, 4, 0));
  EXPECT_EQ(blocks[1].name, "Wall");
  EXPECT_EQ(blocks[1].places.size(), 1U);
  const std::vector<Sheet> samples = SamplesOf(*scene_, blocks);
  EXPECT_EQ(samples[0].items.size(), 1U);
  EXPECT_EQ(samples[1].items.size(), 1U);
}

constexpr char kSheet[] =
    "{'name':'A','entities':[{'type':'VIEWPORT','layer':'0','cx':50,'cy':50,'width':40,"
    "'height':40,'viewSize':20,'viewCtrX':5,'viewCtrY':5,'status':1,'frozenLayers':['Red']}]}";

TEST_F(Ask, ModelSpaceIsHitThroughAViewport) {
  Build(kCross, "", kSheet);
  ASSERT_EQ(scene_->sheets[1].viewports.size(), 1U);
  const std::vector<Hit> hits = index_->HitsAt({1, {54, 54}, 0.5}, Visible());
  ASSERT_EQ(hits.size(), 1U);
  EXPECT_EQ(hits[0], (Hit{0, 0, 0}));
  const QRectF box = OutlineOf(*scene_, 1, hits[0]).boundingRect();
  EXPECT_NEAR(box.left(), 40, 1e-9);
  EXPECT_NEAR(box.width(), 20, 1e-9);
}

TEST_F(Ask, LayersFrozenInAViewportAreNotHitThere) {
  Build(kCross, "", kSheet);
  EXPECT_THAT(RecordsAt(46, 54, 0.5, 1), IsEmpty());
}

TEST_F(Ask, NothingIsHitOutsideOfAViewport) {
  Build(kCross, "", kSheet);
  EXPECT_THAT(RecordsAt(5, 5, 0.5, 1), IsEmpty());
}

TEST_F(Ask, SnapsToEndsCrossingsAndMiddles) {
  Build(
      "{'type':'LINE','layer':'0','startX':0,'startY':0,'endX':20,'endY':0},"
      "{'type':'LINE','layer':'0','startX':5,'startY':-3,'endX':5,'endY':9}");
  EXPECT_EQ(SnapAt(0.4, 0.3).kind, SnapKind::kEnd);
  EXPECT_EQ(SnapAt(0.4, 0.3).at, QPointF(0, 0));
  EXPECT_EQ(SnapAt(5.3, 0.3).kind, SnapKind::kCrossing);
  EXPECT_EQ(SnapAt(5.3, 0.3).at, QPointF(5, 0));
  EXPECT_EQ(SnapAt(10.4, 0.3).kind, SnapKind::kMiddle);
  EXPECT_EQ(SnapAt(10.4, 0.3).at, QPointF(10, 0));
}

TEST_F(Ask, SnapsToCentresOfCirclesAndArcs) {
  Build(
      "{'type':'CIRCLE','layer':'0','cx':0,'cy':0,'radius':10},"
      "{'type':'ARC','layer':'0','cx':100,'cy':0,'radius':10,'startAngleRad':0,"
      "'endAngleRad':0.5}");
  EXPECT_EQ(SnapAt(0.4, 0.3).kind, SnapKind::kCenter);
  EXPECT_EQ(SnapAt(100.4, 0.3).at, QPointF(100, 0));
  EXPECT_EQ(SnapAt(110.2, 0.2).kind, SnapKind::kEnd);
}

TEST_F(Ask, ACircleHasNoEndsWhereItsPiecesMeet) {
  Build("{'type':'CIRCLE','layer':'0','cx':0,'cy':0,'radius':10}");
  EXPECT_EQ(SnapAt(10, 0).kind, SnapKind::kNone);
}

TEST_F(Ask, AwayFromEverythingThePointerStaysWhereItIs) {
  Build(kCross);
  const Snap snap = SnapAt(2, 6);
  EXPECT_EQ(snap.kind, SnapKind::kNone);
  EXPECT_EQ(snap.at, QPointF(2, 6));
}

TEST_F(Ask, SnapsThroughAViewportSayWhereThatIsInModelSpace) {
  Build(kCross, "", kSheet);
  const Snap snap = index_->SnapAt({1, {50.3, 50.2}, 1}, Visible());
  EXPECT_EQ(snap.kind, SnapKind::kMiddle);
  EXPECT_EQ(snap.viewport, 0);
  EXPECT_NEAR(snap.at.x(), 50, 1e-9);
  EXPECT_NEAR(snap.inSpace.x(), 5, 1e-9);
}

TEST(Measure, LegsHaveLengthAndDirection) {
  const Leg leg = MeasureLeg({1, 1}, {1, -4});
  EXPECT_DOUBLE_EQ(leg.length, 5);
  EXPECT_DOUBLE_EQ(leg.direction, 270);
  EXPECT_DOUBLE_EQ(leg.dy, -5);
}

TEST(Measure, AnglesLieBetweenTwoLegs) {
  EXPECT_DOUBLE_EQ(AngleAt({0, 0}, {5, 0}, {0, 3}), 90);
  EXPECT_DOUBLE_EQ(AngleAt({0, 0}, {5, 0}, {-1, 0}), 180);
}

TEST(Measure, AreasDoNotDependOnTheDirection) {
  const std::vector<QPointF> square{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  const std::vector<QPointF> back(square.rbegin(), square.rend());
  EXPECT_DOUBLE_EQ(AreaOf(square), 100);
  EXPECT_DOUBLE_EQ(AreaOf(back), 100);
  EXPECT_DOUBLE_EQ(LengthOf(square), 30);
}

std::optional<Measured> MeasureFirst(const char* entities, const char* assets = "") {
  const Scene scene = SceneOf(entities, assets, kLayers);
  return MeasureItem(scene, scene.sheets[0].items.at(0));
}

TEST(Measure, APolylineWithAnArcIsExact) {
  const auto measured = MeasureFirst(
      "{'type':'LWPOLYLINE','layer':'0','points':[[0,0],[10,0],[10,10],[0,10]],"
      "'bulges':[0,1,0,0],'closed':true}");
  ASSERT_TRUE(measured);
  EXPECT_TRUE(measured->isClosed);
  EXPECT_NEAR(measured->length, 30 + 5 * std::numbers::pi, 1e-9);
  EXPECT_NEAR(measured->area, 100 + 12.5 * std::numbers::pi, 1e-9);
}

TEST(Measure, AnOpenPolylineIsClosedForItsAreaOnly) {
  const auto measured = MeasureFirst(
      "{'type':'LWPOLYLINE','layer':'0','points':[[0,0],[10,0],[10,10]],'bulges':[0,0,0],"
      "'closed':false}");
  ASSERT_TRUE(measured);
  EXPECT_FALSE(measured->isClosed);
  EXPECT_DOUBLE_EQ(measured->length, 20);
  EXPECT_DOUBLE_EQ(measured->area, 50);
}

TEST(Measure, AReferenceScalesWhatStandsInIt) {
  const auto measured = MeasureFirst(
      "{'type':'INSERT','layer':'0','blockName':'B','x':3,'y':4,'rotationRad':1,"
      "'scaleX':2,'scaleY':2}",
      "{'name':'B','baseX':0,'baseY':0,'entities':["
      "{'type':'CIRCLE','layer':'0','cx':0,'cy':0,'radius':1}]}");
  ASSERT_TRUE(measured);
  EXPECT_NEAR(measured->length, 4 * std::numbers::pi, 1e-9);
  EXPECT_NEAR(measured->area, 4 * std::numbers::pi, 1e-9);
}

TEST(Measure, ADistortedCircleIsMeasuredAsItIsDrawn) {
  const auto measured = MeasureFirst(
      "{'type':'INSERT','layer':'0','blockName':'B','x':0,'y':0,'rotationRad':0,"
      "'scaleX':3,'scaleY':1}",
      "{'name':'B','baseX':0,'baseY':0,'entities':["
      "{'type':'CIRCLE','layer':'0','cx':0,'cy':0,'radius':1}]}");
  ASSERT_TRUE(measured);
  // As near as the four curves come to an ellipse.
  EXPECT_NEAR(measured->area, 3 * std::numbers::pi, 0.003);
}

TEST(Measure, ATextHasNoLength) {
  EXPECT_FALSE(MeasureFirst(
      "{'type':'TEXT','layer':'0','html':'<p>I</p>','x':0,'y':0,'height':10,'rotationRad':0}"));
}

TEST(RecordText, FragmentsLoseTheirTags) {
  EXPECT_EQ(PlainTextOfHtml("<p>A &lt;b&gt; &amp;<br/>C</p><p><b>D</b>&nbsp;&#8709;&#x41;</p>"),
            QString("A <b> &\nC\nD ") + QChar(0x2205) + "A");
}

TEST(RecordText, WhatIsNoTagOrReferenceStays) {
  EXPECT_EQ(PlainTextOfHtml("1 & 2; a < b"), "1 & 2; a < b");
  EXPECT_EQ(PlainTextOfHtml("&#0;&#99999999;x"), "x");
}

TEST(RecordText, CodesAreDropped) {
  EXPECT_EQ(PlainTextOfCodes("{\\fArial|b1;Room \\H2x;12}\\Pwest\\~1\\S1^2; \\\\"),
            "Room 12\nwest 11/2 \\");
}

TEST(RecordText, EveryKindOfTextIsRead) {
  EXPECT_EQ(TextOfRecord(Json("{'type':'TEXT','html':'<p>a</p>'}")), "a");
  EXPECT_EQ(TextOfRecord(Json("{'type':'DYNTEXT','html':'<p>7</p>','tag':'NO'}")), "7\nNO");
  EXPECT_EQ(TextOfRecord(Json("{'type':'MULTILEADER','text':{'html':'<p>m</p>'}}")), "m");
  EXPECT_EQ(TextOfRecord(Json("{'type':'DIMENSION_LINEAR','userText':'<> mm','measurement':12,"
                              "'dimDec':0}")),
            "12 mm");
  EXPECT_EQ(TextOfRecord(Json("{'type':'DIMENSION_ANG2LN','html':'<p>9°</p>'}")), "9°");
  EXPECT_EQ(TextOfRecord(Json("{'type':'ACAD_TABLE','cells':[{'text':'x'},{},{'text':'y'}]}")),
            "x\ny");
  EXPECT_EQ(TextOfRecord(Json("{'type':'TOLERANCE','rows':[['a','b'],['c']]}")), "a b\nc");
  EXPECT_EQ(TextOfRecord(Json("{'type':'LINE'}")), "");
}

constexpr char kTexts[] =
    "{'type':'TEXT','layer':'0','html':'<p>Pump 1</p>','x':0,'y':0,'height':1},"
    "{'type':'MTEXT','layer':'Off','html':'<p>the</p><p>pump</p>','x':0,'y':0,'height':1,"
    "'width':0,'attachment':1,'rotationRad':0},"
    "{'type':'TEXT','layer':'0','html':'<p>Valve</p>','x':0,'y':9,'height':1}";

TEST_F(Ask, TextIsFoundInAllSheets) {
  Build(kTexts, "",
        "{'name':'A','entities':["
        "{'type':'TEXT','layer':'0','html':'<p>List of pumps</p>','x':0,'y':0,'height':1}]}");
  EXPECT_THAT(Find("pump"), ElementsAre("Model:Pump 1", "Model:pump", "A:List of pumps"));
  EXPECT_THAT(Find("Pump", Qt::CaseSensitive), ElementsAre("Model:Pump 1"));
  EXPECT_THAT(Find("boiler"), IsEmpty());
  EXPECT_THAT(Find("  "), IsEmpty());
}

TEST_F(Ask, WordsAreFoundAcrossTheEndOfALine) {
  Build(kTexts);
  EXPECT_THAT(Find("the pump"), ElementsAre("Model:the pump"));
}

TEST_F(Ask, TextInABlockIsFoundOnceForEachReference) {
  Build(kInserts,
        "{'name':'Door','baseX':0,'baseY':0,'entities':["
        "{'type':'TEXT','layer':'0','html':'<p>D</p>','x':0,'y':0,'height':1}]}");
  EXPECT_EQ(Find("D").size(), 1U);
  Build(
      "{'type':'INSERT','layer':'0','blockName':'Door','x':0,'y':0},"
      "{'type':'INSERT','layer':'0','blockName':'Door','x':9,'y':0}",
      "{'name':'Door','baseX':0,'baseY':0,'entities':["
      "{'type':'TEXT','layer':'0','html':'<p>D</p>','x':0,'y':0,'height':1}]}");
  EXPECT_EQ(Find("D").size(), 2U);
}

TEST_F(Ask, AListOfHitsIsCut) {
  Build(kTexts);
  const FindResult result = FindText(*index_, "pump", Qt::CaseInsensitive, 1);
  EXPECT_EQ(result.found.size(), 1U);
  EXPECT_TRUE(result.isCut);
}

}  // namespace
}  // namespace preview
