// Texts as outlines: the fragments' HTML through QTextDocument, with what HTML
// cannot carry applied on top.
//
// Results are in drawing units with Y up, unrotated; heights are heights of
// capital letters. Colours of the text's own are in its parts. May be used from
// any thread.
#pragma once

#include <QJsonArray>
#include <QString>

#include <string_view>
#include <vector>

#include "scene/scene.hpp"

namespace preview {

struct TextSource {
  QString html;
  QString family = {};
  double height = 0;
  // Of the frame; 0 for text that does not wrap.
  double width = 0;
  // As the keys of MTEXT records.
  QJsonArray runs = {};
  QJsonArray blocks = {};
  // For paragraphs without an alignment of their own.
  Qt::Alignment alignment = Qt::AlignLeft;
  // Of characters over their normal width, and their slant to the right.
  double widthFactor = 1;
  double obliqueRad = 0;
  // Factor to the distance of lines.
  double lineSpacing = 1;
  // Lines go on in the next column where one is full. Empty for a single column;
  // the last column takes what is left.
  std::vector<double> columnHeights = {};
  double columnGutter = 0;
  // Which letters N of the fragment, counted from 0, are codes that end a column.
  std::vector<int> columnBreaks = {};
  // A bar for each line instead of letters: outlines of a great many letters would
  // exhaust the memory.
  bool asBars = false;
  // Of fractions and tolerances beside the line's capitals: 0 bottom, 1 middle, 2 top.
  int stackAlignment = 0;
};

struct TextLayout {
  // The origin is the left end of the first baseline.
  std::vector<Part> parts;
  // Of the frame, or of the longest line when the text does not wrap.
  double width = 0;
  // From the top of the first line's capitals to the last baseline.
  double height = 0;
  // Of the first line's capitals.
  double ascent = 0;
  double descent = 0;
};

// Nothing for a text without height.
TextLayout LayOutText(const TextSource& source);

// About as large as a text will be, from its fragment in UTF-8, which may have the
// escapes of JSON.
struct TextMeasure {
  double height = 0;
  // Of the frame; 0 for text that does not wrap.
  double frame = 0;
  double factor = 1;
  double spacing = 1;
};
struct TextExtent {
  double width = 0;
  // From the top of the first line's capitals to the last baseline.
  double height = 0;
  // Of each line.
  std::vector<double> widths = {};
};
TextExtent GuessExtent(std::string_view html, const TextMeasure& measure);

// The column breaks and the alignment of stacks in the codes of a multi-line text,
// as TextSource has them.
std::vector<int> ColumnBreaksOf(const QString& codes);
int StackAlignmentOf(const QString& codes);

// A plain text as a fragment of one paragraph a line.
QString HtmlOfPlainText(const QString& text);

// Moves and stretches a single-line text as its record says: alignment codes,
// alignment point, rotation.
QTransform PlaceSingleLine(const TextLayout& layout, const QJsonObject& record);

// Moves a multi-line text so that its attachment point (1 to 9, by rows from
// the top left) lies at the record's position, and rotates it.
QTransform PlaceMultiLine(const TextLayout& layout, const QJsonObject& record);

// From a text's own coordinates: rotated about `at`, moved before by `shift`.
QTransform PlaceText(QPointF at, double rotation, QPointF shift);

// Of a multi-line text by its attachment point; `ascent` is that of its first line.
QPointF ShiftOfAttachment(int attachment, QSizeF size, double ascent);

// Appends the text's parts where a placement puts them.
void AppendPlaced(std::vector<Part>& parts, const TextLayout& layout, const QTransform& place);

// The alignment that an attachment point means.
Qt::Alignment AlignmentOfAttachment(int attachment);

}  // namespace preview
