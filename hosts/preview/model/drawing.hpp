// The worker's document as a host holds it: the sections as plain structures,
// the records of entities as places in its text.
//
// Nothing is resolved here. Keys that a document lacks get the value that their
// absence means; a record of an unknown type stays in its list.
#pragma once

#include <QtGui/qrgb.h>
#include <QByteArray>
#include <QHash>
#include <QJsonObject>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

#include "model/record_list.hpp"

namespace preview {

struct Layer {
  QString name;
  bool visible = true;
  bool locked = false;
  QRgb color = qRgb(0, 0, 0);
  int alpha = 255;
  // Hundredths of a millimetre; nothing for the default.
  std::optional<int> lineweight;
  // Frozen layers hide their records and what stands in references on them.
  bool frozen = false;
  bool plotted = true;
  // The name of its line type; empty for a continuous one.
  QString linetype = {};
};

struct Block {
  QPointF base;
  RecordList entities;
};

// The plot settings of a sheet, as stored.
struct PageSetup {
  QSizeF paper;
  double left = 0;
  double bottom = 0;
  double right = 0;
  double top = 0;
  QPointF plotOrigin;
  int unit = 1;
  int rotation = 0;
  double scaleNumerator = 1;
  double scaleDenominator = 1;
};

struct Layout {
  QString name;
  int tabOrder = 0;
  std::optional<PageSetup> page;
  RecordList entities;
};

// A dash, a gap or a dot of a line type, and what stands at its end.
struct Dash {
  // Above 0 for a dash, below for a gap, 0 for a dot.
  double length = 0;
  // A text in the line; empty for none.
  QString text = {};
  double scale = 1;
  double rotation = 0;
  bool upright = false;
  QPointF offset = {};
};

struct LineType {
  QString name;
  std::vector<Dash> dashes;
};

struct TextStyle {
  QString font;
  bool vertical = false;
  double widthFactor = 1;
  double obliqueRad = 0;
};

struct Drawing {
  // The text in which the records stand.
  QByteArray document;
  QString release;
  int units = 0;
  std::vector<Layer> layers;
  QHash<QString, Block> blocks;
  RecordList entities;
  // In the order of their tabs.
  std::vector<Layout> layouts;
  QStringList warnings;
  // Of the complete form; empty in the plain one.
  std::vector<LineType> linetypes = {};
  QHash<QString, TextStyle> textStyles = {};
  // Variables by their names without the dollar sign.
  QJsonObject header = {};
};

// The drawing of a document, or nothing and a reason in `problem` when the line
// is no document. Bytes that are no UTF-8 are replaced. A record that is no JSON is
// an empty one.
std::optional<Drawing> ReadDocument(const QByteArray& line, QString& problem);

}  // namespace preview
