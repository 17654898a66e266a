// Pictures of scenes, looked at pixel by pixel.
#include <gtest/gtest.h>

#include "document.hpp"
#include "paint/export.hpp"
#include "paint/html_page.hpp"
#include "paint/sheet_painter.hpp"
#include "paint/svg.hpp"
#include "window/renderer.hpp"

namespace preview {
namespace {

// A hundred pixels show the square from 0 to 10.
QImage Picture(const Scene& scene, std::size_t sheet = 0) {
  ExportOptions options;
  options.width = 100;
  options.region = QRectF(0, 0, 10, 10);
  return RenderImage(scene, scene.sheets[sheet], options);
}

QColor At(const QImage& image, double x, double y) {
  return image.pixelColor(static_cast<int>(x * 10), 99 - static_cast<int>(y * 10));
}

constexpr char kSquare[] =
    "{'type':'HATCH','layer':'Red','solid':true,'loops':[[2,2,8,2,8,8,2,8],[4,4,6,4,6,6,4,6]],"
    "'color':'L','lw':'L'}";

TEST(Painting, FillsHatchesEvenOdd) {
  const QImage image = Picture(SceneOf(kSquare, "", kLayers));
  EXPECT_EQ(At(image, 3, 3), QColor(Qt::red));
  EXPECT_EQ(At(image, 5, 5), QColor(Qt::white));
  EXPECT_EQ(At(image, 1, 1), QColor(Qt::white));
}

TEST(Painting, LeavesOutLayersThatAreOff) {
  const QImage image = Picture(
      SceneOf("{'type':'SOLID','layer':'Off','pts':[[0,0],[9,0],[9,9],[0,9]],'color':'L','lw':'L'}",
              "", kLayers));
  EXPECT_EQ(At(image, 5, 5), QColor(Qt::white));
}

TEST(Painting, HidesWhatLiesUnderAWipeout) {
  const QByteArray entities = QByteArray(kSquare) +
                              ",{'type':'WIPEOUT','layer':'0','verts':[[0,0],[3.5,10]],"
                              "'color':'L','lw':'L'}";
  const QImage image = Picture(SceneOf(entities, "", kLayers));
  EXPECT_EQ(At(image, 3, 3), QColor(Qt::white));
  EXPECT_EQ(At(image, 7, 7), QColor(Qt::red));
}

TEST(Painting, TurnsTheForegroundOnADarkBackground) {
  EXPECT_EQ(ColorOn({}, Qt::white), QColor(Qt::black));
  EXPECT_EQ(ColorOn({}, QColor(30, 30, 30)), QColor(Qt::white));
}

TEST(Painting, ShowsModelSpaceThroughAViewport) {
  const Scene scene = SceneOf(kSquare, "", kLayers,
                              "{'name':'S','entities':[{'type':'VIEWPORT','layer':'Off','cx':2.5,"
                              "'cy':2.5,'width':5,'height':5,'viewCtrX':5,'viewCtrY':5,"
                              "'viewSize':10,'dirZ':1,'frozenLayers':[],'color':'L','lw':'L'}]}");
  const QImage image = Picture(scene, 1);
  EXPECT_EQ(At(image, 1.5, 1.5), QColor(Qt::red));
  EXPECT_EQ(At(image, 2.5, 2.5), QColor(Qt::white));
  EXPECT_EQ(At(image, 4.5, 4.5), QColor(Qt::white));
}

TEST(Painting, LeavesOutWhatIsFrozenInAViewport) {
  const Scene scene = SceneOf(kSquare, "", kLayers,
                              "{'name':'S','entities':[{'type':'VIEWPORT','layer':'Off','cx':2.5,"
                              "'cy':2.5,'width':5,'height':5,'viewCtrX':5,'viewCtrY':5,"
                              "'viewSize':10,'dirZ':1,'frozenLayers':['Red'],'color':'L',"
                              "'lw':'L'}]}");
  EXPECT_EQ(At(Picture(scene, 1), 1.5, 1.5), QColor(Qt::white));
}

TEST(IsShown, HidesPartsOfReferencesOnFrozenLayers) {
  const Scene scene = SceneOf(
      "{'type':'INSERT','layer':'Red','blockName':'B','color':'L','lw':'L'}",
      "{'name':'B','entities':[{'type':'POINT','layer':'Off','color':'L','lw':'L'}]}", kLayers);
  const std::vector<bool> shown(3, true);
  const std::vector<bool> frozen{false, true, false};
  EXPECT_TRUE(IsShown(scene, scene.sheets[0].items[0], shown, nullptr));
  EXPECT_FALSE(IsShown(scene, scene.sheets[0].items[0], shown, &frozen));
}

TEST(FitTransform, CentresTheAreaWithYUp) {
  const QTransform fit = FitTransform({0, 0, 10, 10}, {0, 0, 200, 100}, 0);
  EXPECT_EQ(fit.map(QPointF(0, 0)), QPointF(50, 100));
  EXPECT_EQ(fit.map(QPointF(10, 10)), QPointF(150, 0));
}

TEST(Painting, KeepsLinesThatReachFarOutside) {
  const QImage image =
      Picture(SceneOf("{'type':'LINE','layer':'0','startX':-1e9,'startY':5,'endX':1e9,'endY':5,"
                      "'color':'L','lw':'L'}",
                      "", kLayers));
  EXPECT_LT(At(image, 5, 4.99).lightness(), 200);
}

TEST(Painting, IsTheSameInTheRenderersThread) {
  auto scene = std::make_shared<Scene>(SceneOf(kSquare, "", kLayers));
  View view;
  view.device = QRectF(-20, -10, 100, 100);
  view.toDevice = FitTransform({0, 0, 10, 10}, {0, 0, 60, 60}, 0);
  const QImage image = RenderView({scene, 0, view});
  EXPECT_EQ(image.size(), QSize(100, 100));
  EXPECT_EQ(image.pixelColor(20 + 18, 10 + 42), QColor(Qt::red));
}

TEST(Svg, GivesEveryShapeItsLayer) {
  const Scene scene = SceneOf(kSquare, "", kLayers);
  const QByteArray svg = SvgOfSheet(scene, scene.sheets[0], {0, 0, 10, 10}, {});
  EXPECT_TRUE(svg.contains("<path class=\"l1\" fill=\"#ff0000\""));
  EXPECT_TRUE(svg.contains("--v2:none;"));
}

TEST(Svg, KeepsPrecisionFarFromTheOrigin) {
  const Scene scene = SceneOf(
      "{'type':'LINE','layer':'0','startX':5000000,'startY':0,'endX':5000010,'endY':10,"
      "'color':'L','lw':'L'}",
      "", kLayers);
  const QByteArray svg = SvgOfSheet(scene, scene.sheets[0], {5000000, 0, 10, 10}, {});
  EXPECT_TRUE(svg.contains("M192.31 9807.69L9807.69 192.31")) << svg.toStdString();
}

TEST(HtmlPage, EscapesNamesOfTheDrawing) {
  const Scene scene = SceneOf("", "", "{'name':'<b>&','visible':true,'color':{}}");
  const QByteArray page = HtmlPage(scene, "<script>", {});
  EXPECT_TRUE(page.contains("&lt;b&gt;&amp;</label>"));
  EXPECT_TRUE(page.contains("<title>&lt;script&gt;</title>"));
}

}  // namespace
}  // namespace preview
