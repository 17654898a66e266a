#include "paint/thin_lines.hpp"

#include <algorithm>
#include <cmath>

namespace preview {
namespace {

constexpr int kTileBits = 4;
constexpr int kTile = 1 << kTileBits;
// A box of more tiles is not looked into.
constexpr int kMostTiles = 64;
constexpr double kFixed = 65536;

int TilesFor(int pixels) {
  return (pixels + kTile - 1) >> kTileBits;
}

// What shows of a colour under one that covers a part.
QRgb Under(QRgb cover, QRgb color) {
  const int rest = 255 - qAlpha(cover);
  const auto mix = [rest](int above, int below) {
    return std::min(255, above + below * rest / 255);
  };
  return qRgba(mix(qRed(cover), qRed(color)), mix(qGreen(cover), qGreen(color)),
               mix(qBlue(cover), qBlue(color)), 255);
}

}  // namespace

// Pixels along the axis in which a line is longer, and where they lie in the other.
struct ThinLines::Run {
  bool isSteep = false;
  int from = 0;
  int to = 0;
  // In parts of a pixel; at `from`, and for each further one.
  qint64 start = 0;
  qint64 step = 0;
  int width = 1;

  int MinorAt(int along) const {
    return static_cast<int>((start + (along - from) * step) >> 16) - (width - 1) / 2;
  }
};

ThinLines::ThinLines(QImage& picture, QPointF origin)
    // Its pixels are written in place: a painter is at work on the picture, too.
    : pixels_(reinterpret_cast<QRgb*>(picture.bits())),
      stride_(static_cast<int>(picture.bytesPerLine() / 4)),
      whole_(picture.rect()),
      area_(whole_),
      origin_(origin),
      columns_(TilesFor(picture.width())) {
  const int rows = TilesFor(picture.height());
  free_.reserve(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns_; ++column) {
      free_.push_back(std::min(kTile, picture.width() - column * kTile) *
                      std::min(kTile, picture.height() - row * kTile));
    }
  }
}

void ThinLines::SetArea(const QRectF& area) {
  area_ = area.translated(-origin_).toAlignedRect().intersected(whole_);
}

int ThinLines::FreeAt(int x, int y) const {
  return free_[static_cast<std::size_t>(y >> kTileBits) * static_cast<std::size_t>(columns_) +
               static_cast<std::size_t>(x >> kTileBits)];
}

int& ThinLines::FreeAt(int x, int y) {
  return free_[static_cast<std::size_t>(y >> kTileBits) * static_cast<std::size_t>(columns_) +
               static_cast<std::size_t>(x >> kTileBits)];
}

bool ThinLines::IsHidden(const QRectF& box) const {
  const QRect pixels = box.translated(-origin_).toAlignedRect().intersected(area_);
  if (pixels.isEmpty() || TilesFor(pixels.width()) * TilesFor(pixels.height()) > kMostTiles) {
    return false;
  }
  for (int y = pixels.top() & ~(kTile - 1); y <= pixels.bottom(); y += kTile) {
    for (int x = pixels.left() & ~(kTile - 1); x <= pixels.right(); x += kTile) {
      if (FreeAt(x, y) > 0) {
        return false;
      }
    }
  }
  return true;
}

void ThinLines::Draw(QPointF a, QPointF b, QRgb color, int width) {
  a -= origin_;
  b -= origin_;
  const QRectF room(area_);
  const double rim = width;
  if (area_.isEmpty() || !ClipSegment(a, b, room.adjusted(-rim, -rim, rim, rim))) {
    return;
  }
  if (!std::isfinite(a.x() + a.y() + b.x() + b.y())) {
    return;
  }
  Run run;
  run.width = std::max(1, width);
  run.isSteep = std::abs(b.y() - a.y()) > std::abs(b.x() - a.x());
  if (run.isSteep) {
    a = a.transposed();
    b = b.transposed();
  }
  if (a.x() > b.x()) {
    std::swap(a, b);
  }
  const int low = run.isSteep ? area_.top() : area_.left();
  const int high = run.isSteep ? area_.bottom() : area_.right();
  run.from = std::max(low, static_cast<int>(std::floor(a.x())));
  run.to = std::min(high, static_cast<int>(std::floor(b.x())));
  const double slope = b.x() > a.x() ? (b.y() - a.y()) / (b.x() - a.x()) : 0;
  // In the middle of the first pixel, but not beyond the line's own ends.
  const double along = std::clamp(run.from + 0.5, a.x(), std::max(a.x(), b.x()));
  run.start = std::llround((a.y() + (along - a.x()) * slope) * kFixed);
  run.step = std::llround(slope * kFixed);
  DrawRun(run, color);
}

// Whether the tiles between two pixels of a run have no room left.
bool ThinLines::IsFull(const Run& run, int from, int to) const {
  const int first = run.MinorAt(from);
  const int last = run.MinorAt(to);
  const int low = run.isSteep ? area_.left() : area_.top();
  const int high = run.isSteep ? area_.right() : area_.bottom();
  const int begin = std::clamp(std::min(first, last), low, high) & ~(kTile - 1);
  const int end = std::clamp(std::max(first, last) + run.width - 1, low, high);
  for (int minor = begin; minor <= end; minor += kTile) {
    if ((run.isSteep ? FreeAt(minor, from) : FreeAt(from, minor)) > 0) {
      return false;
    }
  }
  return true;
}

void ThinLines::DrawRun(const Run& run, QRgb color) {
  const int low = run.isSteep ? area_.left() : area_.top();
  const int high = run.isSteep ? area_.right() : area_.bottom();
  for (int from = run.from; from <= run.to;) {
    const int to = std::min(run.to, from | (kTile - 1));
    if (!IsFull(run, from, to)) {
      for (int along = from; along <= to; ++along) {
        const int minor = run.MinorAt(along);
        for (int at = std::max(low, minor); at <= std::min(high, minor + run.width - 1); ++at) {
          run.isSteep ? Paint(at, along, color) : Paint(along, at, color);
        }
      }
    }
    from = to + 1;
  }
}

void ThinLines::Paint(int x, int y, QRgb color) {
  QRgb& pixel = pixels_[static_cast<std::ptrdiff_t>(y) * stride_ + x];
  if (qAlpha(pixel) == 255) {
    return;
  }
  pixel = pixel == 0 ? color : Under(pixel, color);
  --FreeAt(x, y);
}

bool ClipSegment(QPointF& a, QPointF& b, const QRectF& box) {
  double from = 0;
  double to = 1;
  const QPointF way = b - a;
  const auto cut = [&](double p, double q) {
    if (p == 0) {
      return q >= 0;
    }
    const double r = q / p;
    (p < 0 ? from : to) = p < 0 ? std::max(from, r) : std::min(to, r);
    return from <= to;
  };
  if (!cut(-way.x(), a.x() - box.left()) || !cut(way.x(), box.right() - a.x()) ||
      !cut(-way.y(), a.y() - box.top()) || !cut(way.y(), box.bottom() - a.y())) {
    return false;
  }
  const QPointF start = a;
  a = start + way * from;
  b = start + way * to;
  return true;
}

}  // namespace preview
