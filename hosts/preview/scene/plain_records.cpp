#include "scene/plain_records.hpp"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

#include "model/record_list.hpp"
#include "scene/curves.hpp"
#include "scene/plane.hpp"
#include "scene/text_layout.hpp"

namespace preview {

namespace {

// In the order in which records have them, so that the next key is found near the one
// before.
enum class Key : unsigned char {
  kType,
  kLayer,
  kStartX,
  kStartY,
  kEndX,
  kEndY,
  kCx,
  kCy,
  kRadius,
  kStartAngle,
  kEndAngle,
  kClosed,
  kPoints,
  kBulges,
  kBlockName,
  kX,
  kY,
  kHtml,
  kWidth,
  kHeight,
  kRotation,
  kAttachment,
  kScaleX,
  kScaleY,
  kColor,
  kLineweight,
  kLinetype,
  kLinetypeScale,
  kTextStyle,
  kWidthFactor,
  kLineSpacing,
  kLinetypeGeneration,
  kInvisible,
  // From here on keys that change nothing of what is drawn.
  kHandle,
  kIgnored
};
constexpr auto kUsedKeys = static_cast<std::size_t>(Key::kHandle);

struct NamedKey {
  std::string_view name;
  Key key;
};
constexpr NamedKey kKeys[] = {{"type", Key::kType},
                              {"layer", Key::kLayer},
                              {"startX", Key::kStartX},
                              {"startY", Key::kStartY},
                              {"endX", Key::kEndX},
                              {"endY", Key::kEndY},
                              {"cx", Key::kCx},
                              {"cy", Key::kCy},
                              {"radius", Key::kRadius},
                              {"startAngleRad", Key::kStartAngle},
                              {"endAngleRad", Key::kEndAngle},
                              {"closed", Key::kClosed},
                              {"points", Key::kPoints},
                              {"bulges", Key::kBulges},
                              {"blockName", Key::kBlockName},
                              {"x", Key::kX},
                              {"y", Key::kY},
                              {"html", Key::kHtml},
                              {"rawMtext", Key::kIgnored},
                              {"width", Key::kWidth},
                              {"height", Key::kHeight},
                              {"rotationRad", Key::kRotation},
                              {"attachment", Key::kAttachment},
                              {"runs", Key::kIgnored},
                              {"blocks", Key::kIgnored},
                              {"scaleX", Key::kScaleX},
                              {"scaleY", Key::kScaleY},
                              {"scaleZ", Key::kIgnored},
                              {"fontFamily", Key::kIgnored},
                              {"color", Key::kColor},
                              {"lw", Key::kLineweight},
                              {"handle", Key::kHandle},
                              {"owner", Key::kIgnored},
                              {"linetype", Key::kLinetype},
                              {"linetypeScale", Key::kLinetypeScale},
                              {"textStyle", Key::kTextStyle},
                              {"widthFactor", Key::kWidthFactor},
                              {"obliqueRad", Key::kIgnored},
                              {"lineSpacingStyle", Key::kIgnored},
                              {"lineSpacingFactor", Key::kLineSpacing},
                              {"flowDirection", Key::kIgnored},
                              {"linetypeGeneration", Key::kLinetypeGeneration},
                              {"invisible", Key::kInvisible},
                              {"thickness", Key::kIgnored},
                              {"startZ", Key::kIgnored},
                              {"endZ", Key::kIgnored},
                              {"cz", Key::kIgnored},
                              {"z", Key::kIgnored},
                              {"elevation", Key::kIgnored}};

// The key at or behind `from`, where it is looked for first.
const NamedKey* FindKey(std::string_view name, std::size_t& from) {
  for (std::size_t i = 0; i < std::size(kKeys); ++i) {
    const std::size_t at = from + i < std::size(kKeys) ? from + i : from + i - std::size(kKeys);
    if (kKeys[at].name == name) {
      from = at + 1;
      return &kKeys[at];
    }
  }
  return nullptr;
}

// Past a value, whose brackets and quotes match: the document was scanned.
std::size_t EndOfValue(std::string_view text, std::size_t at) {
  int depth = 0;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '"') {
      for (++at; at < text.size() && text[at] != '"'; ++at) {
        at += text[at] == '\\' ? 1U : 0U;
      }
    } else if (c == '{' || c == '[') {
      ++depth;
    } else if (c == '}' || c == ']') {
      if (--depth < 0) {
        return at;
      }
    } else if (c == ',' && depth == 0) {
      return at;
    }
  }
  return text.size();
}

