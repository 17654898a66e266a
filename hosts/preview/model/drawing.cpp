#include "model/drawing.hpp"

#include <QJsonArray>

#include <algorithm>

#include "model/record.hpp"

namespace preview {
namespace {

std::optional<int> LineweightOf(const QJsonValue& value) {
  return value.isDouble() ? std::optional<int>(value.toInt()) : std::nullopt;
}

Layer ReadLayer(const QJsonObject& record) {
  const QJsonObject color = record["color"].toObject();
  return {.name = record["name"].toString(),
          .visible = record["visible"].toBool(true),
          .locked = record["locked"].toBool(false),
          .color = qRgb(color["r"].toInt(), color["g"].toInt(), color["b"].toInt()),
          .alpha = record["alpha"].toInt(255),
          .lineweight = LineweightOf(record["lw"]),
          .frozen = record["frozen"].toBool(false),
          .plotted = record["plotted"].toBool(true),
          .linetype = record["linetype"].toString()};
}

LineType ReadLineType(const QJsonObject& record) {
  LineType type{.name = record["name"].toString(), .dashes = {}};
  for (const auto& value : record["dashes"].toArray()) {
    const QJsonObject dash = value.toObject();
    type.dashes.push_back({.length = NumberOf(dash, "length"),
                           .text = dash["text"].toString(),
                           .scale = dash["scale"].toDouble(1),
                           .rotation = NumberOf(dash, "rotationRad"),
                           .upright = dash["absoluteRotation"].toBool(),
                           .offset = PointOf(dash, "x", "y")});
  }
  return type;
}

QHash<QString, TextStyle> ReadTextStyles(const QJsonArray& styles) {
  QHash<QString, TextStyle> all;
  for (const auto& value : styles) {
    const QJsonObject record = value.toObject();
    all.insert(record["name"].toString(), {.font = record["font"].toString(),
                                           .vertical = record["vertical"].toBool(),
                                           .widthFactor = record["widthFactor"].toDouble(1),
                                           .obliqueRad = NumberOf(record, "obliqueRad")});
  }
  return all;
}

std::optional<PageSetup> ReadPage(const QJsonObject& record) {
  if (!record.contains("paperW")) {
    return std::nullopt;
  }
  return PageSetup{.paper = {record["paperW"].toDouble(), record["paperH"].toDouble()},
                   .left = record["marginL"].toDouble(),
                   .bottom = record["marginB"].toDouble(),
                   .right = record["marginR"].toDouble(),
                   .top = record["marginT"].toDouble(),
                   .plotOrigin = PointOf(record, "plotOriginX", "plotOriginY"),
                   .unit = record["paperUnit"].toInt(1),
                   .rotation = record["rotation"].toInt(),
                   .scaleNumerator = record["scaleNum"].toDouble(1),
                   .scaleDenominator = record["scaleDen"].toDouble(1)};
}

// Of the n-th block or sheet.
RecordList RecordsOf(const QByteArray& document, std::vector<std::vector<RecordSpan>>& lists,
                     qsizetype index) {
  const auto place = static_cast<std::size_t>(index);
  return place < lists.size() ? RecordList(document, std::move(lists[place])) : RecordList();
}

Layout ReadLayout(const QJsonObject& record, RecordList entities) {
  return {.name = record["name"].toString(),
          .tabOrder = record["tabOrder"].toInt(),
          .page = ReadPage(record),
          .entities = std::move(entities)};
}

QHash<QString, Block> ReadBlocks(const QJsonArray& assets, const QByteArray& document,
                                 ScannedDocument& scanned) {
  QHash<QString, Block> blocks;
  for (qsizetype i = 0; i < assets.size(); ++i) {
    const QJsonObject record = assets[i].toObject();
    blocks.insert(record["name"].toString(),
                  {PointOf(record, "baseX", "baseY"), RecordsOf(document, scanned.assets, i)});
  }
  return blocks;
}

QStringList ReadTexts(const QJsonArray& texts) {
  QStringList all;
  for (const auto& text : texts) {
    all.append(text.toString());
  }
  return all;
}

Drawing ReadSections(const QJsonObject& document, const QByteArray& text,
                     ScannedDocument& scanned) {
  Drawing drawing{.document = text,
                  .release = document["dwgVersion"].toString(),
                  .units = document["insunits"].toInt(),
                  .layers = {},
                  .blocks = ReadBlocks(document["assets"].toArray(), text, scanned),
                  .entities = {text, std::move(scanned.entities)},
                  .layouts = {},
                  .warnings = ReadTexts(document["warnings"].toArray()),
                  .textStyles = ReadTextStyles(document["textStyles"].toArray()),
                  .header = document["header"].toObject()};
  for (const auto& linetype : document["linetypes"].toArray()) {
    drawing.linetypes.push_back(ReadLineType(linetype.toObject()));
  }
  for (const auto& layer : document["layers"].toArray()) {
    drawing.layers.push_back(ReadLayer(layer.toObject()));
  }
  const QJsonArray layouts = document["layouts"].toArray();
  for (qsizetype i = 0; i < layouts.size(); ++i) {
    drawing.layouts.push_back(
        ReadLayout(layouts[i].toObject(), RecordsOf(text, scanned.layouts, i)));
  }
  std::stable_sort(drawing.layouts.begin(), drawing.layouts.end(),
                   [](const Layout& a, const Layout& b) { return a.tabOrder < b.tabOrder; });
  return drawing;
}

}  // namespace

std::optional<Drawing> ReadDocument(const QByteArray& line, QString& problem) {
  const QByteArray text = AsUtf8(line);
  std::optional<ScannedDocument> scanned =
      ScanDocument({text.constData(), static_cast<std::size_t>(text.size())});
  QJsonParseError error;
  const QJsonDocument json = QJsonDocument::fromJson(scanned ? scanned->rest : text, &error);
  if (!scanned || json.isNull()) {
    problem = QString("The worker's answer is no JSON (%1).").arg(error.errorString());
    return std::nullopt;
  }
  if (!json["entities"].isArray() || !json["layers"].isArray()) {
    problem = "The worker's answer is no document.";
    return std::nullopt;
  }
  return ReadSections(json.object(), text, *scanned);
}

}  // namespace preview
