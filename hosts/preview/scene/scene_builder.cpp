#include "scene/scene_builder.hpp"

#include <algorithm>
#include <functional>
#include <limits>
#include <map>
#include <mutex>
#include <numeric>
#include <span>
#include <thread>
#include <utility>

#include "model/record.hpp"
#include "scene/color.hpp"
#include "scene/curves.hpp"
#include "scene/dashes.hpp"
#include "scene/plain_records.hpp"
#include "scene/plane.hpp"
#include "scene/shapes.hpp"
#include "scene/vectors.hpp"
#include "scene/viewport_mapping.hpp"

namespace preview {

namespace {

// Where a reference puts its block: more than one place for an array.
struct References {
  QString block;
  std::vector<QTransform> places;
};

// A record that was looked at once, for all instances of its block.
struct Prepared {
  // Empty for one that was read without JSON.
  QJsonObject record = {};
  // Index into the scene's records.
  int index = -1;
  Look look = {};
  ShapePtr shape = nullptr;
  bool infinite = false;
  // Of a dimension, whose parts depend on the reference's colour.
  bool dependsOnReference = false;
  // Of a point whose mark's size is a share of the view.
  bool dependsOnView = false;
  // A leader is more than the blocks of its arrows and its content.
  bool isMoreThanReference = false;
  // Of blocks that the document has.
  std::vector<References> references = {};
  // Of the end of what is repeated in rows and columns.
  bool isEndOfRepeat = false;
};

struct Place {
  SharedTransform transform = NoTransform();
  Inherited inherited;
  int owners = 0;
  int depth = 0;
  // Index into the scene's uses of blocks.
  int use = -1;
  // Index into the scene's clips.
  int clip = 0;
  bool hidden = false;
};

// Records in the order in which they are drawn, as indices into their list. Attributes,
// which have no place of their own, stay behind their reference.
std::vector<std::size_t> InDrawOrder(const RecordList& records) {
  std::vector<std::size_t> ordered(records.size());
  std::iota(ordered.begin(), ordered.end(), std::size_t{0});
  if (records.Text().find("\"drawOrder\"") == std::string_view::npos) {
    return ordered;
  }
  std::vector<double> ranks(records.size());
  double last = -1;
  for (std::size_t i = 0; i < records.size(); ++i) {
    const bool mayHave = records.TextAt(i).find("\"drawOrder\"") != std::string_view::npos;
    last = mayHave ? records[i]["drawOrder"].toDouble(last) : last;
    ranks[i] = last;
  }
  std::stable_sort(ordered.begin(), ordered.end(),
                   [&ranks](std::size_t a, std::size_t b) { return ranks[a] < ranks[b]; });
  return ordered;
}

constexpr int kMostCells = 100000;

References ReferencesOfInsert(const QJsonObject& insert) {
  References references{insert["blockName"].toString(), {}};
  const double turn = NumberOf(insert, "rotationRad");
  const QTransform turned = PlaceOfReference(PointOf(insert, "x", "y"), turn, {1, 1});
  const QTransform plane = PlaneOf(insert);
  const int columns = std::max(1, insert["columns"].toInt(1));
  const int rows = std::max(1, insert["rows"].toInt(1));
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      if (references.places.size() >= kMostCells) {
        return references;
      }
      const QPointF shift(column * NumberOf(insert, "columnSpacing"),
                          row * NumberOf(insert, "rowSpacing"));
      references.places.push_back(
          QTransform::fromScale(insert["scaleX"].toDouble(1), insert["scaleY"].toDouble(1)) *
          QTransform::fromTranslate(shift.x(), shift.y()) * turned * plane);
    }
  }
  return references;
}

// The content of a multileader that is a block.
References ReferencesOfMultileader(const QJsonObject& block) {
  const QPointF at = PointFromAbove(block["position"]);
  const QJsonArray scale = block["scale"].toArray();
  return {block["blockName"].toString(),
          {PlaceOfReference(at, NumberOf(block, "rotationRad"),
                            {scale[0].toDouble(1), scale[1].toDouble(1)})}};
}

