// Colours and lineweights of records, resolved through layers and references.
#pragma once

#include <QHash>
#include <QJsonObject>
#include <QJsonValue>

#include <optional>
#include <vector>

#include "model/drawing.hpp"
#include "scene/scene.hpp"

namespace preview {

// Layers by name. Layer names are compared as they are.
class LayerTable {
 public:
  explicit LayerTable(const std::vector<Layer>& layers);

  // -1 when there is no such layer.
  int IndexOf(const QString& name) const;
  // The foreground for a layer that is black, which is how documents write the
  // layer colour that is white on dark backgrounds, for one that is white, which
  // drawings made on dark screens have, and for an unknown layer.
  Ink InkOf(int layer) const;
  int LineweightOf(int layer) const;

 private:
  const std::vector<Layer>& layers_;
  QHash<QString, int> byName_;
};

// What a record takes from the reference that it is part of. In model space and
// on sheets: no layer, the foreground.
struct Inherited {
  int layer = -1;
  bool insideBlock = false;
  Ink byBlock;
  int lineweight = kDefaultLineweight;
  // Index into the scene's dash patterns.
  int dashes = 0;
};

// Where a colour comes from, before the layer and the reference are known.
struct ColorSource {
  enum class From : unsigned char { kLayer, kReference, kItself };
  From from = From::kLayer;
  Ink ink = {};
};

// How a record looks, before layers and references are known.
struct Look {
  // Index of its own layer; -1 for one that the document lacks.
  int layer = -1;
  // On layer "0", which in a block is that of the reference.
  bool isOnZero = false;
  bool isInvisible = false;
  ColorSource color = {};
  // Hundredths of a millimetre, or one of the two below.
  int lineweight = kLineweightOfLayer;
  // Index into the scene's dash patterns, or one of the two below.
  int dashes = kDashesOfLayer;
  double dashScale = 1;

  static constexpr int kLineweightOfLayer = -1;
  static constexpr int kLineweightOfReference = -2;
  static constexpr int kDashesOfLayer = -1;
  static constexpr int kDashesOfReference = -2;
};

// `color` as the keys of records and dimension styles have it: "L" takes the
// layer's colour, "K" the reference's, "W" the foreground.
ColorSource ColorSourceOf(const QJsonValue& color);
Ink ResolveColor(const ColorSource& color, int layer, const Inherited& from,
                 const LayerTable& layers);

// As in `Look`: an explicit lineweight, the reference's for "K", the layer's else.
int LineweightSourceOf(const QJsonValue& lineweight);
int ResolveLineweight(int source, int layer, const Inherited& from, const LayerTable& layers);

// A record's own layer; that of the reference for a part on layer "0".
int EffectiveLayer(const Look& look, const Inherited& from);
int EffectiveLayer(const QJsonObject& record, const Inherited& from, const LayerTable& layers);

// The same in one step.
Ink ResolveColor(const QJsonValue& color, int layer, const Inherited& from,
                 const LayerTable& layers);

int ResolveLineweight(const QJsonValue& lineweight, int layer, const Inherited& from,
                      const LayerTable& layers);

}  // namespace preview
