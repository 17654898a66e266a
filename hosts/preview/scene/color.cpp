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

int EffectiveLayer(const QJsonObject& record, const Inherited& from, const LayerTable& layers) {
  const QString name = record["layer"].toString();
  return from.insideBlock && name == QLatin1String("0") ? from.layer : layers.IndexOf(name);
}

Ink ResolveColor(const QJsonValue& color, int layer, const Inherited& from,
                 const LayerTable& layers) {
  if (color.isObject()) {
    return ExplicitInk(color.toObject());
  }
  const QString tag = color.toString();
  if (tag == QLatin1String("K")) {
    return from.byBlock;
  }
  return tag == QLatin1String("W") ? Ink{} : layers.InkOf(layer);
}

int ResolveLineweight(const QJsonValue& lineweight, int layer, const Inherited& from,
                      const LayerTable& layers) {
  if (from.insideBlock && lineweight.toString() == QLatin1String("K")) {
    return from.lineweight;
  }
  return lineweight.isDouble() ? std::max(0, lineweight.toInt()) : layers.LineweightOf(layer);
}

}  // namespace preview