// An arrow that is a block: its tip is the block's origin, and it comes from the left. As
// the filled one it needs a segment of twice its length.
void AddArrow(std::vector<References>& all, const QString& block, double size,
              const std::vector<QPointF>& points) {
  if (block.isEmpty() || points.size() < 2 || !(size > 0)) {
    return;
  }
  const QPointF way = points[0] - points[1];
  if (!(Length(way) >= 2 * size)) {
    return;
  }
  all.push_back({block, {PlaceOfReference(points[0], std::atan2(way.y(), way.x()), {size, size})}});
}

std::vector<References> ReferencesOfLeader(const QJsonObject& leader) {
  std::vector<References> all;
  if (leader["arrowOn"].toBool()) {
    AddArrow(all, leader["arrowBlock"].toString(), NumberOf(leader, "arrowSize"),
             PointsFromAbove(leader["points"]));
  }
  return all;
}

std::vector<References> ReferencesOfMultileaderParts(const QJsonObject& record) {
  std::vector<References> all{ReferencesOfMultileader(record["block"].toObject())};
  for (const auto& leader : record["leaders"].toArray()) {
    for (const auto& value : leader.toObject()["lines"].toArray()) {
      const QJsonObject line = value.toObject();
      if (line["leaderType"].toInt(record["leaderType"].toInt(1)) != 0) {
        AddArrow(all, line["arrowBlock"].toString(record["arrowBlock"].toString()),
                 line["arrowSize"].toDouble(NumberOf(record, "arrowSize")),
                 PointsOfLeaderLine(line, leader.toObject()));
      }
    }
  }
  return all;
}

// The blocks that show a record: its references to their definitions, its arrows, or what
// a dimension or a table was drawn as last.
std::vector<References> ReferencesOf(const QJsonObject& record) {
  if (IsType(record, "INSERT")) {
    return {ReferencesOfInsert(record)};
  }
  if (IsType(record, "LEADER")) {
    return ReferencesOfLeader(record);
  }
  if (IsType(record, "MULTILEADER")) {
    return ReferencesOfMultileaderParts(record);
  }
  const bool isTable = IsType(record, "ACAD_TABLE");
  return {{record["blockName"].toString(),
           {isTable ? PlaceOfReference(PointOf(record, "x", "y"), NumberOf(record, "rotationRad"),
                                       {1, 1})
                    : QTransform()}}};
}

// Of all its points, with those that only bend curves.
QRectF BoxOfPoints(const QPainterPath& path, const QTransform& place) {
  QPolygonF points;
  points.reserve(path.elementCount());
  for (int i = 0; i < path.elementCount(); ++i) {
    points.append(place.map(path.elementAt(i)));
  }
  return points.boundingRect();
}

// Text that is turned is measured by its points: there are many, and curves of letters
// keep close to them.
QRectF BoxOfPath(const QPainterPath& path, const QTransform& place, bool isText) {
  if (place.type() <= QTransform::TxScale) {
    return place.mapRect(path.boundingRect());
  }
  return isText ? BoxOfPoints(path, place) : place.map(path).boundingRect();
}

QRectF BoundsOfRun(const QPolygonF& points, const QTransform& place) {
  if (place.type() == QTransform::TxNone) {
    return points.boundingRect();
  }
  QRectF box(place.map(points.front()), QSizeF(0, 0));
  for (const QPointF& point : points) {
    box = Around(box, QRectF(place.map(point), QSizeF(0, 0)));
  }
  return box;
}

// Exact for what is drawn: a mapped box would grow with every rotation.
QRectF BoundsOf(const Shape& shape, const QTransform& place) {
  if (!shape.polyline.isEmpty()) {
    return BoundsOfRun(shape.polyline, place);
  }
  if (shape.round) {
    return BoundsOfRound(*shape.round, place);
  }
  QRectF bounds;
  bool first = true;
  for (const Part& part : shape.parts) {
    const QRectF box = BoxOfPath(part.path, place, shape.hasText);
    bounds = first ? box : Around(bounds, box);
    first = false;
  }
  return bounds;
}

