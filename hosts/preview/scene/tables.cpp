#include "scene/tables.hpp"

#include <QJsonArray>

#include <algorithm>
#include <cmath>

#include "model/record.hpp"
#include "scene/text_layout.hpp"

namespace preview {
namespace {

// Where rows or columns begin, and where the last one ends.
std::vector<double> EdgesOf(const QJsonArray& sizes) {
  std::vector<double> edges{0};
  for (const auto& size : sizes) {
    edges.push_back(edges.back() + std::max(0.0, size.toDouble()));
  }
  return edges;
}

QTransform PlaceOf(const QJsonObject& record) {
  QTransform place;
  place.translate(NumberOf(record, "x"), NumberOf(record, "y"));
  place.rotateRadians(NumberOf(record, "rotationRad"));
  return place;
}

struct CellRange {
  int row = 0, column = 0, lastRow = 0, lastColumn = 0;

  bool Holds(int otherRow, int otherColumn) const {
    return otherRow >= row && otherRow <= lastRow && otherColumn >= column &&
           otherColumn <= lastColumn;
  }
};

// The cell alone, or the merged one that it begins; nothing for one within.
std::optional<CellRange> RangeOf(const QJsonObject& cell, const QJsonArray& merged) {
  const int row = cell["row"].toInt(-1);
  const int column = cell["column"].toInt(-1);
  for (const auto& value : merged) {
    const QJsonObject record = value.toObject();
    const CellRange range{record["row"].toInt(), record["column"].toInt(),
                          record["lastRow"].toInt(), record["lastColumn"].toInt()};
    if (range.Holds(row, column)) {
      return range.row == row && range.column == column ? std::optional(range) : std::nullopt;
    }
  }
  return CellRange{row, column, row, column};
}

// Rows go down from the table's place.
QRectF BoxOf(const CellRange& range, const std::vector<double>& columns,
             const std::vector<double>& rows) {
  const auto at = [](const std::vector<double>& edges, int index) {
    return edges[static_cast<std::size_t>(
        std::clamp(index, 0, static_cast<int>(edges.size()) - 1))];
  };
  return {QPointF(at(columns, range.column), -at(rows, range.lastRow + 1)),
          QPointF(at(columns, range.lastColumn + 1), -at(rows, range.row))};
}

void AddCellText(std::vector<Part>& parts, const QJsonObject& cell, const QRectF& box,
                 const QTransform& place, const InkOfValue& inkOf) {
  const double height = NumberOf(cell, "textHeight");
  const double gap = height / 2;
  const int alignment = std::clamp(cell["alignment"].toInt(5), 1, 9);
  const TextLayout layout = LayOutText({.html = HtmlOfPlainText(cell["text"].toString()),
                                        .height = height,
                                        .width = std::max(0.0, box.width() - 2 * gap),
                                        .alignment = AlignmentOfAttachment(alignment)});
  const int row = (alignment - 1) / 3;
  const double top = row == 0   ? box.bottom() - gap
                     : row == 1 ? box.center().y() + layout.height / 2
                                : box.top() + gap + layout.height;
  const std::size_t first = parts.size();
  AppendPlaced(parts, layout,
               QTransform::fromTranslate(box.left() + gap, top - layout.ascent) * place);
  if (cell.contains("textColor")) {
    for (std::size_t i = first; i < parts.size(); ++i) {
      parts[i].ink = inkOf(cell["textColor"]);
    }
  }
}

QPainterPath BoxPath(const QRectF& box, const QTransform& place) {
  QPainterPath path;
  path.addRect(box);
  return place.map(path);
}

}  // namespace

std::vector<Part> TableParts(const QJsonObject& record, const InkOfValue& inkOf) {
  const std::vector<double> columns = EdgesOf(record["columnWidths"].toArray());
  const std::vector<double> rows = EdgesOf(record["rowHeights"].toArray());
  const QTransform place = PlaceOf(record);
  std::vector<Part> parts;
  for (const auto& value : record["cells"].toArray()) {
    const QJsonObject cell = value.toObject();
    const std::optional<CellRange> range = RangeOf(cell, record["merged"].toArray());
    if (!range) {
      continue;
    }
    const QRectF box = BoxOf(*range, columns, rows);
    if (cell.contains("background")) {
      parts.push_back({BoxPath(box, place), Fill::kSolid, inkOf(cell["background"])});
    }
    parts.push_back({BoxPath(box, place), Fill::kNone, std::nullopt});
    AddCellText(parts, cell, box, place, inkOf);
  }
  return parts;
}

std::vector<Part> ToleranceParts(const QJsonObject& record) {
  const double height = NumberOf(record, "height");
  const QTransform place = PlaceOf(record);
  std::vector<Part> parts;
  double top = height;
  for (const auto& row : record["rows"].toArray()) {
    double left = 0;
    for (const auto& cell : row.toArray()) {
      const TextLayout layout =
          LayOutText({.html = HtmlOfPlainText(cell.toString()), .height = height});
      const double width = std::max(layout.width + height, 2 * height);
      parts.push_back({BoxPath(QRectF(left, top - 2 * height, width, 2 * height), place),
                       Fill::kNone, std::nullopt});
      AppendPlaced(
          parts, layout,
          QTransform::fromTranslate(left + (width - layout.width) / 2, top - 1.5 * height) * place);
      left += width;
    }
    top -= 2 * height;
  }
  return parts;
}

}  // namespace preview
