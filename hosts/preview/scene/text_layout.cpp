#include "scene/text_layout.hpp"

#include <QAbstractTextDocumentLayout>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QHash>
#include <QRawFont>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <limits>

#include "model/record.hpp"
#include "scene/units.hpp"
#include "scene/vectors.hpp"

namespace preview {
namespace {

// Capital letters have this height while a document is laid out, so that
// hinting and rounding to pixels cannot be seen.
constexpr double kCapPixels = 100;
// Between baselines, as a multiple of the line's height.
constexpr double kLineAdvance = 5.0 / 3.0;
// Beyond this a text is no text; its outlines would only cost memory.
constexpr int kMostCharacters = 100000;

// Of the screen. Layouts are made for this resolution, since Qt would scale
// some of their lengths for any other.
double DotsPerInch() {
  static const double dots = [] {
    QFont font;
    font.setPointSizeF(720);
    return QFontInfo(font).pixelSize() / 10.0;
  }();
  return dots;
}

// Sizes go through points, which may be fractional; pixels may not.
double PointsOfPixels(double pixels) {
  return pixels * 72 / DotsPerInch();
}
double PixelsOfPoints(double points) {
  return points * DotsPerInch() / 72;
}

const QImage& LayoutDevice() {
  static const QImage device = [] {
    QImage image(1, 1, QImage::Format_ARGB32);
    const int dotsPerMeter = static_cast<int>(std::lround(DotsPerInch() / 0.0254));
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    return image;
  }();
  return device;
}

// A narrow cut, and the width that Qt gives it: its stretches count from there.
constexpr char kNarrow[] = "DejaVu Sans Condensed";
constexpr double kNarrowStretch = 0.87;

// The font's family, or the narrow cut of a wide one that stands for a family that
// is not there: the fonts of drawings are narrow, and their lines break by that.
QString FamilyAtHand(const QString& family) {
  thread_local QHash<QString, QString> known;
  auto found = known.find(family);
  if (found == known.end()) {
    const QString wanted = family.isEmpty() ? QStringLiteral("Arial") : family;
    const QFontInfo info{QFont(wanted)};
    const bool isStandIn = info.family() == QLatin1String("DejaVu Sans") &&
                           !wanted.startsWith(QLatin1String("DejaVu"));
    found = known.insert(family, isStandIn ? QString(kNarrow) : wanted);
  }
  return found.value();
}

QFont FontOf(const QString& family, double points) {
  QFont font(FamilyAtHand(family));
  font.setPointSizeF(std::max(1.0, points));
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setStyleStrategy(QFont::PreferOutline);
  // CAD programs set letters side by side by their widths alone.
  font.setKerning(false);
  return font;
}

// Height of capitals over the font's size.
double CapRatio(const QString& family) {
  thread_local QHash<QString, double> known;
  auto found = known.find(family);
  if (found == known.end()) {
    const QFontMetricsF metrics(FontOf(family, 1000), &LayoutDevice());
    const double cap = metrics.capHeight() / PixelsOfPoints(1000);
    found = known.insert(family, cap > 0.2 && cap < 1.2 ? cap : 0.7);
  }
  return found.value();
}

double PointsFor(const QString& family, double factor) {
  return PointsOfPixels(kCapPixels * factor / CapRatio(family));
}

QString FamilyOf(const QTextCharFormat& format, const QString& otherwise) {
  const QStringList families = format.fontFamilies().toStringList();
  return families.isEmpty() || families.first().isEmpty() ? otherwise : families.first();
}

// Qt drops empty paragraphs unless they are marked as its own; kept, they count
// in positions and paragraph numbers as the worker counts them.
QString WithEmptyParagraphs(QString html) {
  return html.replace(QLatin1String("<p></p>"),
                      QLatin1String("<p style=\"-qt-paragraph-type:empty;\"><br /></p>"));
}

// While the HTML is read, a size of this many points is the text's own height:
// Qt's parser of style sheets rounds sizes to whole points, and drawings hold
// sizes of a hundredth of one.
constexpr double kOwnSizePoints = 1000;

// Sizes in the fragment are drawing units / 25.4. Beyond the bounds a size
// would draw nothing but exhaust the memory.
QString WithRelativeSizes(const QString& html, double height) {
  static const QRegularExpression size("font-size:([0-9.]+)pt");
  QString out;
  qsizetype from = 0;
  for (const QRegularExpressionMatch& match : size.globalMatch(html)) {
    const double factor =
        std::clamp(match.captured(1).toDouble() * kMillimetresPerInch / height, 0.02, 50.0);
    out += html.mid(from, match.capturedStart() - from) +
           QString("font-size:%1pt").arg(std::lround(factor * kOwnSizePoints));
    from = match.capturedEnd();
  }
  return out + html.mid(from);
}

// Two texts one over the other: a fraction with a line between them, or tolerances
// without one. Either may be empty.
struct Stack {
  QString over;
  QString under;
  bool hasLine = false;
  QTextCharFormat format;
};

// The place of a stack's character in the document, and how many it has there.
struct StackPlace {
  int start = 0;
  int length = 0;
  Stack stack;
};

// Between a stack's texts and the line that parts them, in heights of capitals.
constexpr double kStackGap = 0.2;

// Of the format of a character that stands for a stack: its index.
constexpr int kStackProperty = QTextFormat::UserProperty;
// Of the format of a paragraph that begins a column.
constexpr int kColumnProperty = QTextFormat::UserProperty + 1;

bool IsRaised(const QTextCharFormat& format) {
  return format.verticalAlignment() == QTextCharFormat::AlignSuperScript;
}

bool IsLowered(const QTextCharFormat& format) {
  return format.verticalAlignment() == QTextCharFormat::AlignSubScript;
}

class Composer {
 public:
  explicit Composer(const TextSource& source) : source_(source) {}