void Grow(std::optional<QRectF>& all, const QRectF& box) {
  all = all ? Around(*all, box) : box;
}

constexpr std::size_t kRecordsAtOnce = 32768;
constexpr std::size_t kFewestForThreads = 1024;

// A task for each number below `count`, on all processors when there are many.
void ForAll(std::size_t count, const std::function<void(std::size_t)>& task) {
  const std::size_t threads =
      count < kFewestForThreads ? 1 : std::max(1U, std::thread::hardware_concurrency());
  const auto share = [&](std::size_t thread) {
    const std::size_t end = count * (thread + 1) / threads;
    for (std::size_t i = count * thread / threads; i < end; ++i) {
      task(i);
    }
  };
  std::vector<std::thread> others;
  for (std::size_t thread = 1; thread < threads; ++thread) {
    others.emplace_back(share, thread);
  }
  share(0);
  for (std::thread& other : others) {
    other.join();
  }
}

// Makes the letters of texts that were left for later. Those of some thousand texts, the
// most that a picture shows, are kept.
class Letters {
 public:
  Letters(ShapeContext context, RecordList records)
      : context_(std::move(context)), records_(std::move(records)) {
    context_.textAsBars = false;
    // The drawing is gone by then.
    context_.hasBlock = {};
    context_.styleInk = [](const QJsonValue&) { return Ink{}; };
  }

  ShapePtr Of(int record, bool mayMake, bool& isNew) {
    const std::lock_guard lock(mutex_);
    const auto found = kept_.constFind(record);
    if (found != kept_.constEnd()) {
      return *found;
    }
    if (!mayMake) {
      return nullptr;
    }
    if (kept_.size() >= kMostKept) {
      kept_.clear();
    }
    isNew = true;
    return *kept_.insert(record, MakeShape(records_[static_cast<std::size_t>(record)], context_));
  }

 private:
  static constexpr qsizetype kMostKept = 2000;

  ShapeContext context_;
  RecordList records_;
  std::mutex mutex_;
  QHash<int, ShapePtr> kept_;
};

class Builder {
 public:
  Builder(const Drawing& drawing, const QDir& folder, const BuildLimits& limits)
      : drawing_(drawing), limits_(limits), layers_(drawing.layers) {
    context_.folder = folder;
    context_.hasBlock = [&drawing](const QString& name) { return drawing.blocks.contains(name); };
    context_.header = drawing.header;
    context_.textStyles = drawing.textStyles;
    context_.styleInk = [](const QJsonValue&) { return Ink{}; };
    scene_.layers = drawing.layers;
    scene_.notes = drawing.warnings;
    scene_.ownerSets.emplace_back();
    scene_.records = RecordList(drawing.document, {});
    AddDashPatterns();
    reader_.emplace(drawing, layers_, patterns_, lineScale_);
    mostLetters_ = drawing.entities.size() > limits.records ? 0 : limits.letters;
    context_.textAsBars = mostLetters_ == 0;
  }

  Scene Build() {
    AddSheet("Model", drawing_.entities, nullptr);
    for (const Layout& layout : drawing_.layouts) {
      AddSheet(layout.name, layout.entities, &layout);
    }
    AddNotes();
    scene_.letters = [letters = std::make_shared<Letters>(context_, scene_.records)](
                         int record, bool mayMake, bool& isNew) {
      return letters->Of(record, mayMake, isNew);
    };
    return std::move(scene_);
  }

 private:
  void AddDashPatterns() {
    for (const LineType& type : drawing_.linetypes) {
      const DashPattern pattern = PatternOf(type);
      if (!pattern.empty()) {
        patterns_.insert(type.name.toCaseFolded(), static_cast<int>(scene_.dashPatterns.size()));
        scene_.dashPatterns.push_back(pattern);
      }
    }
    const double scale = drawing_.header["LTSCALE"].toDouble(1);
    for (const Layer& layer : drawing_.layers) {
      layerDashes_.push_back(patterns_.value(layer.linetype.toCaseFolded()));
    }
    lineScale_ = scale > 0 && std::isfinite(scale) ? scale : 1;
    scene_.dashesByPaper = drawing_.header["PSLTSCALE"].toInt() == 1;
  }

