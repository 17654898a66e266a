#include "scene/dimension.hpp"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

#include "model/record.hpp"
#include "scene/curves.hpp"
#include "scene/plane.hpp"
#include "scene/text_layout.hpp"
#include "scene/vectors.hpp"

namespace preview {
namespace {

// Without a style: the height of text in millimetres, if the dimension has room
// for it.
constexpr double kDefaultTextHeight = 2.5;
constexpr double kRoomForText = 0.12;

enum UnitFormat { kScientific = 1, kDecimal, kEngineering, kArchitectural, kFractional, kDesktop };

// Bits of the suppression of zeros in decimals.
constexpr int kDropLeadingZero = 4;
constexpr int kDropTrailingZeros = 8;

QString SuppressZeros(QString text, int bits) {
  if ((bits & kDropTrailingZeros) != 0 && text.contains('.')) {
    text.remove(QRegularExpression("\\.?0+$"));
  }
  if ((bits & kDropLeadingZero) != 0) {
    text.replace(QRegularExpression("^(-?)0\\."), "\\1.");
  }
  return text;
}

int DecimalsOf(const QJsonObject& style) {
  return std::clamp(style["dimDec"].toInt(4), 0, 8);
}

// A number of inches as whole inches and a reduced fraction.
QString FractionalInches(double value, int decimals) {
  const long long denominator = 1LL << std::min(decimals, 8);
  const long long parts = std::llround(value * static_cast<double>(denominator));
  long long numerator = parts % denominator;
  long long below = denominator;
  while (numerator != 0 && numerator % 2 == 0) {
    numerator /= 2;
    below /= 2;
  }
  QString whole = QString::number(parts / denominator);
  if (numerator == 0) {
    return whole;
  }
  const QString fraction = QString("%1/%2").arg(numerator).arg(below);
  return parts / denominator == 0 ? fraction : whole + " " + fraction;
}

QString InchesText(double inches, const QJsonObject& style) {
  return style["dimLUnit"].toInt() == kArchitectural
             ? FractionalInches(inches, DecimalsOf(style))
             : QString::number(inches, 'f', DecimalsOf(style));
}

// Feet and inches. The low two bits say which zeros are shown: 0 neither, 1
// both, 2 feet only, 3 inches only.
QString FeetAndInches(double value, const QJsonObject& style) {
  const int zeros = style["dimZin"].toInt() & 3;
  const double step =
      std::pow(style["dimLUnit"].toInt() == kArchitectural ? 2 : 10, -DecimalsOf(style));
  const double rounded = std::round(value / step) * step;
  const double feet = std::floor(rounded / 12 + 1e-9);
  const double inches = std::max(0.0, rounded - feet * 12);
  QStringList texts;
  if (feet > 0 || zeros == 1 || zeros == 2) {
    texts << QString::number(feet, 'f', 0) + "'";
  }
  if (inches > step / 2 || zeros == 1 || zeros == 3 || texts.isEmpty()) {
    texts << InchesText(inches, style) + "\"";
  }
  return texts.join("-");
}

QString FormatNumber(double value, const QJsonObject& style) {
  switch (style["dimLUnit"].toInt(kDecimal)) {
    case kScientific: return QString::number(value, 'E', DecimalsOf(style));
    case kEngineering:
    case kArchitectural: return FeetAndInches(value, style);
    case kFractional: return FractionalInches(value, DecimalsOf(style));
    default:
      return SuppressZeros(QString::number(value, 'f', DecimalsOf(style)), style["dimZin"].toInt());
  }
}

QString WithPost(const QString& number, const QString& post) {
  if (post.isEmpty()) {
    return number;
  }
  return post.contains("<>") ? QString(post).replace("<>", number) : number + post;
}

// The override's formatting codes, as a reader would say them aloud.
QString WithoutCodes(QString text) {
  text.replace(QRegularExpression("\\\\[PXx]"), "\n");
  text.replace(QRegularExpression("\\\\S([^;^/#]*)[\\^/#]([^;]*);"), "\\1/\\2");
  text.remove(QRegularExpression("\\\\[ACcHQWTfFp][^;]*;"));
  text.remove(QRegularExpression("\\\\[LlOoKk]"));
  text.replace("\\~", " ");
  text.remove(QRegularExpression("(?<!\\\\)[{}]"));
  text.replace(QRegularExpression("\\\\([\\\\{}])"), "\\1");
  text.replace("%%d", QChar(0x00B0), Qt::CaseInsensitive);
  text.replace("%%p", QChar(0x00B1), Qt::CaseInsensitive);
  return text.replace("%%c", QChar(0x2205), Qt::CaseInsensitive);
}

// Where two lines meet; the middle of the first one's ends when they do not.
QPointF Meeting(QPointF a, QPointF along, QPointF b, QPointF other) {
  const double cross = along.x() * other.y() - along.y() * other.x();
  const QPointF way = b - a;
  const double share = (way.x() * other.y() - way.y() * other.x()) / cross;
  return std::isfinite(share) ? a + along * share : a + along / 2;
}

bool IsRadius(const QJsonObject& dimension) {
  return IsType(dimension, "DIMENSION_RADIUS");
}

// The style's own prefix takes the place of the sign.
QString RadiusSign(const QJsonObject& dimension) {
  return IsRadius(dimension) && !dimension["dimPost"].toString().contains("<>") ? "R" : "";
}

// From the first extension line's origin to the second's.
QPointF SpanOf(const QJsonObject& dimension) {
  return PointOf(dimension, "x2", "y2") - PointOf(dimension, "x1", "y1");
}

// What the document says, or the distance when it says nothing.
double MeasurementOf(const QJsonObject& dimension) {
  const double stored = dimension["measurement"].toDouble();
  if (stored > 0) {
    return stored;
  }
  if (IsRadius(dimension)) {
    return Length(PointOf(dimension, "arcX", "arcY") - PointOf(dimension, "defX", "defY"));
  }
  const QPointF span = SpanOf(dimension);
  return dimension.contains("dimRotationRad")
             ? std::abs(Dot(span, DirectionOf(NumberOf(dimension, "dimRotationRad"))))
             : Length(span);
}

class Drafter {
 public:
  Drafter(const QJsonObject& dimension, const Ink& line, const Ink& text)
      : dimension_(dimension),
        line_(line),
        text_(text),
        height_(dimension["textHeight"].toDouble(
            std::min(kDefaultTextHeight, kRoomForText * MeasurementOf(dimension)))),
        arrow_(dimension["arrowSize"].toDouble(height_)) {}