  TextLayout Compose() {
    Fill();
    ScaleFonts();
    ApplyRuns();
    ApplyBlocks();
    // From here on positions are no longer those that the worker counts.
    PlaceStacks();
    BreakColumns();
    SetWidth();
    return Outline();
  }

 private:
  // Of a pixel, upwards and along the line.
  double Unit() const { return source_.height / kCapPixels; }
  double UnitAlong() const { return Unit() * WidthFactor(); }

  double WidthFactor() const {
    const double factor = source_.widthFactor;
    return std::isfinite(factor) && factor > 0 ? factor : 1;
  }

  void Fill() {
    document_.documentLayout()->setPaintDevice(const_cast<QImage*>(&LayoutDevice()));
    document_.setUndoRedoEnabled(false);
    document_.setDocumentMargin(0);
    document_.setDefaultFont(FontOf(source_.family, PointsFor(source_.family, 1)));
    // CAD text that is wider than its frame runs over it; words are not broken.
    QTextOption option = document_.defaultTextOption();
    option.setWrapMode(QTextOption::WordWrap);
    document_.setDefaultTextOption(option);
    document_.setDefaultStyleSheet("p { margin: 0; white-space: pre-wrap; }");
    document_.setHtml(
        WithRelativeSizes(WithEmptyParagraphs(source_.html.left(kMostCharacters)), source_.height));
  }

  void ScaleFonts() {
    struct Piece {
      int start = 0;
      int length = 0;
      double points = 0;
      QString family;
    };
    std::vector<Piece> pieces;
    for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
      for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const QTextCharFormat format = fragment.charFormat();
        pieces.push_back({fragment.position(), fragment.length(), PointsOf(format),
                          FamilyAtHand(FamilyOf(format, source_.family))});
      }
    }
    for (const Piece& piece : pieces) {
      QTextCharFormat format;
      format.setFontPointSize(piece.points);
      format.setFontFamilies(QStringList(piece.family));
      Merge(piece.start, piece.length, format);
    }
  }

  double PointsOf(const QTextCharFormat& format) const {
    const double factor = format.hasProperty(QTextFormat::FontPointSize)
                              ? format.fontPointSize() / kOwnSizePoints
                              : 1;
    return PointsFor(FamilyOf(format, source_.family), factor);
  }

