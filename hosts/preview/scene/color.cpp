#include "scene/color.hpp"

#include <algorithm>

namespace preview {
namespace {

int Channel(const QJsonObject& color, const char* key, int absent = 0) {
  return std::clamp(color[QLatin1String(key)].toInt(absent), 0, 255);
}

Ink ExplicitInk(const QJsonObject& color) {
  return {.foreground = false,
          .rgba = qRgba(Channel(color, "r"), Channel(color, "g"), Channel(color, "b"),
                        Channel(color, "a", 255))};
}

}  // namespace

LayerTable::LayerTable(const std::vector<Layer>& layers) : layers_(layers) {
  for (std::size_t i = 0; i < layers.size(); ++i) {
    byName_.insert(layers[i].name, static_cast<int>(i));
  }
}

int LayerTable::IndexOf(const QString& name) const {
  return byName_.value(name, -1);
}

Ink LayerTable::InkOf(int layer) const {
  if (layer < 0) {
    return {};
  }
  const Layer& found = layers_[static_cast<std::size_t>(layer)];
  const QRgb rgb = found.color;
  const QRgb plain = rgb & 0xFFFFFFU;
  return {.foreground = plain == 0 || plain == 0xFFFFFFU,
          .rgba = qRgba(qRed(rgb), qGreen(rgb), qBlue(rgb), found.alpha)};
}

int LayerTable::LineweightOf(int layer) const {
  return layer < 0
             ? kDefaultLineweight
             : layers_[static_cast<std::size_t>(layer)].lineweight.value_or(kDefaultLineweight);
}

ColorSource ColorSourceOf(const QJsonValue& color) {
  if (color.isObject()) {
    return {ColorSource::From::kItself, ExplicitInk(color.toObject())};
  }
  const QString tag = color.toString();
  if (tag == QLatin1String("K")) {
    return {ColorSource::From::kReference, {}};
  }
  return {tag == QLatin1String("W") ? ColorSource::From::kItself : ColorSource::From::kLayer, {}};
}

Ink ResolveColor(const ColorSource& color, int layer, const Inherited& from,
                 const LayerTable& layers) {
  switch (color.from) {
    case ColorSource::From::kItself: return color.ink;
    case ColorSource::From::kReference: return from.byBlock;
    case ColorSource::From::kLayer: break;
  }
  return layers.InkOf(layer);
}

int LineweightSourceOf(const QJsonValue& lineweight) {
  if (lineweight.isDouble()) {
    return std::max(0, lineweight.toInt());
  }
  return lineweight.toString() == QLatin1String("K") ? Look::kLineweightOfReference
                                                     : Look::kLineweightOfLayer;
}

int ResolveLineweight(int source, int layer, const Inherited& from, const LayerTable& layers) {
  if (source >= 0) {
    return source;
  }
  return source == Look::kLineweightOfReference && from.insideBlock ? from.lineweight
                                                                    : layers.LineweightOf(layer);
}

int EffectiveLayer(const Look& look, const Inherited& from) {
  return from.insideBlock && look.isOnZero ? from.layer : look.layer;
}

int EffectiveLayer(const QJsonObject& record, const Inherited& from, const LayerTable& layers) {
  const QString name = record["layer"].toString();
  Look look;
  look.layer = layers.IndexOf(name);
  look.isOnZero = name == QLatin1String("0");
  return EffectiveLayer(look, from);
}

Ink ResolveColor(const QJsonValue& color, int layer, const Inherited& from,
                 const LayerTable& layers) {
  return ResolveColor(ColorSourceOf(color), layer, from, layers);
}

int ResolveLineweight(const QJsonValue& lineweight, int layer, const Inherited& from,
                      const LayerTable& layers) {
  return ResolveLineweight(LineweightSourceOf(lineweight), layer, from, layers);
}

}  // namespace preview