  std::vector<Part> Draw() {
    const QString type = dimension_["type"].toString();
    if (type == QLatin1String("DIMENSION_ANG2LN")) {
      DrawAngleOfLines();
    } else if (type == QLatin1String("DIMENSION_ANG3PT") ||
               type == QLatin1String("ARC_DIMENSION")) {
      DrawAngle(PointAt("center"), PointAt("extensionPoint1"), PointAt("extensionPoint2"));
    } else if (type == QLatin1String("DIMENSION_DIAMETER")) {
      DrawAcross(PointAt("farCurvePoint"), PointAt("curvePoint"), true);
    } else if (type == QLatin1String("LARGE_RADIAL_DIMENSION")) {
      DrawAcross(PointAt("overrideCenter"), PointAt("curvePoint"), false);
    } else if (type == QLatin1String("DIMENSION_ORDINATE")) {
      AddLine(PointAt("featurePoint"), PointAt("leaderEnd"));
      AddText(LayOut(), TextMiddle(PointAt("leaderEnd")), 0);
    } else {
      IsRadius(dimension_) ? DrawRadius() : DrawLinear();
    }
    return std::move(parts_);
  }

 private:
  QPointF PointAt(const char* key) const { return PointFromAbove(dimension_[QLatin1String(key)]); }

  // The sector that the arc lies in is the one that is measured.
  void DrawAngleOfLines() {
    const std::vector<QPointF> first = PointsFromAbove(dimension_["line1"]);
    const std::vector<QPointF> second = PointsFromAbove(dimension_["line2"]);
    if (first.size() != 2 || second.size() != 2) {
      return;
    }
    const QPointF u = first[1] - first[0];
    const QPointF v = second[1] - second[0];
    const QPointF center = Meeting(first[0], u, second[0], v);
    const QPointF arm = PointAt("arcPoint") - center;
    const double cross = u.x() * v.y() - u.y() * v.x();
    const double alongU = (arm.x() * v.y() - arm.y() * v.x()) * cross;
    const double alongV = (u.x() * arm.y() - u.y() * arm.x()) * cross;
    DrawAngle(center, center + (alongU < 0 ? -u : u), center + (alongV < 0 ? -v : v));
  }