  void Merge(int start, int length, const QTextCharFormat& format) {
    const int end = document_.characterCount() - 1;
    QTextCursor cursor(&document_);
    cursor.setPosition(std::clamp(start, 0, end));
    cursor.setPosition(std::clamp(start + length, 0, end), QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(format);
  }

  // Of two runs of a kind over the same characters the later start is meant.
  void ApplyRuns() {
    std::vector<QJsonObject> runs;
    for (const auto& run : source_.runs) {
      runs.push_back(run.toObject());
    }
    std::stable_sort(runs.begin(), runs.end(), [](const QJsonObject& a, const QJsonObject& b) {
      return a["start"].toInt() < b["start"].toInt();
    });
    for (const QJsonObject& run : runs) {
      Merge(run["start"].toInt(), run["length"].toInt(), FormatOfRun(run));
    }
  }

  QTextCharFormat FormatOfRun(const QJsonObject& run) const {
    QTextCharFormat format;
    if (run.contains("stretch")) {
      const double width = FamilyAtHand(source_.family) == kNarrow ? kNarrowStretch : 1;
      // It takes the place of the style's width, by which all is drawn.
      const double stretch = run["stretch"].toInt() * width / WidthFactor();
      format.setFontStretch(std::clamp(qRound(stretch), 1, 4000));
    }
    if (run.contains("tracking")) {
      format.setFontLetterSpacingType(QFont::PercentageSpacing);
      format.setFontLetterSpacing(run["tracking"].toInt());
    }
    if (run["fixedPitch"].toBool()) {
      format.setFontFixedPitch(true);
    }
    return format;
  }

  void ApplyBlocks() {
    for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
      QTextBlockFormat format;
      format.setAlignment(source_.alignment);
      QTextCursor(block).mergeBlockFormat(format);
    }
    for (const auto& value : source_.blocks) {
      const QJsonObject record = value.toObject();
      const QTextBlock block = document_.findBlockByNumber(record["index"].toInt());
      if (block.isValid()) {
        QTextCursor(block).mergeBlockFormat(FormatOfBlock(record));
      }
    }
  }

  QTextBlockFormat FormatOfBlock(const QJsonObject& record) const {
    QTextBlockFormat format;
    if (record.contains("alignment")) {
      format.setAlignment(AlignmentOf(record["alignment"].toString()));
    }
    if (record.contains("textIndent")) {
      format.setTextIndent(record["textIndent"].toDouble() / UnitAlong());
    }
    if (record.contains("leftMargin")) {
      format.setLeftMargin(record["leftMargin"].toDouble() / UnitAlong());
    }
    if (record.contains("rightMargin")) {
      format.setRightMargin(record["rightMargin"].toDouble() / UnitAlong());
    }
    if (record.contains("tabStops")) {
      format.setTabPositions(TabsOf(record["tabStops"].toArray()));
    }
    return format;
  }

  QList<QTextOption::Tab> TabsOf(const QJsonArray& stops) const {
    QList<QTextOption::Tab> tabs;
    for (const auto& stop : stops) {
      tabs.append({stop.toDouble() / UnitAlong(), QTextOption::LeftTab});
    }
    return tabs;
  }

  Qt::Alignment AlignmentOf(const QString& code) const {
    if (code == QLatin1String("l")) {
      return Qt::AlignLeft;
    }
    if (code == QLatin1String("r")) {
      return Qt::AlignRight;
    }
    if (code == QLatin1String("c")) {
      return Qt::AlignHCenter;
    }
    const bool justified = code == QLatin1String("j") || code == QLatin1String("d");
    return justified ? Qt::AlignJustify : source_.alignment;
  }

  // Alignment needs a width, so text that does not wrap gets its own.
  void SetWidth() {
    document_.setTextWidth(source_.width > 0 ? source_.width / UnitAlong() : -1);
    if (source_.width <= 0) {
      document_.setTextWidth(std::ceil(document_.idealWidth()) + 1);
    }
  }