  void AddSheet(const QString& name, const RecordList& records, const Layout* layout) {
    Sheet sheet;
    sheet.name = name;
    sheet.isModel = layout == nullptr;
    sheet_ = &sheet;
    finite_.reset();
    geometry_.reset();
    repeatFrom_ = kNoRepeat;
    if (layout != nullptr && layout->page) {
      SetPaper(*layout->page);
    }
    AddRecords(records);
    AddInfinite();
    sheet.extents = finite_.value_or(sheet.paper.value_or(QRectF(0, 0, 1, 1)));
    sheet.geometryExtents = geometry_.value_or(sheet.extents);
    scene_.sheets.push_back(std::move(sheet));
  }

  void SetPaper(const PageSetup& page) {
    const PaperPlace place = PlacePaper(page);
    sheet_->millimetresPerUnit = place.millimetresPerUnit;
    if (place.paper.width() > 0 && place.paper.height() > 0) {
      sheet_->paper = place.paper;
      sheet_->printable = place.printable;
    }
  }

  void AddRecords(const RecordList& records) {
    scene_.records.Reserve(scene_.records.size() + records.size());
    sheet_->items.reserve(records.size());
    ForEachPrepared(records, [this](const Prepared& prepared) {
      if (IsType(prepared.record, "VIEWPORT")) {
        AddViewport(prepared.record, prepared.index);
      } else {
        Expand(prepared, Place{});
      }
    });
  }

  // Plain records are read by all processors, some thousands at a time; the others and
  // all that follows in this thread, in their order.
  template <typename Take>
  void ForEachPrepared(const RecordList& records, Take take) {
    const std::vector<std::size_t> order = InDrawOrder(records);
    for (std::size_t begin = 0; begin < order.size(); begin += kRecordsAtOnce) {
      const auto some =
          std::span(order).subspan(begin, std::min(kRecordsAtOnce, order.size() - begin));
      std::vector<std::optional<PlainRecord>> plain = ReadPlain(records, some);
      for (std::size_t i = 0; i < some.size(); ++i) {
        take(plain[i] ? PreparePlain(records.SpanAt(some[i]), *plain[i])
                      : Prepare(records, some[i]));
      }
    }
  }

  std::vector<std::optional<PlainRecord>> ReadPlain(const RecordList& records,
                                                    std::span<const std::size_t> some) const {
    std::vector<std::optional<PlainRecord>> plain(some.size());
    const bool textsAreLate = context_.textAsBars;
    ForAll(some.size(),
           [&](std::size_t i) { plain[i] = reader_->Read(records.TextAt(some[i]), textsAreLate); });
    return plain;
  }

  Prepared PreparePlain(RecordSpan span, PlainRecord& plain) {
    Prepared prepared;
    prepared.index = AddRecord(span);
    prepared.look = plain.look;
    prepared.shape = std::move(plain.shape);
    if (!plain.block.isEmpty() && drawing_.blocks.contains(plain.block)) {
      prepared.references.push_back({plain.block, {plain.place}});
    }
    return prepared;
  }

  Prepared Prepare(const RecordList& records, std::size_t index) {
    const QJsonObject record = records[index];
    Prepared prepared{
        .record = record,
        .index = AddRecord(records.SpanAt(index)),
        .look = reader_->LookOf(record),
        .infinite = IsInfinite(record),
        .dependsOnReference = HasOwnColors(record),
        .dependsOnView = IsMarkedByView(record, drawing_.header),
        .isMoreThanReference = IsType(record, "MULTILEADER") || IsType(record, "LEADER"),
        .isEndOfRepeat = IsType(record, "ENDREP")};
    for (References& references : ReferencesOf(record)) {
      if (drawing_.blocks.contains(references.block)) {
        prepared.references.push_back(std::move(references));
      }
    }
    CountLetters(record, prepared.dependsOnReference);
    if (!prepared.dependsOnReference && !prepared.infinite && !prepared.dependsOnView) {
      prepared.shape = MakeShape(record, context_);
    }
    return prepared;
  }

