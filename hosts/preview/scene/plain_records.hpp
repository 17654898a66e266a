// The records of which drawings have most, straight from the document's text: lines,
// circles, arcs, polylines of straight segments, references, and texts whose letters
// are made when they are seen.
//
// Reads what lies flat and has no key that it does not know. For everything else it
// gives nothing, and the record is read as JSON; both ways give the same shapes. May
// be used from several threads.
#pragma once

#include <QHash>
#include <QString>
#include <QTransform>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "model/drawing.hpp"
#include "scene/color.hpp"
#include "scene/scene.hpp"

namespace preview {

struct PlainRecord {
  Look look;
  // Null for a reference.
  ShapePtr shape;
  // Of a reference: the block, and the block's own coordinates to those around it.
  QString block;
  QTransform place;
};

// Names as they are written in records, to indices.
using NameIndex = std::map<std::string, int, std::less<>>;

class PlainReader {
 public:
  // `patterns` has the dash patterns by their names in lower case; both stay.
  PlainReader(const Drawing& drawing, const LayerTable& layers, const QHash<QString, int>& patterns,
              double lineScale);

  // With `textsAreLate` texts are read too.
  std::optional<PlainRecord> Read(std::string_view record, bool textsAreLate) const;

  // Of a record that was read as JSON.
  Look LookOf(const QJsonObject& record) const;

 private:
  struct Fields;

  Look LookOf(const Fields& fields) const;
  int DashesOf(std::string_view name) const;
  static ShapePtr SingleLine(const Fields& fields);
  ShapePtr MultiLine(const Fields& fields) const;

  const QHash<QString, int>& patterns_;
  double lineScale_;
  NameIndex layers_;
  std::map<std::string, double, std::less<>> widthFactors_;
  const LayerTable& layerTable_;
};

}  // namespace preview
