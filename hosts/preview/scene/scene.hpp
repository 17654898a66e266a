// What is painted: every record of the document as items with a shape, a place
// and a look, blocks expanded, colours resolved.
//
// Coordinates are the sheet's own (drawing units, Y up). Shapes of block
// contents are shared by all instances. A scene is built once and read-only
// then, but Qt's paths fill caches when they are painted: paint a scene from
// one thread at a time.
#pragma once

#include <QtGui/qrgb.h>
#include <QBrush>
#include <QImage>
#include <QPainterPath>
#include <QPolygonF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <QTransform>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "model/drawing.hpp"
#include "scene/units.hpp"

namespace preview {

// A colour that may still depend on the background: the foreground is black on
// light and white on dark backgrounds.
struct Ink {
  bool foreground = true;
  QRgb rgba = qRgba(0, 0, 0, 255);

  friend bool operator==(const Ink&, const Ink&) = default;
};

enum class Fill {
  kNone,     // the outline is drawn
  kSolid,    // the area is filled, even-odd
  kPattern,  // the area is tinted: documents do not hold the pattern
  kPaper     // the area hides what lies under it
};

// A line type as it is drawn: lengths of dashes and gaps in drawing units, in
// turn, beginning with a dash; a dash of 0 is a dot. Empty for a continuous line.
using DashPattern = std::vector<double>;

struct Part {
  QPainterPath path;
  Fill fill = Fill::kNone;
  // Of its own instead of the item's.
  std::optional<Ink> ink;
  // Drawn as thin as can be whatever the item's lineweight: the middle of a
  // polyline that has a width.
  bool hairline = false;
  // Lies behind what matters; in monochrome pictures it has the paper's colour.
  bool isBackground = false;
  // Of a pattern's lines: their distance. Where it is too small to be seen, the
  // area is tinted instead.
  double spacing = 0;
  // Of a filled area, in the shape's coordinates.
  std::shared_ptr<const QGradient> gradient = nullptr;
};

struct Picture {
  QImage image;
  // Maps its unit square, Y up, to the picture's frame.
  QTransform place;
};

// An arc of a circle, counter-clockwise; a whole circle for a sweep of one turn.
struct Round {
  QPointF center;
  double radius = 0;
  double start = 0;
  double sweep = 0;
};

// Drawings have a great many of them: PartsOf() gives their parts, which the most
// common ones make when they are asked for.
struct Shape {
  std::vector<Part> parts = {};
  // The only part, or the only part again, when it is an open or closed run of
  // straight segments; the frame of a text whose letters are made when they are seen.
  QPolygonF polyline = {};
  // The only part of a plain circle or arc.
  std::shared_ptr<const Round> round = nullptr;
  // Text may be drawn as a bar when it is too small to read.
  bool isText = false;
  // Its size depends on the fonts at hand: text, and what has text in it.
  bool hasText = false;
  // Dashes begin anew at each of its points.
  bool restartsDashes = false;
  // Of a text whose letters are made when they are seen (Scene::letters): the height of
  // its capitals. 0 for all others.
  float lateHeight = 0;
  // May have no image: then its frame stands for it.
  std::shared_ptr<const Picture> picture = nullptr;

  bool hasImage() const { return picture && !picture->image.isNull(); }
};
using ShapePtr = std::shared_ptr<const Shape>;

// The parts of a shape, which has to stay.
class PartList {
 public:
  explicit PartList(const Shape& shape);
  PartList(const PartList&) = delete;
  PartList& operator=(const PartList&) = delete;

  const Part* begin() const { return begin_; }
  const Part* end() const { return end_; }
  std::size_t size() const { return static_cast<std::size_t>(end_ - begin_); }
  bool empty() const { return begin_ == end_; }
  const Part& front() const { return *begin_; }

 private:
  Part own_;
  const Part* begin_;
  const Part* end_;
};

using SharedTransform = std::shared_ptr<const QTransform>;
// That of all that stands in a sheet itself.
const SharedTransform& NoTransform();

struct Item {
  ShapePtr shape;
  SharedTransform place = NoTransform();
  QRectF bounds;
  Ink ink;
  // Hundredths of a millimetre.
  int lineweight = kDefaultLineweight;
  // Index into the scene's layers; -1 for a layer that the document lacks.
  int layer = -1;
  // Index into the scene's owner sets: the layers of the references around it.
  int owners = 0;
  // Index into the scene's records: what it was made from.
  int record = -1;
  // Index into the scene's uses of blocks: the reference that it stands in; -1 for
  // what stands in the sheet itself.
  int use = -1;
  // Index into the scene's dash patterns, and the factor to their lengths.
  int dashes = 0;
  double dashScale = 1;
  // Index into the scene's clips; 0 for none.
  int clip = 0;
  // Invisible, on a frozen layer, or part of a reference that is either.
  bool hidden = false;
};

// A reference that was expanded.
struct BlockUse {
  QString block;
  // Index into the scene's records: the reference itself.
  int record = -1;
  // The use that it stands in itself, before it in the list; -1 for none.
  int parent = -1;
};

// A viewport on a sheet.
struct ViewportView {
  // The visible area, in the sheet's coordinates.
  QPainterPath clip;
  QTransform modelToSheet;
  // For every layer of the scene, whether it is frozen here.
  std::vector<bool> frozen;
  int layer = -1;
};

struct Sheet {
  QString name;
  bool isModel = false;
  std::vector<Item> items;
  std::vector<ViewportView> viewports;
  // Everything on layers that are on.
  QRectF extents;
  // Likewise without what depends on fonts.
  QRectF geometryExtents;
  // The paper's edge and the printable area, in the sheet's coordinates.
  std::optional<QRectF> paper;
  QRectF printable;
  // Of one unit of the sheet on paper; 0 in model space.
  double millimetresPerUnit = 0;
};

struct Scene {
  std::vector<Layer> layers;
  // Model space first, then the sheets in the order of their tabs.
  std::vector<Sheet> sheets;
  // The first is empty.
  std::vector<std::vector<int>> ownerSets;
  // The document's records, each once, however often its block is used.
  RecordList records;
  std::vector<BlockUse> uses;
  // The first is empty.
  std::vector<DashPattern> dashPatterns = {{}};
  // In the coordinates of the sheet of the items that name them; the first is empty.
  std::vector<QPainterPath> clips = {{}};
  // Dashes have the same length on paper in all viewports (PSLTSCALE).
  bool dashesByPaper = false;
  // Whether any item is hidden, and whether hidden ones are drawn.
  bool hasHidden = false;
  bool showHidden = false;
  // The document's warnings and what could not be drawn.
  QStringList notes;
  // The shape with letters of a record whose shape has a `lateHeight`, made now when it
  // may be, which takes a while and is said by `isNew`; null when it is not there. From
  // any thread.
  std::function<ShapePtr(int record, bool mayMake, bool& isNew)> letters = {};
  // The same, whatever it takes; the shape itself when it is not one of those.
  ShapePtr WithLetters(const Item& item) const;
};

// The sheet of that name, "Model" for model space; -1 when there is none.
int FindSheet(const Scene& scene, const QString& name);

}  // namespace preview
