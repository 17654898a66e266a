// Lines on a picture that is painted from the front to the back: what was painted
// before hides what comes later. Where nothing is left to paint on, lines cost next to
// nothing, so that a picture of millions of lines is painted in a moment. They are not
// smoothed.
#pragma once

#include <QImage>
#include <QLineF>
#include <QPointF>
#include <QRect>
#include <QRgb>

#include <vector>

namespace preview {

class ThinLines {
 public:
  // On a picture in Format_ARGB32_Premultiplied, transparent where nothing was painted
  // yet, whose first pixel has these coordinates. Others may paint on it in between.
  ThinLines(QImage& picture, QPointF origin);

  // Nothing is painted outside of this, in the coordinates of lines; the whole picture
  // at first.
  void SetArea(const QRectF& area);

  // An opaque line, some pixels wide.
  void Draw(QPointF a, QPointF b, QRgb color, int width);

  // Whether nothing would be seen of what lies in a box. Answers no for large boxes.
  bool IsHidden(const QRectF& box) const;

 private:
  struct Run;

  void DrawRun(const Run& run, QRgb color);
  bool IsFull(const Run& run, int from, int to) const;
  void Paint(int x, int y, QRgb color);
  int& FreeAt(int x, int y);
  int FreeAt(int x, int y) const;

  QRgb* pixels_;
  int stride_;
  QRect whole_;
  QRect area_;
  QPointF origin_;
  int columns_;
  // Of each tile, how many pixels have not been painted by a line.
  std::vector<int> free_;
};

// Cuts a segment to a box; false when nothing is left. Segments of a zoomed-in
// drawing may reach millions of pixels outside.
bool ClipSegment(QPointF& a, QPointF& b, const QRectF& box);

}  // namespace preview