  // An arc from one arm to the other, through the arc's point.
  void DrawAngle(QPointF center, QPointF end1, QPointF end2) {
    const QPointF through = PointAt("arcPoint") - center;
    const double radius = Length(through);
    const auto angle = [](QPointF way) { return std::atan2(way.y(), way.x()); };
    const auto turn = [](double from, double to) {
      const double sweep = std::fmod(to - from, 2 * std::numbers::pi);
      return sweep < 0 ? sweep + 2 * std::numbers::pi : sweep;
    };
    double from = angle(end1 - center);
    double to = angle(end2 - center);
    if (turn(from, angle(through)) > turn(from, to)) {
      std::swap(from, to);
      std::swap(end1, end2);
    }
    if (!(radius > 0)) {
      return;
    }
    parts_.push_back({ArcPath(center, radius, from, to), Fill::kNone, line_});
    const QPointF foot1 = center + DirectionOf(from) * radius;
    const QPointF foot2 = center + DirectionOf(to) * radius;
    AddExtension(end1, foot1);
    AddExtension(end2, foot2);
    AddArrow(foot1, -LeftOf(DirectionOf(from)));
    AddArrow(foot2, LeftOf(DirectionOf(to)));
    AddText(LayOut(), TextMiddle(center + DirectionOf((from + to) / 2) * radius), 0);
  }

  void DrawAcross(QPointF from, QPointF to, bool arrowAtStart) {
    const QPointF way = to - from;
    const TextLayout text = LayOut();
    if (Length(way) > 0) {
      AddBroken(from, to, text);
      AddArrow(to, way);
    }
    if (arrowAtStart) {
      AddArrow(from, -way);
    }
    AddText(text, TextMiddle((from + to) / 2), std::atan2(way.y(), way.x()));
  }

  void AddLine(QPointF from, QPointF to) {
    const QPointF ends[] = {from, to};
    parts_.push_back({StraightPath(ends, false), Fill::kNone, line_});
  }

  void AddArrow(QPointF tip, QPointF direction) {
    if (Length(direction) > 0 && arrow_ > 0) {
      parts_.push_back({ArrowPath(tip, direction, arrow_), Fill::kSolid, line_});
    }
  }

  // From its origin over the dimension line, with a gap at the origin.
  void AddExtension(QPointF origin, QPointF foot) {
    const QPointF way = foot - origin;
    const double length = Length(way);
    if (length > height_ / 4) {
      const QPointF unit = way / length;
      AddLine(origin + unit * (height_ / 4), foot + unit * (height_ / 2));
    }
  }

  QPointF Direction() const {
    if (dimension_.contains("dimRotationRad")) {
      return DirectionOf(NumberOf(dimension_, "dimRotationRad"));
    }
    const QPointF span = SpanOf(dimension_);
    return Length(span) > 0 ? span / Length(span) : QPointF(1, 0);
  }

  void DrawLinear() {
    const QPointF along = Direction();
    const QPointF def = PointOf(dimension_, "defX", "defY");
    const QPointF p1 = PointOf(dimension_, "x1", "y1");
    const QPointF p2 = PointOf(dimension_, "x2", "y2");
    const QPointF foot1 = def + along * Dot(p1 - def, along);
    const QPointF foot2 = def + along * Dot(p2 - def, along);
    AddExtension(p1, foot1);
    AddExtension(p2, foot2);
    const TextLayout text = LayOut();
    AddDimensionLine(foot1, foot2, text);
    AddText(text, TextMiddle((foot1 + foot2) / 2), std::atan2(along.y(), along.x()));
  }

  // Arrows inside where there is room for both, else outside with tails.
  void AddDimensionLine(QPointF a, QPointF b, const TextLayout& text) {
    const QPointF way = b - a;
    const double length = Length(way);
    if (!(length > 0)) {
      return;
    }
    const bool inside = length >= 2.5 * arrow_;
    const QPointF outwards = way / length * (inside ? 1 : -1);
    AddArrow(a, -outwards);
    AddArrow(b, outwards);
    if (inside) {
      AddBroken(a, b, text);
      return;
    }
    AddLine(a, b);
    AddLine(a, a + outwards * (2 * arrow_));
    AddLine(b, b - outwards * (2 * arrow_));
  }