  TextLayout Outline() {
    TextLayout layout;
    layout.width = source_.width > 0 ? source_.width : document_.idealWidth() * UnitAlong();
    double baseline = 0;
    double lowest = 0;
    bool first = true;
    for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
      const QRectF area = document_.documentLayout()->blockBoundingRect(block);
      for (int i = 0; i < block.layout()->lineCount(); ++i) {
        const QTextLine line = block.layout()->lineAt(i);
        const double cap = CapOf(block, line);
        (first ? layout.ascent : baseline) +=
            first ? cap * Unit() : cap * kLineAdvance * source_.lineSpacing;
        first = false;
        const bool isBroken = i == 0 && block.blockFormat().boolProperty(kColumnProperty);
        if (isBroken || IsColumnFull(layout.ascent + baseline * Unit())) {
          lowest = std::max(lowest, baseline);
          baseline = 0;
          ++column_;
        }
        AddLine(layout, block, line, area.left() + ColumnShift(), baseline);
      }
    }
    baseline = std::max(lowest, baseline);
    layout.width += ColumnShift() * UnitAlong();
    layout.descent = QFontMetricsF(document_.defaultFont(), &LayoutDevice()).descent() * Unit();
    layout.height = layout.ascent + baseline * Unit();
    return layout;
  }

  // Whether a line whose baseline lies that deep below the column's top belongs
  // into the next column.
  bool IsColumnFull(double depth) const {
    return column_ + 1 < source_.columnHeights.size() &&
           depth > source_.columnHeights[column_] * (1 + 1e-6);
  }

  // In pixels.
  double ColumnShift() const {
    return static_cast<double>(column_) * (source_.width + source_.columnGutter) / UnitAlong();
  }

  // The height of the line's largest capitals, in pixels.
  double CapOf(const QTextBlock& block, const QTextLine& line) const {
    double cap = 0;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragment = it.fragment();
      const int start = fragment.position() - block.position();
      if (start < line.textStart() + line.textLength() &&
          start + fragment.length() > line.textStart()) {
        const QTextCharFormat format = fragment.charFormat();
        cap = std::max(cap, PixelsOfPoints(format.fontPointSize()) *
                                CapRatio(FamilyOf(format, source_.family)));
      }
    }
    return cap > 0 ? cap : kCapPixels;
  }

  // Raised text, and lowered text behind it, become one character each. A line
  // between them comes as a slash of its own.
  void PlaceStacks() {
    std::vector<StackPlace> places;
    for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
      std::vector<QTextFragment> fragments;
      for (auto it = block.begin(); !it.atEnd(); ++it) {
        fragments.push_back(it.fragment());
      }
      for (std::size_t i = 0; i < fragments.size(); ++i) {
        const QTextCharFormat format = fragments[i].charFormat();
        if (IsRaised(format) || IsLowered(format)) {
          places.push_back(StackAt(fragments, i));
        }
      }
    }
    // From the end, so that the places before stay where they are.
    std::reverse(places.begin(), places.end());
    for (const StackPlace& place : places) {
      Replace(place);
    }
  }

  // Moves on to the last fragment of the stack.
  static StackPlace StackAt(const std::vector<QTextFragment>& fragments, std::size_t& i) {
    StackPlace place{.start = fragments[i].position(), .length = 0, .stack = {}};
    place.stack.format = fragments[i].charFormat();
    if (IsLowered(place.stack.format)) {
      place.stack.under = fragments[i].text();
    } else {
      place.stack.over = fragments[i].text();
      const bool slash = i + 1 < fragments.size() && fragments[i + 1].text() == QLatin1String("/");
      const std::size_t next = i + (slash ? 2 : 1);
      if (next < fragments.size() && IsLowered(fragments[next].charFormat())) {
        place.stack.hasLine = slash;
        place.stack.under = fragments[next].text();
        i = next;
      }
    }
    place.length = fragments[i].position() + fragments[i].length() - place.start;
    return place;
  }

  // By a picture as wide as the stack, which nobody paints.
  void Replace(const StackPlace& place) {
    QTextImageFormat format;
    format.setWidth(
        std::max(WidthOf(place.stack, place.stack.over), WidthOf(place.stack, place.stack.under)));
    format.setHeight(1);
    format.setProperty(kStackProperty, static_cast<int>(stacks_.size()));
    stacks_.push_back(place.stack);
    QTextCursor cursor(&document_);
    cursor.setPosition(place.start);
    cursor.setPosition(place.start + place.length, QTextCursor::KeepAnchor);
    cursor.insertImage(format);
  }

  QFont FontOfStack(const Stack& stack) const {
    QFont font = FontOf(FamilyOf(stack.format, source_.family), stack.format.fontPointSize());
    font.setItalic(stack.format.fontItalic());
    if (stack.format.hasProperty(QTextFormat::FontWeight)) {
      font.setWeight(static_cast<QFont::Weight>(stack.format.fontWeight()));
    }
    if (stack.format.hasProperty(QTextFormat::FontStretch)) {
      font.setStretch(stack.format.fontStretch());
    }
    return font;
  }

  // One of its texts as a single line.
  static void LayOutLine(QTextLayout& layout) {
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
  }

  double WidthOf(const Stack& stack, const QString& text) const {
    QTextLayout layout(text, FontOfStack(stack), &LayoutDevice());
    LayOutLine(layout);
    return layout.lineCount() > 0 ? layout.lineAt(0).naturalTextWidth() : 0;
  }

  // On a baseline, Y down.
  void AddStackText(QPainterPath& outline, const Stack& stack, const QString& text,
                    QPointF at) const {
    QTextLayout layout(text, FontOfStack(stack), &LayoutDevice());
    LayOutLine(layout);
    QPainterPath glyphs;
    for (const QGlyphRun& run : layout.glyphRuns()) {
      AddGlyphs(glyphs, run);
    }
    const double ascent = layout.lineCount() > 0 ? layout.lineAt(0).ascent() : 0;
    outline.addPath(glyphs.translated(at - QPointF(0, ascent)));
  }

  // At the left end of its baseline, in pixels; `cap` is the line's own height.
  void AddStack(TextLayout& layout, const Stack& stack, QPointF at, double cap) const {
    const double own = PixelsOfPoints(stack.format.fontPointSize()) *
                       CapRatio(FamilyOf(stack.format, source_.family));
    const double gap = kStackGap * own;
    const double rise = (cap - 2 * own - 2 * gap) * source_.stackAlignment / 2;
    const double over = WidthOf(stack, stack.over);
    const double under = WidthOf(stack, stack.under);
    const double wider = std::max(over, under);
    const auto inset = [&](double width) { return stack.hasLine ? (wider - width) / 2 : 0; };
    QPainterPath outline;
    outline.setFillRule(Qt::WindingFill);
    AddStackText(outline, stack, stack.over, {inset(over), -rise - own - 2 * gap});
    AddStackText(outline, stack, stack.under, {inset(under), -rise});
    if (stack.hasLine) {
      const double thickness = own / 20;
      outline.addRect(0, -rise - own - gap - thickness / 2, wider, thickness);
    }
    const QTransform place(UnitAlong(), 0, 0, -Unit(), at.x() * UnitAlong(), at.y() * Unit());
    layout.parts.push_back({place.map(outline), Fill::kSolid, InkOf(stack.format)});
  }

  // The fragment has the code that ends a column as the letter N. What follows it
  // begins a paragraph and a column.
  void BreakColumns() {
    const QString text = document_.toPlainText();
    std::vector<int> places;
    int letters = 0;
    std::size_t next = 0;
    for (qsizetype i = 0; i < text.size() && next < source_.columnBreaks.size(); ++i) {
      if (text[i] == 'N' && letters++ == source_.columnBreaks[next]) {
        places.push_back(static_cast<int>(i));
        ++next;
      }
    }
    std::reverse(places.begin(), places.end());
    for (const int place : places) {
      BreakColumnAt(place);
    }
  }

  void BreakColumnAt(int position) {
    QTextCursor cursor(&document_);
    cursor.setPosition(position);
    cursor.deleteChar();
    if (cursor.atEnd()) {
      return;
    }
    // A paragraph that begins here already needs no other one.
    if (cursor.atBlockEnd()) {
      cursor.movePosition(QTextCursor::NextBlock);
    } else if (!cursor.atBlockStart()) {
      cursor.insertBlock();
    }
    QTextBlockFormat format;
    format.setProperty(kColumnProperty, true);
    cursor.mergeBlockFormat(format);
  }

  // Glyphs of the line with Qt's line positions replaced by our baseline.
  void AddLine(TextLayout& layout, const QTextBlock& block, const QTextLine& line, double left,
               double baseline) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextFragment fragment = it.fragment();
      const int start = std::max(fragment.position() - block.position(), line.textStart());
      const int end = std::min(fragment.position() - block.position() + fragment.length(),
                               line.textStart() + line.textLength());
      if (start >= end) {
        continue;
      }
      const QTextCharFormat format = fragment.charFormat();
      if (format.hasProperty(kStackProperty)) {
        AddStack(layout, stacks_[static_cast<std::size_t>(format.intProperty(kStackProperty))],
                 {left + line.cursorToX(start), -baseline}, CapOf(block, line));
        continue;
      }
      const QTransform place(UnitAlong(), 0, 0, -Unit(), left * UnitAlong(),
                             (line.y() + line.ascent() - baseline) * Unit());
      AddRuns(layout, line.glyphRuns(start, end - start), format, place);
    }
  }

  static void AddRuns(TextLayout& layout, const QList<QGlyphRun>& runs,
                      const QTextCharFormat& format, const QTransform& place) {
    QPainterPath outline;
    outline.setFillRule(Qt::WindingFill);
    for (const QGlyphRun& run : runs) {
      AddGlyphs(outline, run);
    }
    if (!outline.isEmpty()) {
      layout.parts.push_back({place.map(outline), Fill::kSolid, InkOf(format)});
    }
  }

  static void AddGlyphs(QPainterPath& outline, const QGlyphRun& run) {
    const QRawFont font = run.rawFont();
    const auto glyphs = run.glyphIndexes();
    const auto positions = run.positions();
    for (qsizetype i = 0; i < glyphs.size(); ++i) {
      outline.addPath(font.pathForGlyph(glyphs[i]).translated(positions[i]));
    }
    if (!positions.isEmpty()) {
      AddRules(outline, run, font);
    }
  }

  // Lines under, over and through the text.
  static void AddRules(QPainterPath& outline, const QGlyphRun& run, const QRawFont& font) {
    const double left = run.boundingRect().left();
    const double width = run.boundingRect().width();
    const double y = run.positions().constFirst().y();
    const double thickness = std::max(font.lineThickness(), 1.0);
    const auto rule = [&](double at) { outline.addRect(left, y + at, width, thickness); };
    if (run.underline()) {
      rule(font.underlinePosition());
    }
    if (run.overline()) {
      rule(-font.ascent());
    }
    if (run.strikeOut()) {
      rule(-font.xHeight() / 2);
    }
  }

  // White is what the fragment has for the colour that is white on dark.
  static std::optional<Ink> InkOf(const QTextCharFormat& format) {
    if (!format.hasProperty(QTextFormat::ForegroundBrush)) {
      return std::nullopt;
    }
    const QRgb color = format.foreground().color().rgb();
    return Ink{.foreground = (color & 0xFFFFFFU) == 0xFFFFFFU, .rgba = color};
  }

  const TextSource& source_;
  QTextDocument document_;
  std::vector<Stack> stacks_;
  std::size_t column_ = 0;
};

