// Scenes of the complete form: what the plain one does not hold.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document.hpp"
#include "paint/export.hpp"
#include "paint/sheet_painter.hpp"
#include "paint/svg.hpp"
#include "scene/plane.hpp"

namespace preview {
namespace {

using testing::ElementsAre;

// With further sections behind the plain ones.
Scene CompleteScene(const char* entities, const char* assets = "", const char* sections = "",
                    const char* layers = "") {
  QByteArray line("{'dwgVersion':'2018','insunits':4,'layers':[");
  line.append(layers).append("],'assets':[").append(assets);
  line.append("],'entities':[").append(entities);
  line.append("],'layouts':[],'warnings':[]").append(sections).append("}");
  QString problem;
  return BuildScene(ReadDocument(line.replace('\'', '"'), problem).value(), QDir());
}

const std::vector<Item>& ItemsOf(const Scene& scene) {
  return scene.sheets.front().items;
}

std::vector<double> BoxOf(const QRectF& box) {
  const auto rounded = [](double value) { return std::round(value * 1e6) / 1e6; };
  return {rounded(box.left()), rounded(box.top()), rounded(box.right()), rounded(box.bottom())};
}

bool Shows(const Scene& scene, std::size_t item) {
  return IsShown(scene, ItemsOf(scene)[item], VisibleLayers(scene), nullptr);
}

constexpr char kLine[] = "{'type':'LINE','layer':'0','startX':0,'startY':0,'endX':9,'endY':0";

constexpr char kText[] =
    "{'type':'MTEXT','layer':'0','x':0,'y':0,'height':1,'width':0,'attachment':1,"
    "'rotationRad':0,'html':'<p>HHHH</p>','rawMtext':'HHHH','textStyle':'Narrow'}";

TEST(CompleteScene, GivesMultiLineTextsTheWidthOfTheirStyle) {
  const auto widthIn = [](const char* factor) {
    const QByteArray styles =
        QByteArray(",'textStyles':[{'name':'Narrow','widthFactor':").append(factor).append("}]");
    return ItemsOf(CompleteScene(kText, "", styles))[0].bounds.width();
  };
  EXPECT_NEAR(widthIn("0.5") / widthIn("1"), 0.5, 0.02);
}

TEST(CompleteScene, MakesLettersOfTextsBeyondALimitWhenTheyAreSeen) {
  QString problem;
  QByteArray line("{'layers':[],'entities':[");
  line.append(kText).append(",").append(kText).append("]}");
  const Drawing drawing = ReadDocument(line.replace('\'', '"'), problem).value();
  const BuildLimits limits{.letters = 12};
  const Scene scene = BuildScene(drawing, QDir(), limits);
  EXPECT_EQ(ItemsOf(scene)[0].shape->parts[0].fill, Fill::kSolid);
  const Item& late = ItemsOf(scene)[1];
  EXPECT_EQ(PartList(*late.shape).front().fill, Fill::kPattern);
  bool isNew = false;
  EXPECT_EQ(scene.letters(late.record, false, isNew), nullptr);
  EXPECT_FALSE(isNew);
  EXPECT_EQ(scene.letters(late.record, true, isNew)->parts[0].fill, Fill::kSolid);
  EXPECT_TRUE(isNew);
  EXPECT_NE(scene.letters(late.record, false, isNew), nullptr);
  EXPECT_TRUE(scene.notes.isEmpty());
}

TEST(CompleteScene, RepeatsInRowsAndColumns) {
  const QByteArray records = QByteArray("{'type':'POINT','layer':'0','x':50,'y':50},") +
                             "{'type':'REPEAT','layer':'0','begins':true}," + kLine +
                             "},{'type':'ENDREP','layer':'0','columns':2,'rows':3,"
                             "'columnSpacing':10,'rowSpacing':-1}," +
                             "{'type':'ENDREP','layer':'0','columns':9,'rows':9}";
  const Scene scene = CompleteScene(records);
  ASSERT_EQ(ItemsOf(scene).size(), 7U);
  EXPECT_THAT(BoxOf(ItemsOf(scene)[2].bounds), ElementsAre(10, 0, 19, 0));
  EXPECT_THAT(BoxOf(ItemsOf(scene)[6].bounds), ElementsAre(10, -2, 19, -2));
  EXPECT_EQ(ItemsOf(scene)[6].place->map(QPointF(0, 0)), QPointF(10, -2));
  EXPECT_THAT(BoxOf(scene.sheets[0].extents), ElementsAre(0, -2, 50, 50));
}

TEST(CompleteScene, RepeatsInTheDirectionsOfTheBlock) {
  const QByteArray block = QByteArray("{'name':'B','entities':[{'type':'REPEAT'},") + kLine +
                           "},{'type':'ENDREP','columns':2,'rows':1,'columnSpacing':10}]}";
  const Scene scene = CompleteScene(
      "{'type':'INSERT','layer':'0','blockName':'B','x':0,'y':0,'rotationRad':1.5707963267948966,"
      "'scaleX':2,'scaleY':2}",
      block);
  ASSERT_EQ(ItemsOf(scene).size(), 2U);
  EXPECT_THAT(BoxOf(ItemsOf(scene)[1].bounds), ElementsAre(0, 20, 0, 38));
}

TEST(CompleteScene, MarksShapesByTheirSizeAndName) {
  const Scene scene = CompleteScene(
      "{'type':'SHAPE','layer':'0','x':5,'y':6,'size':2,'rotationRad':0,'shapeNumber':130,"
      "'shapeFile':'c:\\\\marks.shx'}");
  ASSERT_EQ(ItemsOf(scene).size(), 1U);
  const PartList parts(*ItemsOf(scene)[0].shape);
  EXPECT_THAT(BoxOf(parts.front().path.boundingRect()), ElementsAre(5, 6, 7, 8));
  EXPECT_GT(parts.size(), 1U);
}

constexpr char kDot[] =
    "{'name':'_Dot','entities':[{'type':'CIRCLE','layer':'0','cx':0,'cy':0,'radius':0.5}]}";

TEST(CompleteScene, DrawsArrowsThatAreBlocks) {
  const char leader[] =
      "{'type':'LEADER','layer':'0','points':[[10,0,0],[10,20,0]],'arrowOn':true,'arrowSize':2,"
      "'arrowBlock':'_Dot'}";
  const Scene scene = CompleteScene(leader, kDot);
  ASSERT_EQ(ItemsOf(scene).size(), 2U);
  EXPECT_EQ(PartList(*ItemsOf(scene)[0].shape).size(), 1U);
  EXPECT_THAT(BoxOf(ItemsOf(scene)[1].bounds), ElementsAre(9, -1, 11, 1));
  EXPECT_EQ(scene.uses.size(), 1U);
  // Without the block the arrow is the filled one.
  EXPECT_EQ(PartList(*ItemsOf(CompleteScene(leader))[0].shape).size(), 2U);
}

TEST(CompleteScene, DrawsArrowsOfMultileadersThatAreBlocks) {
  const Scene scene = CompleteScene(
      "{'type':'MULTILEADER','layer':'0','arrowSize':2,'arrowBlock':'_Dot','leaders':[{'lines':["
      "{'points':[[0,0,0],[9,0,0]]},{'points':[[0,30,0],[9,30,0]],'arrowSize':4},"
      "{'points':[[0,60,0],[1,60,0]]},{'points':[[0,90,0],[9,90,0]],'leaderType':0}]}]}",
      kDot);
  ASSERT_EQ(ItemsOf(scene).size(), 3U);
  EXPECT_THAT(BoxOf(ItemsOf(scene)[1].bounds), ElementsAre(-1, -1, 1, 1));
  EXPECT_THAT(BoxOf(ItemsOf(scene)[2].bounds), ElementsAre(-2, 28, 2, 32));
}

TEST(CompleteScene, DrawsTheEdgeOfAnUnderlaysClip) {
  const Scene scene = CompleteScene(
      "{'type':'PDFUNDERLAY','layer':'0','path':'plan.pdf','page':1,'ix':0,'iy':0,'sx':1,'sy':1,"
      "'angle':0,'clip':{'on':true,'world':[[-50,-40,0],[50,-40,0],[50,40,0],[-50,40,0]]}}");
  ASSERT_EQ(ItemsOf(scene).size(), 1U);
  EXPECT_TRUE(ItemsOf(scene)[0].bounds.contains(QRectF(-50, -40, 100, 80)));
}

TEST(CompleteScene, PlotsNoLayersThatAreNotPlotted) {
  const Scene scene =
      CompleteScene("", "", "",
                    "{'name':'0','visible':true,'plotted':false},{'name':'a','visible':true},"
                    "{'name':'b','visible':false}");
  EXPECT_THAT(VisibleLayers(scene), ElementsAre(true, true, false));
  EXPECT_THAT(PlottedLayers(scene), ElementsAre(false, true, false));
}

TEST(CompleteScene, HasGradientsInSvg) {
  const Scene scene = CompleteScene(
      "{'type':'HATCH','layer':'0','solid':true,'loops':[[0,0,8,0,8,8,0,8]],'gradient':{'name':"
      "'LINEAR','angle':0,'colors':[{'color':{'r':255,'g':0,'b':0}},{'color':{'r':0,'g':0,'b':255}}"
      "]}},"
      "{'type':'HATCH','layer':'0','solid':true,'loops':[[0,0,8,0,8,8,0,8]],'gradient':{'name':"
      "'SPHERICAL','angle':0,'colors':[{'color':{'r':255,'g':0,'b':0}},{'color':{'r':0,'g':0,'b':"
      "255}}]}}");
  const QByteArray svg = SvgOfSheet(scene, scene.sheets[0], {0, 0, 10, 10}, {});
  const qsizetype at = svg.indexOf("<linearGradient id=\"gradient");
  ASSERT_GE(at, 0);
  const QByteArray name = svg.mid(at + 20, 24);
  EXPECT_TRUE(svg.contains("fill=\"url(#" + name + ")\"")) << name.toStdString();
  EXPECT_TRUE(svg.contains("stop-color=\"#0000ff\""));
  EXPECT_TRUE(svg.contains("<radialGradient"));
}

TEST(CompleteScene, MirrorsWhatIsSeenFromBehind) {
  const Scene scene = CompleteScene(
      "{'type':'CIRCLE','layer':'0','cx':5,'cy':1,'radius':1,'extrusion':[0,0,-1],"
      "'world':{'xAxis':[-1,0,0],'yAxis':[0,1,0],'center':[-5,1,0]}}");
  EXPECT_THAT(BoxOf(ItemsOf(scene)[0].bounds), ElementsAre(-6, 0, -4, 2));
}

TEST(CompleteScene, MirrorsTheContentsOfAReferenceThatIsSeenFromBehind) {
  const Scene scene = CompleteScene(
      "{'type':'INSERT','layer':'0','blockName':'B','x':10,'y':0,'rotationRad':0,'scaleX':1,"
      "'scaleY':1,'extrusion':[0,0,-1],'world':{'xAxis':[-1,0,0],'yAxis':[0,1,0]}}",
      "{'name':'B','entities':[{'type':'LINE','layer':'0','startX':1,'startY':0,'endX':2,"
      "'endY':3}]}");
  EXPECT_THAT(BoxOf(ItemsOf(scene)[0].bounds), ElementsAre(-12, 0, -11, 3));
}

TEST(PlaneOfNormal, HasTheAxesOfTheArbitraryAxisAlgorithm) {
  const QTransform front = PlaneOfNormal({0, -1, 0}, 0);
  EXPECT_EQ(front.map(QPointF(1, 0)), QPointF(1, 0));
  EXPECT_NEAR(front.map(QPointF(0, 1)).y(), 0, 1e-12);
  EXPECT_EQ(PlaneOfNormal({0, 0, 0}, 5), QTransform());
}

TEST(CompleteScene, PutsRecordsInTheOrderInWhichTheyAreDrawn) {
  const Scene scene = CompleteScene(
      "{'type':'CIRCLE','layer':'0','cx':1,'cy':0,'radius':1,'drawOrder':2},"
      "{'type':'CIRCLE','layer':'0','cx':2,'cy':0,'radius':1,'drawOrder':0},"
      "{'type':'CIRCLE','layer':'0','cx':3,'cy':0,'radius':1}");
  std::vector<double> centers;
  for (const Item& item : ItemsOf(scene)) {
    centers.push_back(item.bounds.center().x());
  }
  // The last one stands behind the record before it, as attributes do.
  EXPECT_THAT(centers, ElementsAre(2, 3, 1));
}

TEST(CompleteScene, HidesFrozenLayersAndInvisibleEntitiesUntilAsked) {
  const QByteArray line(kLine);
  Scene scene = CompleteScene((line + "}," + line + ",'invisible':true}," +
                               QByteArray(line).replace("'layer':'0'", "'layer':'F'") + "}")
                                  .constData(),
                              "", "", "{'name':'0'},{'name':'F','frozen':true}");
  EXPECT_TRUE(scene.hasHidden);
  EXPECT_TRUE(Shows(scene, 0));
  EXPECT_FALSE(Shows(scene, 1));
  EXPECT_FALSE(Shows(scene, 2));
  scene.showHidden = true;
  EXPECT_TRUE(Shows(scene, 1));
  EXPECT_TRUE(Shows(scene, 2));
}

TEST(CompleteScene, HidesWhatStandsInAReferenceOnAFrozenLayer) {
  const Scene scene =
      CompleteScene("{'type':'INSERT','layer':'F','blockName':'B','x':0,'y':0}",
                    (QByteArray("{'name':'B','entities':[") +
                     QByteArray(kLine).replace("'layer':'0'", "'layer':'V'") + "}]}")
                        .constData(),
                    "", "{'name':'V'},{'name':'F','frozen':true}");
  EXPECT_FALSE(Shows(scene, 0));
}

TEST(CompleteScene, TakesDashesFromRecordLayerAndReference) {
  const QByteArray line(kLine);
  const Scene scene = CompleteScene(
      (line + ",'linetype':'dashed','linetypeScale':2}," + line + ",'linetype':'L'}," +
       "{'type':'INSERT','layer':'0','blockName':'B','x':0,'y':0,'linetype':'Dashed'}")
          .constData(),
      (QByteArray("{'name':'B','entities':[") + line + ",'linetype':'K'}]}").constData(),
      ",'linetypes':[{'name':'Continuous','dashes':[]},{'name':'Dashed','dashes':[{'length':2},"
      "{'length':-1}]},{'name':'Dots','dashes':[{'length':0},{'length':-1}]}],"
      "'header':{'LTSCALE':3}",
      "{'name':'0','linetype':'Dots'}");
  const auto patternOf = [&](std::size_t item) {
    return scene.dashPatterns[static_cast<std::size_t>(ItemsOf(scene)[item].dashes)];
  };
  EXPECT_THAT(patternOf(0), ElementsAre(2, 1));
  EXPECT_EQ(ItemsOf(scene)[0].dashScale, 6);
  EXPECT_THAT(patternOf(1), ElementsAre(0, 1));
  EXPECT_THAT(patternOf(2), ElementsAre(2, 1));
}

TEST(CompleteScene, RepeatsTheBlockOfAnArrayAlongItsTurnedAxes) {
  const Scene scene = CompleteScene(
      "{'type':'INSERT','layer':'0','blockName':'B','x':0,'y':0,'rotationRad':1.5707963267948966,"
      "'scaleX':1,'scaleY':1,'columns':2,'rows':3,'columnSpacing':10,'rowSpacing':20}",
      "{'name':'B','entities':[{'type':'CIRCLE','layer':'0','cx':0,'cy':0,'radius':1}]}");
  ASSERT_EQ(ItemsOf(scene).size(), 6U);
  EXPECT_THAT(BoxOf(ItemsOf(scene)[1].bounds), ElementsAre(-1, 9, 1, 11));
  EXPECT_THAT(BoxOf(ItemsOf(scene)[2].bounds), ElementsAre(-21, -1, -19, 1));
}

TEST(CompleteScene, DrawsADimensionByItsBlock) {
  const Scene scene = CompleteScene(
      "{'type':'DIMENSION_LINEAR','layer':'0','textMidX':0,'textMidY':0,'blockName':'*D1'}",
      (QByteArray("{'name':'*D1','entities':[") + kLine + "}]}").constData());
  ASSERT_EQ(ItemsOf(scene).size(), 1U);
  EXPECT_EQ(scene.records[static_cast<std::size_t>(ItemsOf(scene)[0].record)]["type"], "LINE");
  ASSERT_EQ(scene.uses.size(), 1U);
  EXPECT_EQ(scene.uses[0].block, "*D1");
}

TEST(CompleteScene, ClipsTheContentsOfAReference) {
  const Scene scene = CompleteScene(
      "{'type':'INSERT','layer':'0','blockName':'B','x':100,'y':0,'scaleX':1,'scaleY':1,"
      "'clip':{'on':true,'inverted':false,'block':[[2,-1,0],[5,-1,0],[5,1,0],[2,1,0]]}}",
      (QByteArray("{'name':'B','entities':[") + kLine + "}]}").constData());
  const Item& item = ItemsOf(scene)[0];
  ASSERT_GT(item.clip, 0);
  EXPECT_THAT(BoxOf(scene.clips[static_cast<std::size_t>(item.clip)].boundingRect()),
              ElementsAre(102, -1, 105, 1));
}

// The boundary runs around all and around the hole in it.
TEST(CompleteScene, TakesTheBoundaryOfAnInvertedClipForWhatIsLeft) {
  const Scene scene = CompleteScene(
      "{'type':'INSERT','layer':'0','blockName':'B','x':0,'y':0,'scaleX':1,'scaleY':1,"
      "'clip':{'on':true,'inverted':true,'block':[[0,0],[9,0],[9,9],[0,9],[0,0],[3,3],[6,3],"
      "[6,6],[3,6],[3,3]]}}",
      (QByteArray("{'name':'B','entities':[") + kLine + "}]}").constData());
  const QPainterPath& clip = scene.clips[static_cast<std::size_t>(ItemsOf(scene)[0].clip)];
  EXPECT_TRUE(clip.contains(QPointF(1.5, 7)));
  EXPECT_FALSE(clip.contains(QPointF(4.5, 4.5)));
}

TEST(CompleteScene, ShowsTheEdgeOfAClipWhenTheDrawingDoes) {
  const Scene scene = CompleteScene(
      "{'type':'INSERT','layer':'0','blockName':'B','x':0,'y':0,'scaleX':1,'scaleY':1,"
      "'clip':{'on':true,'inverted':false,'block':[[2,-1],[5,-1],[5,1],[2,1]]}}",
      (QByteArray("{'name':'B','entities':[") + kLine + "}]}").constData(),
      ",'header':{'XCLIPFRAME':1}");
  ASSERT_EQ(ItemsOf(scene).size(), 2U);
  EXPECT_THAT(BoxOf(ItemsOf(scene)[1].bounds), ElementsAre(2, -1, 5, 1));
}

// A horizontal line has no height, and is there all the same.
TEST(CompleteScene, KeepsTheBoundsOfAClippedLine) {
  const Scene scene = CompleteScene(
      "{'type':'INSERT','layer':'0','blockName':'B','x':0,'y':0,'scaleX':1,'scaleY':1,"
      "'clip':{'on':true,'inverted':false,'block':[[2,-1],[5,-1],[5,1],[2,1]]}}",
      (QByteArray("{'name':'B','entities':[") + kLine + "}]}").constData());
  EXPECT_THAT(BoxOf(ItemsOf(scene)[0].bounds), ElementsAre(2, 0, 5, 0));
}

TEST(CompleteScene, DrawsDefinitionPointsOfDimensionsAsDots) {
  const Scene scene = CompleteScene("{'type':'POINT','layer':'Defpoints','x':5,'y':5}", "",
                                    ",'header':{'PDMODE':34,'PDSIZE':2}");
  EXPECT_THAT(BoxOf(ItemsOf(scene)[0].bounds), ElementsAre(5, 5, 5, 5));
}

TEST(CompleteScene, MarksPointsAsTheDrawingSays) {
  const char* point = "{'type':'POINT','layer':'0','x':5,'y':5}";
  const Scene scene = CompleteScene(point, "", ",'header':{'PDMODE':34,'PDSIZE':2}");
  EXPECT_THAT(BoxOf(ItemsOf(scene)[0].bounds), ElementsAre(3, 3, 7, 7));
  EXPECT_TRUE(ItemsOf(CompleteScene(point, "", ",'header':{'PDMODE':1}")).empty());
}

}  // namespace
}  // namespace preview