  // A text with a colour of its own behind it has no letters later either.
  void CountLetters(const QJsonObject& record, bool dependsOnReference) {
    const qsizetype letters = record["html"].toString().size();
    letters_ += letters;
    context_.textAsBars = mostLetters_ == 0 || letters_ > mostLetters_;
    textsAsBars_ += context_.textAsBars && letters > 0 && dependsOnReference ? 1 : 0;
  }

  int AddRecord(RecordSpan span) {
    scene_.records.Add(span);
    return static_cast<int>(scene_.records.size()) - 1;
  }

  const std::vector<Prepared>& Contents(const QString& block) {
    auto found = contents_.find(block);
    if (found == contents_.end()) {
      found = contents_.emplace(block, std::vector<Prepared>{}).first;
      ForEachPrepared(drawing_.blocks[block].entities,
                      [&found](const Prepared& prepared) { found->second.push_back(prepared); });
    }
    return found->second;
  }

  void Expand(const Prepared& prepared, const Place& place) {
    if (sheet_->items.size() >= limits_.items) {
      ++leftOut_;
      return;
    }
    const int layer = EffectiveLayer(prepared.look, place.inherited);
    if (prepared.references.empty() || prepared.isMoreThanReference) {
      ExpandItem(prepared, layer, place);
    }
    for (const References& references : prepared.references) {
      ExpandReferences(prepared, references, layer, place);
    }
    if (prepared.isEndOfRepeat) {
      Repeat(prepared.record, place);
    } else if (IsType(prepared.record, "REPEAT")) {
      repeatFrom_ = sheet_->items.size();
    }
  }

  // What was added since the last REPEAT, again in each row and column.
  void Repeat(const QJsonObject& record, const Place& place) {
    const std::size_t from = std::exchange(repeatFrom_, kNoRepeat);
    const std::size_t to = sheet_->items.size();
    const int columns = std::clamp(record["columns"].toInt(1), 1, kMostCells);
    const int rows = std::clamp(record["rows"].toInt(1), 1, kMostCells / columns);
    const QPointF origin = place.transform->map(QPointF(0, 0));
    for (int cell = 1; from < to && cell < columns * rows; ++cell) {
      const QPointF step((cell % columns) * NumberOf(record, "columnSpacing"),
                         static_cast<int>(cell / columns) * NumberOf(record, "rowSpacing"));
      AddMoved(from, to, place.transform->map(step) - origin);
    }
  }

  void AddMoved(std::size_t from, std::size_t to, QPointF shift) {
    for (std::size_t i = from; i < to && sheet_->items.size() < limits_.items; ++i) {
      Item item = sheet_->items[i];
      item.place = std::make_shared<const QTransform>(
          *item.place * QTransform::fromTranslate(shift.x(), shift.y()));
      item.bounds.translate(shift);
      if (IsVisible(item.layer) && !item.hidden) {
        Grow(finite_, item.bounds);
        if (!item.shape->hasText) {
          Grow(geometry_, item.bounds);
        }
      }
      sheet_->items.push_back(std::move(item));
    }
  }

  void ExpandItem(const Prepared& prepared, int layer, const Place& place) {
    if (prepared.infinite || prepared.dependsOnView) {
      infinite_.emplace_back(prepared, place);
    } else {
      AddItem(prepared, layer, place, true);
    }
  }

  void ExpandReferences(const Prepared& reference, const References& references, int layer,
                        const Place& place) {
    if (place.depth >= limits_.depth || open_.contains(references.block)) {
      ++tooDeep_;
      return;
    }
    open_.append(references.block);
    for (const QTransform& transform : references.places) {
      // Blocks that multiply through each other need not hold a single record.
      if (++references_ > limits_.items) {
        ++leftOut_;
        break;
      }
      ExpandReference(reference, references.block, transform, layer, place);
    }
    open_.removeLast();
  }

