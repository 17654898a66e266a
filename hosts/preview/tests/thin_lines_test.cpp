#include "paint/thin_lines.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "document.hpp"
#include "paint/sheet_painter.hpp"

namespace preview {
namespace {

constexpr QRgb kRed = qRgb(255, 0, 0);
constexpr QRgb kBlue = qRgb(0, 0, 255);

class Lines : public testing::Test {
 protected:
  Lines() { image_.fill(Qt::transparent); }

  int Painted() const {
    int count = 0;
    for (int y = 0; y < image_.height(); ++y) {
      for (int x = 0; x < image_.width(); ++x) {
        count += image_.pixel(x, y) != 0 ? 1 : 0;
      }
    }
    return count;
  }

  QImage image_{40, 30, QImage::Format_ARGB32_Premultiplied};
  ThinLines lines_{image_, {100, 200}};
};

TEST_F(Lines, HaveOnePixelForEachStep) {
  lines_.Draw({102.5, 203.5}, {112.5, 208.5}, kRed, 1);
  EXPECT_EQ(image_.pixel(2, 3), kRed);
  EXPECT_EQ(image_.pixel(12, 8), kRed);
  EXPECT_EQ(Painted(), 11);
  lines_.Draw({130.5, 225.5}, {129.5, 205.5}, kRed, 1);
  EXPECT_EQ(Painted(), 32);
}

TEST_F(Lines, AreAsWideAsTheyAreAskedFor) {
  lines_.Draw({110.5, 210.5}, {119.5, 210.5}, kRed, 3);
  EXPECT_EQ(Painted(), 30);
  EXPECT_EQ(image_.pixel(10, 9), kRed);
  EXPECT_EQ(image_.pixel(10, 11), kRed);
}

TEST_F(Lines, HideThoseThatComeLater) {
  lines_.Draw({100, 210.5}, {140, 210.5}, kRed, 1);
  lines_.Draw({120.5, 200}, {120.5, 230}, kBlue, 1);
  EXPECT_EQ(image_.pixel(20, 10), kRed);
  EXPECT_EQ(image_.pixel(20, 11), kBlue);
}

TEST_F(Lines, ShowThroughWhatIsTransparent) {
  image_.setPixelColor(5, 5, QColor(0, 0, 255, 128));
  lines_.Draw({100, 205.5}, {140, 205.5}, kRed, 1);
  EXPECT_EQ(image_.pixelColor(5, 5), QColor(127, 0, 128));
}

TEST_F(Lines, KeepToTheirArea) {
  lines_.SetArea(QRectF(110, 210, 10, 10));
  lines_.Draw({90, 215.5}, {190, 215.5}, kRed, 1);
  lines_.Draw({115.5, 0}, {115.5, 1e9}, kRed, 3);
  EXPECT_EQ(Painted(), 10 + 3 * 10 - 3);
  EXPECT_EQ(image_.pixel(9, 15), 0U);
  EXPECT_EQ(image_.pixel(20, 15), 0U);
}

TEST_F(Lines, LeaveOutWhatIsNoNumberOrFarAway) {
  const double infinite = std::numeric_limits<double>::infinity();
  const double none = std::numeric_limits<double>::quiet_NaN();
  lines_.Draw({none, 210}, {120, 210}, kRed, 1);
  lines_.Draw({-infinite, 210}, {infinite, 210}, kRed, 1);
  lines_.Draw({-1e300, -1e300}, {-1e299, 1e300}, kRed, 1);
  lines_.Draw({1000, 1000}, {2000, 1000}, kRed, 5);
  EXPECT_EQ(Painted(), 0);
}

TEST_F(Lines, KnowWhereNothingIsLeft) {
  const QRectF corner(100, 200, 16, 16);
  EXPECT_FALSE(lines_.IsHidden(corner));
  for (int y = 0; y < 16; ++y) {
    lines_.Draw({100, 200.5 + y}, {115.9, 200.5 + y}, kRed, 1);
  }
  EXPECT_TRUE(lines_.IsHidden(corner.adjusted(1, 1, -1, -1)));
  EXPECT_FALSE(lines_.IsHidden(corner.adjusted(1, 1, 4, -1)));
  lines_.Draw({100, 208}, {139, 208}, kBlue, 1);
  EXPECT_EQ(image_.pixel(8, 8), kRed);
  EXPECT_EQ(image_.pixel(20, 8), kBlue);
}

// What lies over what is the same from both sides.
TEST(FromTheFront, IsTheSamePicture) {
  const Scene scene = SceneOf(
      "{'type':'SOLID','layer':'Red','pts':[[1,1],[9,1],[9,9],[1,9]],'color':'L','lw':'L'},"
      "{'type':'LINE','layer':'0','startX':0,'startY':3.05,'endX':10,'endY':3.05,'color':{'r':0,"
      "'g':0,'b':255},'lw':0},"
      "{'type':'WIPEOUT','layer':'0','verts':[[4,2],[6,10]],'color':'L','lw':'L'},"
      "{'type':'CIRCLE','layer':'0','cx':5,'cy':5,'radius':3.02,'color':{'r':0,'g':255,'b':0},"
      "'lw':0}",
      "", kLayers);
  View view;
  view.device = QRectF(-20, -10, 140, 120);
  view.toDevice = FitTransform({0, 0, 10, 10}, {0, 0, 100, 100}, 0);
  const QImage smooth = PictureOf(scene, scene.sheets[0], view);
  QImage image(140, 120, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  view.fromTheFront = true;
  QPainter painter(&image);
  painter.translate(-view.device.topLeft());
  PaintSheet(painter, scene, scene.sheets[0], view);
  painter.end();
  const auto at = [&view](const QImage& picture, double x, double y) {
    const QPointF point = view.toDevice.map(QPointF(x, y)) - view.device.topLeft();
    return picture.pixelColor(static_cast<int>(point.x()), static_cast<int>(point.y()));
  };
  const QPointF places[] = {{0.5, 0.5}, {2, 2}, {2, 7}, {5, 3.05}, {5, 7}, {8.5, 5}, {0.5, 8}};
  for (const QPointF place : places) {
    EXPECT_EQ(at(image, place.x(), place.y()), at(smooth, place.x(), place.y()))
        << place.x() << ' ' << place.y();
  }
  EXPECT_EQ(at(image, 2, 3.05), QColor(Qt::blue));
  EXPECT_EQ(at(image, 8, 5), QColor(Qt::green));
}

TEST(FromTheFront, LeavesLettersForTheNextPicture) {
  const Drawing drawing = DrawingOf(
      "{'type':'TEXT','layer':'0','html':'<p>HHH</p>','x':1,'y':1,'height':5,'rotationRad':0,"
      "'color':'L','lw':'L'}",
      "", kLayers);
  const Scene scene = BuildScene(drawing, QDir(), {.letters = 0});
  View view;
  view.device = QRectF(0, 0, 200, 100);
  view.toDevice = FitTransform({0, 0, 20, 10}, view.device, 0);
  bool isUnfinished = false;
  view.isUnfinished = &isUnfinished;
  view.newTexts = 0;
  const QImage bars = PictureOf(scene, scene.sheets[0], view);
  EXPECT_TRUE(isUnfinished);
  isUnfinished = false;
  view.newTexts = 1;
  EXPECT_NE(PictureOf(scene, scene.sheets[0], view), bars);
  EXPECT_FALSE(isUnfinished);
}

}  // namespace
}  // namespace preview