std::optional<double> NumberIn(std::string_view text) {
  double number = 0;
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
  return problem == std::errc() && end == text.data() + text.size() ? std::optional(number)
                                                                    : std::nullopt;
}

// Without escapes: what has some is left to the other way.
std::optional<std::string_view> StringIn(std::string_view text) {
  if (text.size() < 2 || text.front() != '"' || text.find('\\') != std::string_view::npos) {
    return std::nullopt;
  }
  return text.substr(1, text.size() - 2);
}

// Numbers of a list whose items may be lists again, one call each, with the place in
// the inner list. False for anything else.
template <typename Number>
bool ReadNumbers(std::string_view text, Number number) {
  int depth = 0;
  int place = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    const char c = text[at];
    if (c == '[') {
      ++depth;
      place = 0;
      ++at;
    } else if (c == ']') {
      --depth;
      ++at;
    } else if (c == ',') {
      ++at;
    } else {
      double value = 0;
      const auto [end, problem] =
          std::from_chars(text.data() + at, text.data() + text.size(), value);
      if (problem != std::errc() || depth == 0) {
        return false;
      }
      number(depth, place++, value);
      at = static_cast<std::size_t>(end - text.data());
    }
  }
  return depth == 0;
}

QJsonValue JsonIn(std::string_view text) {
  const QByteArray list = "[" + QByteArray(text.data(), static_cast<qsizetype>(text.size())) + "]";
  return QJsonDocument::fromJson(list)[0];
}

}  // namespace

// The values of a record as they are written, by their keys.
struct PlainReader::Fields {
  std::array<std::string_view, kUsedKeys> values;

  // Whether the record is an object of known keys.
  bool Read(std::string_view text) {
    if (text.size() < 2 || text.front() != '{' || text.back() != '}') {
      return false;
    }
    std::size_t expected = 0;
    std::size_t at = 1;
    while (at + 1 < text.size()) {
      const std::size_t end = text[at] == '"' ? text.find('"', at + 1) : std::string_view::npos;
      if (end == std::string_view::npos || text[end + 1] != ':') {
        return false;
      }
      const NamedKey* key = FindKey(text.substr(at + 1, end - at - 1), expected);
      if (key == nullptr) {
        return false;
      }
      at = EndOfValue(text, end + 2);
      if (key->key < Key::kHandle) {
        values[static_cast<std::size_t>(key->key)] = text.substr(end + 2, at - end - 2);
      }
      at += at < text.size() && text[at] == ',' ? 1U : 0U;
      if (at + 1 == text.size()) {
        return true;
      }
    }
    return false;
  }

  std::string_view Text(Key key) const { return values[static_cast<std::size_t>(key)]; }
  bool Has(Key key) const { return !Text(key).empty(); }
  bool IsTrue(Key key) const { return Text(key) == "true"; }

  // Whether the key holds a string with another meaning than its bytes.
  bool IsPlainString(Key key) const { return !Has(key) || StringIn(Text(key)).has_value(); }
  std::string_view String(Key key) const { return StringIn(Text(key)).value_or(""); }

  // Of a string, without its quotes.
  std::string_view Inner(Key key) const {
    return Text(key).size() < 2 ? std::string_view() : Text(key).substr(1, Text(key).size() - 2);
  }

  double Number(Key key, double absent = 0) const { return NumberIn(Text(key)).value_or(absent); }
  QPointF Point(Key x, Key y) const { return {Number(x), Number(y)}; }
};