  void ExpandReference(const Prepared& reference, const QString& block, const QTransform& transform,
                       int layer, const Place& place) {
    const QPointF base = BaseOf(block);
    const auto toSheet = std::make_shared<const QTransform>(
        QTransform::fromTranslate(-base.x(), -base.y()) * transform * *place.transform);
    scene_.uses.push_back({.block = block, .record = reference.index, .parent = place.use});
    const Look& look = reference.look;
    const Place inside{
        toSheet,
        {.layer = layer,
         .insideBlock = true,
         .byBlock = ResolveColor(look.color, layer, place.inherited, layers_),
         .lineweight = ResolveLineweight(look.lineweight, layer, place.inherited, layers_),
         .dashes = DashesOf(look, layer, place.inherited)},
        OwnersWith(place.owners, layer),
        place.depth + 1,
        static_cast<int>(scene_.uses.size()) - 1,
        ClipWith(place.clip, *toSheet, ClipOutline(reference.record, "block")),
        IsHidden(look, layer, place)};
    for (const Prepared& prepared : Contents(block)) {
      Expand(prepared, inside);
    }
    AddClipFrame(reference, layer, place, inside.clip);
  }

  QPointF BaseOf(const QString& block) const {
    const auto found = drawing_.blocks.constFind(block);
    return found == drawing_.blocks.constEnd() ? QPointF() : found->base;
  }

  // The edge of a reference's clip, where the drawing shows such edges.
  void AddClipFrame(const Prepared& reference, int layer, const Place& place, int clip) {
    const bool showsFrames = drawing_.header["XCLIPFRAME"].toInt() > 0;
    if (clip == place.clip || !showsFrames || reference.record["clip"]["inverted"].toBool()) {
      return;
    }
    auto shape = std::make_shared<Shape>();
    shape->parts.push_back(
        {scene_.clips[static_cast<std::size_t>(clip)], Fill::kNone, std::nullopt});
    Prepared frame = reference;
    frame.shape = shape;
    frame.dependsOnReference = false;
    Place inSheet = place;
    inSheet.transform = NoTransform();
    AddItem(frame, layer, inSheet, true);
  }

  // A clip within another one; the clip itself is not a record.
  int ClipWith(int outer, const QTransform& place, const QPainterPath& outline) {
    if (outline.isEmpty()) {
      return outer;
    }
    QPainterPath clip = place.map(outline);
    if (outer > 0) {
      clip = clip.intersected(scene_.clips[static_cast<std::size_t>(outer)]);
    }
    scene_.clips.push_back(clip);
    return static_cast<int>(scene_.clips.size()) - 1;
  }

  // Frozen layers hide what stands in references on them too.
  bool IsHidden(const Look& look, int layer, const Place& place) const {
    const bool isFrozen = layer >= 0 && scene_.layers[static_cast<std::size_t>(layer)].frozen;
    return place.hidden || isFrozen || look.isInvisible;
  }

  // Index of the pattern; 0 for a continuous line.
  int DashesOf(const Look& look, int layer, const Inherited& from) const {
    if (look.dashes == Look::kDashesOfReference) {
      return from.dashes;
    }
    if (look.dashes != Look::kDashesOfLayer) {
      return look.dashes;
    }
    return layer < 0 ? 0 : layerDashes_[static_cast<std::size_t>(layer)];
  }

  int OwnersWith(int owners, int layer) {
    const auto [found, isNew] =
        ownerSets_.try_emplace({owners, layer}, static_cast<int>(scene_.ownerSets.size()));
    if (isNew) {
      std::vector<int> set = scene_.ownerSets[static_cast<std::size_t>(owners)];
      set.push_back(layer);
      scene_.ownerSets.push_back(std::move(set));
    }
    return found->second;
  }

  ShapePtr ShapeOf(const Prepared& prepared, int layer, const Place& place) {
    if (prepared.shape) {
      return prepared.shape;
    }
    context_.styleInk = [&](const QJsonValue& color) {
      return ResolveColor(color, layer, place.inherited, layers_);
    };
    const bool isOpen = prepared.dependsOnReference || prepared.infinite || prepared.dependsOnView;
    return isOpen ? MakeShape(prepared.record, context_) : nullptr;
  }