// To the right about the baseline.
void Slant(TextLayout& layout, double obliqueRad) {
  // Beyond this a slant has no end.
  constexpr double kSteepest = 1.48;
  const double slant = std::tan(std::clamp(obliqueRad, -kSteepest, kSteepest));
  if (slant == 0) {
    return;
  }
  for (Part& part : layout.parts) {
    part.path = QTransform(1, 0, slant, 1, 0, 0).map(part.path);
  }
}

// Of a letter, in heights of capitals.
constexpr double kMeanAdvance = 0.8;

// About where the lines would be: only their lengths are guessed.
TextLayout Bars(const TextSource& source) {
  const QByteArray html = source.html.left(kMostCharacters).toUtf8();
  const TextExtent extent = GuessExtent({html.constData(), static_cast<std::size_t>(html.size())},
                                        {.height = source.height,
                                         .frame = source.width,
                                         .factor = source.widthFactor > 0 ? source.widthFactor : 1,
                                         .spacing = source.lineSpacing});
  TextLayout layout;
  layout.width = extent.width;
  layout.height = extent.height;
  layout.ascent = source.height;
  QPainterPath bars;
  double baseline = 0;
  for (const double width : extent.widths) {
    bars.addRect(0, -baseline, width, source.height);
    baseline += source.height * kLineAdvance * source.lineSpacing;
  }
  layout.parts.push_back({bars, Fill::kPattern, std::nullopt});
  return layout;
}

