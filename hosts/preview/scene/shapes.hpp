// One record to its shape: geometry alone, in the coordinates of its list, with
// no look but the colours that parts have for themselves.
#pragma once

#include <QDir>
#include <QJsonObject>

#include <functional>

#include "scene/scene.hpp"

namespace preview {

struct ShapeContext {
  // Resolves a colour of a dimension style for the record being drawn.
  std::function<Ink(const QJsonValue&)> styleInk;
  // Relative image paths are looked for here, and files that are not where the
  // drawing says.
  QDir folder;
  // Whether the drawing has a block of that name; none without it.
  std::function<bool(const QString&)> hasBlock = {};
  // The drawing's variables: how points are marked, whether areas are filled.
  QJsonObject header;
  // By their names: multi-line texts have the width and slant of theirs.
  QHash<QString, TextStyle> textStyles = {};
  // Texts are bars, whose letters are made when they are seen: there are too many.
  bool textAsBars = false;
  // The height of what is drawn, for sizes that are a share of it.
  double viewHeight = 0;
  // The length that rays and each half of construction lines are drawn with.
  double reach = 1e4;
};

// Null for a record that shows nothing: unknown types, invisible attributes,
// degenerate geometry. INSERT and VIEWPORT have no shape of their own.
ShapePtr MakeShape(const QJsonObject& record, const ShapeContext& context);

// The outline of a record as a clip: polylines, circles, ellipses, hatches;
// the frame of a viewport. Empty for any other.
QPainterPath OutlineOf(const QJsonObject& record);

// Whether the record's points are marked in a size that follows from the rest of
// the drawing.
bool IsMarkedByView(const QJsonObject& record, const QJsonObject& header);

// Of a multileader of the complete form, from the arrow to the landing.
std::vector<QPointF> PointsOfLeaderLine(const QJsonObject& line, const QJsonObject& leader);

// Whether parts of the record have colours of their own, which may be those of the
// reference that it stands in.
bool HasOwnColors(const QJsonObject& record);

// What a clip of a reference, image or underlay leaves, from the key of its points
// in `clip`. Empty when it is off or absent.
QPainterPath ClipOutline(const QJsonObject& record, const char* points);

// Whether the record's size follows from the rest of the drawing, so that it has
// no part in extents: rays and construction lines, which end nowhere, and
// underlays, whose size no document holds.
bool IsInfinite(const QJsonObject& record);

// The existing file that an image path means, or nothing.
QString FindImage(const QString& path, const QDir& folder);

}  // namespace preview