namespace {

// Two points that are one, or not finite, are for the other way to decide.
bool IsPlainRun(const QPolygonF& points) {
  for (qsizetype i = 0; i < points.size(); ++i) {
    if (!std::isfinite(points[i].x()) || !std::isfinite(points[i].y()) ||
        (i > 0 && points[i] == points[i - 1])) {
      return false;
    }
  }
  return points.size() > 1;
}

ShapePtr ShapeOfRun(QPolygonF points, bool restartsDashes) {
  if (!IsPlainRun(points)) {
    return nullptr;
  }
  auto shape = std::make_shared<Shape>();
  shape->polyline = std::move(points);
  shape->restartsDashes = restartsDashes;
  return shape;
}

ShapePtr ShapeOfRound(QPointF center, double radius, double start, double end) {
  if (!(radius > 0) || !std::isfinite(radius)) {
    return nullptr;
  }
  auto shape = std::make_shared<Shape>();
  shape->round = std::make_shared<const Round>(RoundOf(center, radius, start, end));
  return shape;
}

// Null for one with arcs.
ShapePtr ShapeOfPolyline(std::string_view points, std::string_view bulges, bool closed,
                         bool generates) {
  QPolygonF run;
  run.reserve(std::count(points.begin(), points.end(), '[') + (closed ? 0 : -1));
  const bool isRead = ReadNumbers(points, [&run](int, int place, double value) {
    if (place == 0) {
      run.append(QPointF(value, 0));
    } else if (place == 1) {
      run.back().setY(value);
    }
  });
  bool isStraight = true;
  const bool areRead = ReadNumbers(
      bulges, [&isStraight](int, int, double bulge) { isStraight = isStraight && bulge == 0; });
  if (!isRead || !areRead || !isStraight || run.size() < 2) {
    return nullptr;
  }
  if (closed && run.front() != run.back()) {
    run.append(QPointF(run.front()));
  }
  return ShapeOfRun(std::move(run), !generates);
}

ShapePtr LateShape(const TextExtent& extent, double height, const QTransform& place) {
  auto shape = std::make_shared<Shape>();
  shape->isText = true;
  shape->hasText = true;
  shape->lateHeight = static_cast<float>(height);
  shape->polyline = place.map(
      QPolygonF(QRectF(QPointF(0, height - extent.height), QPointF(extent.width, height))));
  return shape;
}

}  // namespace

PlainReader::PlainReader(const Drawing& drawing, const LayerTable& layers,
                         const QHash<QString, int>& patterns, double lineScale)
    : patterns_(patterns), lineScale_(lineScale), layerTable_(layers) {
  for (const Layer& layer : drawing.layers) {
    layers_[layer.name.toStdString()] = layers.IndexOf(layer.name);
  }
  for (auto style = drawing.textStyles.begin(); style != drawing.textStyles.end(); ++style) {
    widthFactors_[style.key().toStdString()] = style->widthFactor;
  }
}

int PlainReader::DashesOf(std::string_view name) const {
  if (name == "K") {
    return Look::kDashesOfReference;
  }
  return name == "L"
             ? Look::kDashesOfLayer
             : patterns_.value(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()))
                                   .toCaseFolded());
}

Look PlainReader::LookOf(const QJsonObject& record) const {
  const QString layer = record["layer"].toString();
  return {.layer = layerTable_.IndexOf(layer),
          .isOnZero = layer == QLatin1String("0"),
          .isInvisible = record["invisible"].toBool(),
          .color = ColorSourceOf(record["color"]),
          .lineweight = LineweightSourceOf(record["lw"]),
          .dashes = DashesOf(record["linetype"].toString().toStdString()),
          .dashScale = lineScale_ * record["linetypeScale"].toDouble(1)};
}

Look PlainReader::LookOf(const Fields& fields) const {
  const std::string_view layer = fields.String(Key::kLayer);
  const auto found = layers_.find(layer);
  Look look{.layer = found == layers_.end() ? -1 : found->second,
            .isOnZero = layer == "0",
            .isInvisible = fields.IsTrue(Key::kInvisible),
            .color = {},
            .dashes = DashesOf(fields.String(Key::kLinetype)),
            .dashScale = lineScale_ * fields.Number(Key::kLinetypeScale, 1)};
  if (fields.Text(Key::kColor) != "\"L\"") {
    look.color = ColorSourceOf(JsonIn(fields.Text(Key::kColor)));
  }
  if (fields.Text(Key::kLineweight) != "\"L\"") {
    look.lineweight = LineweightSourceOf(JsonIn(fields.Text(Key::kLineweight)));
  }
  return look;
}