// How many characters the lines of a fragment have; a paragraph is a line.
std::vector<std::size_t> LengthsOfLines(std::string_view html) {
  std::vector<std::size_t> lengths;
  std::size_t length = 0;
  std::size_t at = 0;
  while (at < html.size()) {
    const std::size_t end = html[at] == '<' ? html.find('>', at) : std::string_view::npos;
    if (end == std::string_view::npos) {
      // Bytes behind the first one of a character do not count.
      length += (static_cast<unsigned char>(html[at]) & 0xC0U) != 0x80U ? 1U : 0U;
      ++at;
      continue;
    }
    if (html.substr(at, 3) == "</p" || html.substr(at, 3) == "<br") {
      lengths.push_back(length);
      length = 0;
    }
    at = end + 1;
  }
  if (length > 0 || lengths.empty()) {
    lengths.push_back(length);
  }
  return lengths;
}

double HorizontalShare(int halign) {
  switch (halign) {
    case 1:
    case 4: return 0.5;
    case 2: return 1;
    default: return 0;
  }
}

double VerticalShift(const TextLayout& layout, int halign, int valign) {
  if (halign == 4 || valign == 2) {
    return -layout.ascent / 2;
  }
  if (valign == 3) {
    return -layout.ascent;
  }
  return valign == 1 ? layout.descent : 0;
}

