#include "window/marks.hpp"

#include <QFontMetrics>
#include <QPen>

namespace preview {
namespace {

// Seen on light and dark paper, and on red, green and blue lines.
constexpr QRgb kOutline = qRgb(0xFF, 0x7A, 0x00);
constexpr QRgb kMeasure = qRgb(0xD0, 0x20, 0xC0);
constexpr double kMarkerSize = 6;
constexpr int kNoteRim = 8;

QPen PenOf(QRgb color, double width) {
  QPen pen(QColor(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  pen.setCosmetic(true);
  return pen;
}

// Each kind has a shape of its own, as in other programs.
QPainterPath MarkerOf(SnapKind kind, QPointF at) {
  const double s = kMarkerSize;
  QPainterPath path;
  switch (kind) {
    case SnapKind::kNone: break;
    case SnapKind::kEnd: path.addRect(at.x() - s, at.y() - s, 2 * s, 2 * s); break;
    case SnapKind::kMiddle:
      path.addPolygon(QPolygonF({at + QPointF(0, -s), at + QPointF(s, s), at + QPointF(-s, s)}));
      path.closeSubpath();
      break;
    case SnapKind::kCenter: path.addEllipse(at, s, s); break;
    case SnapKind::kCrossing:
      path.moveTo(at + QPointF(-s, -s));
      path.lineTo(at + QPointF(s, s));
      path.moveTo(at + QPointF(-s, s));
      path.lineTo(at + QPointF(s, -s));
      break;
  }
  return path;
}

void PaintChain(QPainter& painter, const Marks& marks, const QTransform& toDevice) {
  QPolygonF chain;
  for (const Snap& point : marks.points) {
    chain << toDevice.map(point.at);
  }
  painter.setPen(PenOf(kMeasure, 1.5));
  painter.setBrush(QColor(kMeasure));
  for (const QPointF& point : chain) {
    painter.drawEllipse(point, 3, 3);
  }
  if (marks.snap) {
    chain << toDevice.map(marks.snap->at);
  }
  painter.drawPolyline(chain);
}

void PaintNote(QPainter& painter, const QString& note, const QRect& area, bool isDark) {
  const QRect wide = area.adjusted(2 * kNoteRim, 0, -2 * kNoteRim, -2 * kNoteRim);
  QRect text = painter.boundingRect(wide, Qt::AlignLeft | Qt::AlignBottom | Qt::TextWordWrap, note);
  const QRect box = text.adjusted(-kNoteRim, -kNoteRim / 2, kNoteRim, kNoteRim / 2);
  painter.setPen(PenOf(kMeasure, 1));
  painter.setBrush(isDark ? QColor(0, 0, 0, 200) : QColor(255, 255, 255, 225));
  painter.drawRoundedRect(box, 4, 4);
  painter.setPen(isDark ? Qt::white : Qt::black);
  painter.drawText(text, Qt::AlignLeft | Qt::TextWordWrap, note);
}

}  // namespace

QString NameOf(SnapKind kind) {
  switch (kind) {
    case SnapKind::kNone: break;
    case SnapKind::kEnd: return "end";
    case SnapKind::kMiddle: return "middle";
    case SnapKind::kCenter: return "centre";
    case SnapKind::kCrossing: return "intersection";
  }
  return {};
}

void PaintMarks(QPainter& painter, const Marks& marks, const QTransform& toDevice,
                const QRect& area, bool isDark) {
  painter.setRenderHint(QPainter::Antialiasing);
  if (!marks.outline.isEmpty()) {
    QColor halo(kOutline);
    halo.setAlpha(70);
    const QPainterPath outline = toDevice.map(marks.outline);
    painter.strokePath(outline, PenOf(kOutline, 2));
    painter.setPen(QPen(halo, 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(outline);
  }
  PaintChain(painter, marks, toDevice);
  if (marks.snap && marks.snap->kind != SnapKind::kNone) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(PenOf(kMeasure, 2));
    painter.drawPath(MarkerOf(marks.snap->kind, toDevice.map(marks.snap->at)));
  }
  if (!marks.note.isEmpty()) {
    PaintNote(painter, marks.note, area, isDark);
  }
}

}  // namespace preview