ShapePtr PlainReader::SingleLine(const Fields& fields) {
  const double height = fields.Number(Key::kHeight);
  if (!(height > 0) || !std::isfinite(height)) {
    return nullptr;
  }
  const double factor = fields.Number(Key::kWidthFactor, 1);
  const TextExtent extent =
      GuessExtent(fields.Inner(Key::kHtml), {.height = height, .factor = factor > 0 ? factor : 1});
  return LateShape(extent, height,
                   PlaceText(fields.Point(Key::kX, Key::kY), fields.Number(Key::kRotation), {}));
}

ShapePtr PlainReader::MultiLine(const Fields& fields) const {
  const double height = fields.Number(Key::kHeight);
  if (!(height > 0) || !std::isfinite(height)) {
    return nullptr;
  }
  const auto style = widthFactors_.find(fields.String(Key::kTextStyle));
  const TextExtent extent =
      GuessExtent(fields.Inner(Key::kHtml),
                  {.height = height,
                   .frame = std::max(0.0, fields.Number(Key::kWidth)),
                   .factor = style == widthFactors_.end() ? 1 : style->second,
                   .spacing = std::clamp(fields.Number(Key::kLineSpacing, 1), 0.25, 4.0)});
  const QPointF shift = ShiftOfAttachment(static_cast<int>(fields.Number(Key::kAttachment, 1)),
                                          {extent.width, extent.height}, height);
  return LateShape(extent, height,
                   PlaceText(fields.Point(Key::kX, Key::kY), fields.Number(Key::kRotation), shift));
}

std::optional<PlainRecord> PlainReader::Read(std::string_view record, bool textsAreLate) const {
  Fields fields;
  if (!fields.Read(record) || !fields.IsPlainString(Key::kLayer) ||
      !fields.IsPlainString(Key::kLinetype) || !fields.IsPlainString(Key::kBlockName) ||
      !fields.IsPlainString(Key::kTextStyle)) {
    return std::nullopt;
  }
  const std::string_view type = fields.String(Key::kType);
  PlainRecord plain;
  if (type == "LINE") {
    plain.shape = ShapeOfRun(
        {fields.Point(Key::kStartX, Key::kStartY), fields.Point(Key::kEndX, Key::kEndY)}, false);
  } else if (type == "LWPOLYLINE") {
    plain.shape =
        ShapeOfPolyline(fields.Text(Key::kPoints), fields.Text(Key::kBulges),
                        fields.IsTrue(Key::kClosed), fields.IsTrue(Key::kLinetypeGeneration));
  } else if (type == "CIRCLE") {
    plain.shape = ShapeOfRound(fields.Point(Key::kCx, Key::kCy), fields.Number(Key::kRadius), 0,
                               2 * std::numbers::pi);
  } else if (type == "ARC") {
    plain.shape = ShapeOfRound(fields.Point(Key::kCx, Key::kCy), fields.Number(Key::kRadius),
                               fields.Number(Key::kStartAngle), fields.Number(Key::kEndAngle));
  } else if (type == "TEXT" && textsAreLate) {
    plain.shape = SingleLine(fields);
  } else if (type == "MTEXT" && textsAreLate) {
    plain.shape = MultiLine(fields);
  } else if (type == "INSERT") {
    const std::string_view block = fields.String(Key::kBlockName);
    plain.block = QString::fromUtf8(block.data(), static_cast<qsizetype>(block.size()));
    plain.place =
        PlaceOfReference(fields.Point(Key::kX, Key::kY), fields.Number(Key::kRotation),
                         {fields.Number(Key::kScaleX, 1), fields.Number(Key::kScaleY, 1)});
  }
  if (!plain.shape && plain.block.isEmpty()) {
    return std::nullopt;
  }
  plain.look = LookOf(fields);
  return plain;
}

}  // namespace preview