// Between two points: the text's direction and length are theirs.
QTransform PlaceBetween(const TextLayout& layout, const QJsonObject& record, bool keepHeight) {
  QPointF from = PointOf(record, "x", "y");
  QPointF to = PointOf(record, "ax", "ay");
  const bool backwards = record["mirroredX"].toBool();
  if (backwards) {
    std::swap(from, to);
  }
  const QPointF along = to - from;
  const double length = Length(along);
  const double factor = layout.width > 0 && length > 0 ? length / layout.width : 1;
  QTransform place;
  place.translate(from.x(), from.y());
  place.rotateRadians(std::atan2(along.y(), along.x()));
  place.scale(factor, keepHeight ? 1 : factor);
  place.scale(1, record["mirroredY"].toBool() != backwards ? -1 : 1);
  return place;
}

QTransform PlaceAt(const QJsonObject& record, QPointF at, QPointF shift) {
  const double x = record["mirroredX"].toBool() ? -1 : 1;
  const double y = record["mirroredY"].toBool() ? -1 : 1;
  return QTransform::fromTranslate(shift.x(), shift.y()) * QTransform::fromScale(x, y) *
         PlaceText(at, record["rotationRad"].toDouble(), {});
}

}  // namespace

TextLayout LayOutText(const TextSource& source) {
  if (!(source.height > 0) || !std::isfinite(source.height)) {
    return {};
  }
  if (source.asBars) {
    return Bars(source);
  }
  TextLayout layout = Composer(source).Compose();
  Slant(layout, source.obliqueRad);
  return layout;
}

