#include "scene/scene_builder.hpp"

#include <algorithm>
#include <map>

#include "model/record.hpp"
#include "scene/color.hpp"
#include "scene/shapes.hpp"
#include "scene/vectors.hpp"
#include "scene/viewport_mapping.hpp"

namespace preview {

int FindSheet(const Scene& scene, const QString& name) {
  for (std::size_t i = 0; i < scene.sheets.size(); ++i) {
    if (scene.sheets[i].name == name) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

namespace {

// A record that was looked at once, for all instances of its block.
struct Prepared {
  QJsonObject record;
  // Index into the scene's records.
  int index = -1;
  ShapePtr shape;
  bool infinite = false;
  // Of a dimension, whose parts depend on the reference's colour.
  bool dependsOnReference = false;
};

struct Place {
  QTransform transform;
  Inherited inherited;
  int owners = 0;
  int depth = 0;
  // Index into the scene's uses of blocks.
  int use = -1;
};

QTransform TransformOfInsert(const QJsonObject& insert, QPointF base) {
  QTransform transform;
  transform.translate(insert["x"].toDouble(), insert["y"].toDouble());
  transform.rotateRadians(insert["rotationRad"].toDouble());
  transform.scale(insert["scaleX"].toDouble(1), insert["scaleY"].toDouble(1));
  transform.translate(-base.x(), -base.y());
  return transform;
}

// Exact for what is drawn: a mapped box would grow with every rotation.
QRectF BoundsOf(const Shape& shape, const QTransform& place) {
  if (!shape.polyline.isEmpty()) {
    return place.map(shape.polyline).boundingRect();
  }
  QRectF bounds;
  bool first = true;
  for (const Part& part : shape.parts) {
    const QRectF box = place.map(part.path).boundingRect();
    bounds = first ? box : Around(bounds, box);
    first = false;
  }
  return bounds;
}

void Grow(std::optional<QRectF>& all, const QRectF& box) {
  all = all ? Around(*all, box) : box;
}

class Builder {
 public:
  Builder(const Drawing& drawing, const QDir& folder, const BuildLimits& limits)
      : drawing_(drawing), limits_(limits), layers_(drawing.layers) {
    context_.folder = folder;
    scene_.layers = drawing.layers;
    scene_.notes = drawing.warnings;
    scene_.ownerSets.emplace_back();
  }

  Scene Build() {
    AddSheet("Model", drawing_.entities, nullptr);
    for (const Layout& layout : drawing_.layouts) {
      AddSheet(layout.name, layout.entities, &layout);
    }
    AddNotes();
    return std::move(scene_);
  }

 private:
  void AddSheet(const QString& name, const QJsonArray& records, const Layout* layout) {
    Sheet sheet;
    sheet.name = name;
    sheet.isModel = layout == nullptr;
    sheet_ = &sheet;
    finite_.reset();
    geometry_.reset();
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

  void AddRecords(const QJsonArray& records) {
    for (const auto& value : records) {
      const QJsonObject record = value.toObject();
      if (IsType(record, "VIEWPORT")) {
        AddViewport(record);
      } else {
        Expand(Prepare(record), Place{});
      }
    }
  }

  Prepared Prepare(const QJsonObject& record) {
    Prepared prepared{record, AddRecord(record), nullptr, IsInfinite(record),
                      record.contains("textMidX")};
    if (!prepared.dependsOnReference && !prepared.infinite) {
      prepared.shape = MakeShape(record, context_);
    }
    return prepared;
  }

  int AddRecord(const QJsonObject& record) {
    scene_.records.push_back(record);
    return static_cast<int>(scene_.records.size()) - 1;
  }

  const std::vector<Prepared>& Contents(const QString& block) {
    auto found = contents_.find(block);
    if (found == contents_.end()) {
      found = contents_.emplace(block, std::vector<Prepared>{}).first;
      for (const auto& value : drawing_.blocks[block].entities) {
        found->second.push_back(Prepare(value.toObject()));
      }
    }
    return found->second;
  }

  void Expand(const Prepared& prepared, const Place& place) {
    if (sheet_->items.size() >= limits_.items) {
      ++leftOut_;
      return;
    }
    const int layer = EffectiveLayer(prepared.record, place.inherited, layers_);
    if (IsType(prepared.record, "INSERT")) {
      ExpandInsert(prepared, layer, place);
    } else if (prepared.infinite) {
      infinite_.emplace_back(prepared, place);
    } else {
      AddItem(prepared, layer, place, true);
    }
  }

  void ExpandInsert(const Prepared& reference, int layer, const Place& place) {
    const QJsonObject& insert = reference.record;
    const QString name = insert["blockName"].toString();
    const auto block = drawing_.blocks.constFind(name);
    if (block == drawing_.blocks.constEnd()) {
      return;
    }
    if (place.depth >= limits_.depth || open_.contains(name)) {
      ++tooDeep_;
      return;
    }
    // Blocks that multiply through each other need not hold a single record.
    if (++references_ > limits_.items) {
      ++leftOut_;
      return;
    }
    open_.append(name);
    scene_.uses.push_back({.block = name, .record = reference.index, .parent = place.use});
    const Place inside{TransformOfInsert(insert, block->base) * place.transform,
                       {.layer = layer,
                        .insideBlock = true,
                        .byBlock = ResolveColor(insert["color"], layer, place.inherited, layers_)},
                       OwnersWith(place.owners, layer),
                       place.depth + 1,
                       static_cast<int>(scene_.uses.size()) - 1};
    for (const Prepared& prepared : Contents(name)) {
      Expand(prepared, inside);
    }
    open_.removeLast();
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
    return prepared.dependsOnReference || prepared.infinite ? MakeShape(prepared.record, context_)
                                                            : nullptr;
  }

  void AddItem(const Prepared& prepared, int layer, const Place& place, bool counts) {
    const ShapePtr shape = ShapeOf(prepared, layer, place);
    if (!shape) {
      return;
    }
    Item item{.shape = shape,
              .place = place.transform,
              .bounds = BoundsOf(*shape, place.transform),
              .ink = ResolveColor(prepared.record["color"], layer, place.inherited, layers_),
              .lineweight = ResolveLineweight(prepared.record["lw"], layer, layers_),
              .layer = layer,
              .owners = place.owners,
              .record = prepared.index,
              .use = place.use};
    if (counts && IsVisible(layer)) {
      Grow(finite_, item.bounds);
      if (!shape->hasText) {
        Grow(geometry_, item.bounds);
      }
    }
    sheet_->items.push_back(std::move(item));
  }

  bool IsVisible(int layer) const {
    return layer < 0 || scene_.layers[static_cast<std::size_t>(layer)].visible;
  }

  // Rays reach beyond everything else, which is known only at the end.
  void AddInfinite() {
    const QRectF around = finite_.value_or(QRectF(-50, -50, 100, 100));
    const double finite = std::max({around.width(), around.height(), 1e-6});
    for (const auto& [prepared, place] : infinite_) {
      const QPointF at = place.transform.map(OriginOf(prepared.record));
      const QPointF off = at - around.center();
      const double factor = std::sqrt(std::abs(place.transform.determinant()));
      const double reach = 20 * finite + Length(off);
      context_.reach = reach / (factor > 0 ? factor : 1);
      AddItem(prepared, EffectiveLayer(prepared.record, place.inherited, layers_), place, false);
      Grow(finite_, QRectF(at, QSizeF(0, 0)));
    }
    infinite_.clear();
  }

  static QPointF OriginOf(const QJsonObject& record) {
    return IsType(record, "PDFUNDERLAY") ? PointOf(record, "ix", "iy") : PointOf(record, "x", "y");
  }

  void AddViewport(const QJsonObject& record) {
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
    sheet_->items.back().record = AddRecord(record);
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
                             .place = {},
                             .bounds = sheet_->viewports.back().clip.boundingRect(),
                             .ink = ResolveColor(record["color"], layer, {}, layers_),
                             .lineweight = ResolveLineweight(record["lw"], layer, layers_),
                             .layer = layer,
                             .owners = 0});
  }

  void AddNotes() {
    if (leftOut_ > 0) {
      scene_.notes << QString(
                          "%1 records were left out: the drawing is too large for this preview.")
                          .arg(leftOut_);
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
  std::vector<std::pair<Prepared, Place>> infinite_;
  // The blocks that are being expanded, outermost first.
  QStringList open_;
  std::size_t references_ = 0;
  std::size_t leftOut_ = 0;
  int tooDeep_ = 0;
  int modelViewports_ = 0;
};

}  // namespace

Scene BuildScene(const Drawing& drawing, const QDir& folder, const BuildLimits& limits) {
  return Builder(drawing, folder, limits).Build();
}

}  // namespace preview