  void AddItem(const Prepared& prepared, int layer, const Place& place, bool counts) {
    const ShapePtr shape = ShapeOf(prepared, layer, place);
    if (!shape) {
      return;
    }
    Item item{
        .shape = shape,
        .place = place.transform,
        .bounds = BoundsOf(*shape, *place.transform),
        .ink = ResolveColor(prepared.look.color, layer, place.inherited, layers_),
        .lineweight = ResolveLineweight(prepared.look.lineweight, layer, place.inherited, layers_),
        .layer = layer,
        .owners = place.owners,
        .record = prepared.index,
        .use = place.use,
        .dashes = DashesOf(prepared.look, layer, place.inherited),
        .dashScale = prepared.look.dashScale,
        .clip = ClipOf(prepared.record, *shape, place),
        .hidden = IsHidden(prepared.look, layer, place)};
    ClipBounds(item);
    scene_.hasHidden = scene_.hasHidden || item.hidden;
    if (counts && IsVisible(layer) && !item.hidden) {
      Grow(finite_, item.bounds);
      if (!shape->hasText) {
        Grow(geometry_, item.bounds);
      }
    }
    sheet_->items.push_back(std::move(item));
  }

  // Of a picture, besides that of the references around it.
  int ClipOf(const QJsonObject& record, const Shape& shape, const Place& place) {
    return IsType(record, "IMAGE") && shape.hasImage()
               ? ClipWith(place.clip, *place.transform, ClipOutline(record, "world"))
               : place.clip;
  }

  void ClipBounds(Item& item) const {
    if (item.clip > 0) {
      item.bounds =
          Within(item.bounds, scene_.clips[static_cast<std::size_t>(item.clip)].boundingRect());
    }
  }

  bool IsVisible(int layer) const {
    return layer < 0 || scene_.layers[static_cast<std::size_t>(layer)].visible;
  }

  // Rays reach beyond everything else, which is known only at the end.
  void AddInfinite() {
    const bool isAlone = !finite_;
    const QRectF around = finite_.value_or(QRectF(-50, -50, 100, 100));
    const double finite = std::max({around.width(), around.height(), 1e-6});
    context_.viewHeight = around.height() > 0 ? around.height() : finite;
    for (const auto& [prepared, place] : infinite_) {
      const QPointF at = place.transform->map(OriginOf(prepared.record));
      const QPointF off = at - around.center();
      const double factor = std::sqrt(std::abs(place.transform->determinant()));
      const double reach = 20 * finite + Length(off);
      context_.reach = reach / (factor > 0 ? factor : 1);
      AddItem(prepared, EffectiveLayer(prepared.look, place.inherited), place, false);
      // A drawing of nothing else still needs some room to be seen in.
      const double room = isAlone && prepared.infinite ? finite / 2 : 0;
      Grow(finite_, QRectF(at, QSizeF(0, 0)).adjusted(-room, -room, room, room));
      if (prepared.dependsOnView) {
        Grow(geometry_, QRectF(at, QSizeF(0, 0)));
      }
    }
    infinite_.clear();
  }

  static QPointF OriginOf(const QJsonObject& record) {
    return record.contains("ix") ? PointOf(record, "ix", "iy") : PointOf(record, "x", "y");
  }

  void AddViewport(const QJsonObject& record, int index) {
    if (sheet_->isModel) {
      ++modelViewports_;
      return;
    }
    const int layer = layers_.IndexOf(record["layer"].toString());
    Grow(finite_, FrameOf(record));
    Grow(geometry_, FrameOf(record));
    // Documents of DWG files hold the sheet's own viewport too; it looks at the
    // sheet itself and shows no model space.
    if (!IsOn(record) || IsSheetItself(record)) {
      return;
    }
    sheet_->viewports.push_back(
        {ClipOf(record), ModelToSheet(record), FrozenLayers(record), layer});
    AddFrame(record, layer);
    sheet_->items.back().record = index;
  }