TextExtent GuessExtent(std::string_view html, const TextMeasure& measure) {
  const double frame = measure.frame > 0 ? measure.frame : std::numeric_limits<double>::infinity();
  const double advance = kMeanAdvance * measure.height * measure.factor;
  TextExtent extent;
  for (const std::size_t length : LengthsOfLines(html.substr(0, kMostCharacters))) {
    double rest = static_cast<double>(length) * advance;
    do {
      extent.widths.push_back(std::min(rest, frame));
      extent.width = std::max(extent.width, extent.widths.back());
      rest -= frame;
    } while (rest > 0 && extent.widths.size() < kMostCharacters / 5);
  }
  const auto lines = static_cast<double>(extent.widths.size());
  extent.height = measure.height * (1 + (lines - 1) * kLineAdvance * measure.spacing);
  return extent;
}

std::vector<int> ColumnBreaksOf(const QString& codes) {
  std::vector<int> breaks;
  int letters = 0;
  for (qsizetype i = 0; i < codes.size(); ++i) {
    if (codes[i] != '\\' || i + 1 == codes.size()) {
      letters += codes[i] == 'N' ? 1 : 0;
      continue;
    }
    const QChar code = codes[++i];
    if (code == 'N') {
      breaks.push_back(letters++);
      continue;
    }
    // The argument of a stack is text; those of the others are not.
    if (QStringLiteral("ACcFfHpQTW").contains(code)) {
      const qsizetype end = codes.indexOf(';', i);
      i = end < 0 ? codes.size() : end;
    }
  }
  return breaks;
}

int StackAlignmentOf(const QString& codes) {
  const qsizetype at = codes.lastIndexOf(QLatin1String("\\A"));
  const QChar value = at >= 0 && at + 2 < codes.size() ? codes[at + 2] : QChar('0');
  return value == '1' || value == '2' ? value.digitValue() : 0;
}

QString HtmlOfPlainText(const QString& text) {
  return "<p>" + text.toHtmlEscaped().replace('\n', "</p><p>") + "</p>";
}

QTransform PlaceSingleLine(const TextLayout& layout, const QJsonObject& record) {
  const QPointF start = PointOf(record, "x", "y");
  const int halign = record["halign"].toInt();
  if (!record.contains("halign")) {
    return PlaceAt(record, start, {});
  }
  const QPointF point = PointOf(record, "ax", "ay");
  if (halign == 3 || halign == 5) {
    return PlaceBetween(layout, record, halign == 5);
  }
  return PlaceAt(record, point,
                 {-layout.width * HorizontalShare(halign),
                  VerticalShift(layout, halign, record["valign"].toInt())});
}

QTransform PlaceMultiLine(const TextLayout& layout, const QJsonObject& record) {
  return PlaceAt(record, PointOf(record, "x", "y"),
                 ShiftOfAttachment(record["attachment"].toInt(1), {layout.width, layout.height},
                                   layout.ascent));
}

QTransform PlaceText(QPointF at, double rotation, QPointF shift) {
  QTransform place;
  place.translate(at.x(), at.y());
  place.rotateRadians(rotation);
  place.translate(shift.x(), shift.y());
  return place;
}

QPointF ShiftOfAttachment(int attachment, QSizeF size, double ascent) {
  const int place = std::clamp(attachment, 1, 9) - 1;
  return {-size.width() * (place % 3) / 2,
          size.height() * static_cast<int>(place / 3) / 2 - ascent};
}

void AppendPlaced(std::vector<Part>& parts, const TextLayout& layout, const QTransform& place) {
  for (const Part& part : layout.parts) {
    parts.push_back({place.map(part.path), part.fill, part.ink});
  }
}

Qt::Alignment AlignmentOfAttachment(int attachment) {
  switch (attachment % 3) {
    case 2: return Qt::AlignHCenter;
    case 0: return attachment == 0 ? Qt::AlignLeft : Qt::AlignRight;
    default: return Qt::AlignLeft;
  }
}

}  // namespace preview