  // The line, interrupted where the text stands on it.
  void AddBroken(QPointF a, QPointF b, const TextLayout& text) {
    const QPointF unit = (b - a) / Length(b - a);
    const QPointF middle = TextMiddle((a + b) / 2) - a;
    const double at = Dot(middle, unit);
    const double off = std::abs(Dot(middle, LeftOf(unit)));
    const double half = text.width / 2 + height_ / 3;
    const bool interrupts = !text.parts.empty() && off < 0.6 * text.height && at - half > 0 &&
                            at + half < Length(b - a);
    if (!interrupts) {
      AddLine(a, b);
      return;
    }
    AddLine(a, a + unit * (at - half));
    AddLine(a + unit * (at + half), b);
  }

  void DrawRadius() {
    const QPointF center = PointOf(dimension_, "defX", "defY");
    const QPointF arc = PointOf(dimension_, "arcX", "arcY");
    const QPointF middle = TextMiddle((center + arc) / 2);
    const QPointF outwards = arc - center;
    const bool textInside = Length(middle - center) < Length(outwards);
    const TextLayout text = LayOut();
    AddArrow(arc, textInside ? outwards : -outwards);
    textInside ? AddBroken(center, arc, text) : AddLine(arc, TowardsText(arc, middle, text));
    AddText(text, middle, std::atan2(outwards.y(), outwards.x()));
  }

  // Up to the text's near end.
  QPointF TowardsText(QPointF from, QPointF middle, const TextLayout& text) const {
    const QPointF way = middle - from;
    const double length = Length(way);
    const double rest = length - text.width / 2 - height_ / 3;
    return rest > 0 ? from + way / length * rest : middle;
  }

  // Documents of some drawings have the origin for a text that was never placed.
  QPointF TextMiddle(QPointF otherwise) const {
    const QPointF stored = PointOf(dimension_, "textMidX", "textMidY");
    return stored.isNull() ? otherwise : stored;
  }

  TextLayout LayOut() const {
    // The complete form has the text as the style shows it.
    const QString html = dimension_["html"].toString();
    return LayOutText({.html = html.isEmpty() ? HtmlOfPlainText(DimensionText(dimension_)) : html,
                       .family = dimension_["fontFamily"].toString(),
                       .height = height_,
                       .alignment = Qt::AlignHCenter});
  }

  void AddText(const TextLayout& text, QPointF middle, double angle) {
    if (std::cos(angle) < -1e-6 || (std::abs(std::cos(angle)) <= 1e-6 && std::sin(angle) < 0)) {
      angle += std::numbers::pi;
    }
    QTransform place;
    place.translate(middle.x(), middle.y());
    place.rotateRadians(angle);
    place.translate(-text.width / 2, text.height / 2 - text.ascent);
    const std::size_t first = parts_.size();
    AppendPlaced(parts_, text, place);
    for (Part& part : std::span(parts_).subspan(first)) {
      part.ink = text_;
    }
  }

  const QJsonObject& dimension_;
  Ink line_;
  Ink text_;
  double height_;
  double arrow_;
  std::vector<Part> parts_;
};

}  // namespace

QString FormatMeasurement(double measurement, const QJsonObject& style) {
  double value = measurement * style["dimLFac"].toDouble(1);
  const double step = style["dimRnd"].toDouble();
  if (step > 0) {
    value = std::round(value / step) * step;
  }
  return WithPost(FormatNumber(value, style), style["dimPost"].toString());
}

QString DimensionText(const QJsonObject& dimension) {
  QString measured = RadiusSign(dimension) + FormatMeasurement(MeasurementOf(dimension), dimension);
  const QString given = dimension["userText"].toString();
  if (given.isEmpty()) {
    return measured;
  }
  return given == " " ? QString() : WithoutCodes(QString(given).replace("<>", measured));
}

std::vector<Part> DimensionParts(const QJsonObject& dimension, const Ink& line, const Ink& text) {
  return Drafter(dimension, line, text).Draw();
}

}  // namespace preview