  // The first one whose view is its own frame at the scale of one to one.
  bool IsSheetItself(const QJsonObject& record) const {
    const double size = NumberOf(record, "viewSize");
    const bool sameScale = std::abs(size - NumberOf(record, "height")) < 1e-6 * size;
    const QPointF off = PointOf(record, "cx", "cy") - PointOf(record, "viewCtrX", "viewCtrY");
    return sheet_->viewports.empty() && sameScale && Length(off) < 1e-6 * size;
  }

  static QPainterPath ClipOf(const QJsonObject& record) {
    QPainterPath clip = OutlineOf(record["clip"].toObject());
    if (clip.isEmpty()) {
      clip = OutlineOf(record);
    }
    clip.closeSubpath();
    return clip;
  }

  std::vector<bool> FrozenLayers(const QJsonObject& record) const {
    std::vector<bool> frozen(scene_.layers.size(), false);
    for (const auto& name : record["frozenLayers"].toArray()) {
      const int layer = layers_.IndexOf(name.toString());
      if (layer >= 0) {
        frozen[static_cast<std::size_t>(layer)] = true;
      }
    }
    return frozen;
  }

  // The viewport's edge, on its layer.
  void AddFrame(const QJsonObject& record, int layer) {
    auto shape = std::make_shared<Shape>();
    shape->parts.push_back({sheet_->viewports.back().clip, Fill::kNone, std::nullopt});
    sheet_->items.push_back({.shape = shape,
                             .bounds = sheet_->viewports.back().clip.boundingRect(),
                             .ink = ResolveColor(record["color"], layer, {}, layers_),
                             .lineweight = ResolveLineweight(record["lw"], layer, {}, layers_),
                             .layer = layer,
                             .owners = 0,
                             .hidden = IsHidden(reader_->LookOf(record), layer, {})});
    scene_.hasHidden = scene_.hasHidden || sheet_->items.back().hidden;
  }

  void AddNotes() {
    if (leftOut_ > 0) {
      scene_.notes << QString(
                          "%1 records were left out: the drawing is too large for this preview.")
                          .arg(leftOut_);
    }
    if (textsAsBars_ > 0) {
      scene_.notes << QString(
                          "%1 texts are shown as bars: the drawing has too many letters for this "
                          "preview.")
                          .arg(textsAsBars_);
    }
    if (tooDeep_ > 0) {
      scene_.notes
          << QString("%1 block references were left out: blocks hold each other.").arg(tooDeep_);
    }
    if (modelViewports_ > 0) {
      scene_.notes << "The sheet that was open when the drawing was saved is shown together with "
                      "model space; its viewports are left out.";
    }
  }

  const Drawing& drawing_;
  const BuildLimits& limits_;
  LayerTable layers_;
  ShapeContext context_;
  Scene scene_;
  Sheet* sheet_ = nullptr;
  std::optional<QRectF> finite_;
  std::optional<QRectF> geometry_;
  // A map, whose elements stay where they are while more are prepared.
  std::map<QString, std::vector<Prepared>> contents_;
  std::map<std::pair<int, int>, int> ownerSets_;
  // Of line types that are not continuous, by their names in lower case.
  QHash<QString, int> patterns_;
  std::vector<int> layerDashes_;
  double lineScale_ = 1;
  std::optional<PlainReader> reader_;
  std::vector<std::pair<Prepared, Place>> infinite_;
  // The blocks that are being expanded, outermost first.
  QStringList open_;
  std::size_t references_ = 0;
  // The first item of what is repeated.
  static constexpr std::size_t kNoRepeat = std::numeric_limits<std::size_t>::max();
  std::size_t repeatFrom_ = kNoRepeat;
  std::size_t leftOut_ = 0;
  int tooDeep_ = 0;
  qsizetype letters_ = 0;
  qsizetype mostLetters_ = 0;
  int textsAsBars_ = 0;
  int modelViewports_ = 0;
};

}  // namespace

Scene BuildScene(const Drawing& drawing, const QDir& folder, const BuildLimits& limits) {
  return Builder(drawing, folder, limits).Build();
}

}  // namespace preview
