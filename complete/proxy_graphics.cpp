#include "complete/proxy_graphics.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "complete/lookup.hpp"
#include "complete/property_color.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "encode/text_decoding.hpp"
#include "entities/drawing_access.hpp"

namespace {

// The kinds of items, as the description of DWG files numbers them.
enum Kind : std::uint32_t {
  kCircle = 2,
  kCircleOfThreePoints = 3,
  kArc = 4,
  kArcOfThreePoints = 5,
  kPolyline = 6,
  kPolygon = 7,
  kMesh = 8,
  kShell = 9,
  kText = 10,
  kText2 = 11,
  kXline = 12,
  kRay = 13,
  kColor = 14,
  kLayer = 16,
  kLinetype = 18,
  kFill = 20,
  kTrueColor = 22,
  kLineweight = 23,
  kLinetypeScale = 24,
  kThickness = 25,
  kPushClip = 27,
  kPopClip = 28,
  kPushMatrix = 29,
  kPushMatrix2 = 30,
  kPopMatrix = 31,
  kPolylineWithNormal = 32,
  kLwPolyline = 33,
  kUnicodeText = 36,
  kUnicodeText2 = 38,
  kEllipticArc = 44,
};

constexpr std::size_t kPointSize = 24;

// What later items are drawn with; the texts are JSON.
struct Attributes {
  std::string color;
  std::string layer;
  std::string linetype;
  std::int32_t lineweight = -1;
  double linetypeScale = 1;
  double thickness = 0;
  bool isFilled = false;
};

// The name under which a table's control object lists it at that place, as JSON.
template <typename Control>
Handle EntryAt(const Control* control, std::uint32_t index) {
  if (control == nullptr) {
    return 0;
  }
  const auto entries = SpanOf<BITCODE_H>(control->entries, control->num_entries);
  return index < entries.size() ? HandleOf(entries[index]) : 0;
}

class GraphicsWriter {
 public:
  GraphicsWriter(JsonOut& out, const CompleteContext& context)
      : out_(out), context_(context), list_(out, ",\"graphics\":[") {}

  bool IsEmpty() const { return list_.IsEmpty(); }
  void Close() { list_.Close(); }

  void Add(std::uint32_t kind, StoredBytes data) {
    ByteReader reader(data);
    if (SetAttribute(kind, reader)) {
      return;
    }
    list_.Item([&] { AppendItem(kind, reader); });
  }

 private:
  bool SetAttribute(std::uint32_t kind, ByteReader& reader) {
    switch (kind) {
      case kColor: SetColor(IndexWord(reader.Uint32())); return true;
      case kTrueColor: SetColor(reader.Uint32()); return true;
      case kLayer: SetLayer(reader.Uint32()); return true;
      case kLinetype: SetLinetype(reader.Uint32()); return true;
      case kFill: attributes_.isFilled = reader.Uint32() != 0; return true;
      case kLineweight: attributes_.lineweight = reader.Int32(); return true;
      case kLinetypeScale: attributes_.linetypeScale = reader.Double(); return true;
      case kThickness: attributes_.thickness = reader.Double(); return true;
      default: return false;
    }
  }

  // An index as a colour word.
  static std::uint32_t IndexWord(std::uint32_t index) {
    constexpr std::uint32_t kByLayer = 256;
    if (index >= kByLayer) {
      return 0xC0000000;
    }
    return index == 0 ? 0xC1000000 : 0xC3000000 | index;
  }

  void SetColor(std::uint32_t word) {
    JsonOut text;
    AppendColorWord(text, word, context_);
    attributes_.color = text.Text();
  }

  void SetLayer(std::uint32_t index) {
    const auto* control =
        ReferencedObject(context_.dwg().header_vars.LAYER_CONTROL_OBJECT, DWG_TYPE_LAYER_CONTROL,
                         &ObjectTio::LAYER_CONTROL, context_);
    const auto* layer = ObjectOf(EntryAt(control, index), DWG_TYPE_LAYER, &ObjectTio::LAYER);
    attributes_.layer = layer == nullptr ? std::string{} : Quoted(context_.Decode(layer->name));
  }

  void SetLinetype(std::uint32_t index) {
    constexpr std::uint32_t kByBlock = 32766;
    const auto* control =
        ReferencedObject(context_.dwg().header_vars.LTYPE_CONTROL_OBJECT, DWG_TYPE_LTYPE_CONTROL,
                         &ObjectTio::LTYPE_CONTROL, context_);
    const std::string* name = context_.tables.linetypes.Find(EntryAt(control, index));
    attributes_.linetype = name == nullptr ? (index == kByBlock ? "\"K\"" : "") : *name;
  }

  template <typename T>
  const T* ObjectOf(Handle handle, DWG_OBJECT_TYPE type, T* ObjectTio::*member) const {
    const Dwg_Object* object = ObjectAt(handle, context_);
    return object == nullptr || object->fixedtype != type ? nullptr : ObjectData(*object, member);
  }

  static std::string Quoted(std::string_view text) {
    JsonOut out;
    AppendQuoted(out, text);
    return out.Text();
  }

  // Takes back an item whose data ended too early.
  void AppendItem(std::uint32_t kind, ByteReader& reader) {
    const std::size_t start = out_.size();
    const bool isWritten = AppendShape(kind, reader);
    if (!isWritten || !reader.IsGood()) {
      out_.Truncate(start);
      return;
    }
    AppendAttributes(kind);
    out_ += '}';
  }

  bool AppendShape(std::uint32_t kind, ByteReader& reader) {
    switch (kind) {
      case kCircle: return AppendCircle(reader);
      case kCircleOfThreePoints: return AppendPointItem("CIRCLE_3P", reader, 3);
      case kArc: return AppendArc(reader);
      case kArcOfThreePoints: return AppendPointItem("ARC_3P", reader, 3);
      case kPolyline: return AppendPointItem("POLYLINE", reader, reader.Uint32());
      case kPolylineWithNormal:
        return AppendPointItem("POLYLINE", reader, reader.Uint32()) &&
               AppendPoint(",\"normal\":", reader);
      case kPolygon: return AppendPointItem("POLYGON", reader, reader.Uint32());
      case kMesh: return AppendMesh(reader);
      case kShell: return AppendShell(reader);
      case kText:
      case kUnicodeText: return AppendText(reader, kind == kUnicodeText);
      case kText2:
      case kUnicodeText2: return AppendStyledText(reader, kind == kUnicodeText2);
      case kXline: return AppendPointItem("XLINE", reader, 2);
      case kRay: return AppendPointItem("RAY", reader, 2);
      case kLwPolyline: return AppendLwPolyline(reader);
      case kEllipticArc: return AppendEllipticArc(reader);
      default: return AppendStackItem(kind, reader);
    }
  }

  bool AppendStackItem(std::uint32_t kind, ByteReader& reader) {
    switch (kind) {
      case kPushMatrix:
      case kPushMatrix2: return AppendMatrix(reader);
      case kPopMatrix: return Begin("POP_MATRIX");
      case kPushClip: return AppendClip(reader);
      case kPopClip: return Begin("POP_CLIP");
      default: return false;
    }
  }

  static bool IsDrawn(std::uint32_t kind) {
    return kind != kPushMatrix && kind != kPushMatrix2 && kind != kPopMatrix && kind != kPushClip &&
           kind != kPopClip;
  }

  // Filling holds for one item only.
  void AppendAttributes(std::uint32_t kind) {
    if (!IsDrawn(kind)) {
      return;
    }
    AppendStored(",\"color\":", attributes_.color);
    AppendStored(",\"layer\":", attributes_.layer);
    AppendStored(",\"linetype\":", attributes_.linetype);
    if (attributes_.linetypeScale != 1) {
      AppendNumberKey(out_, ",\"linetypeScale\":", attributes_.linetypeScale);
    }
    if (attributes_.lineweight >= 0) {
      AppendIntKey(out_, ",\"lw\":", attributes_.lineweight);
    }
    if (attributes_.thickness != 0) {
      AppendNumberKey(out_, ",\"thickness\":", attributes_.thickness);
    }
    if (attributes_.isFilled) {
      out_ += ",\"filled\":true";
      attributes_.isFilled = false;
    }
  }

  void AppendStored(std::string_view key, const std::string& json) {
    if (!json.empty()) {
      out_ += key;
      out_ += json;
    }
  }

  bool Begin(std::string_view type) {
    AppendQuotedKey(out_, "{\"type\":", type);
    return true;
  }

  bool AppendPoint(std::string_view key, ByteReader& reader) {
    out_ += key;
    AppendBarePoint(reader);
    return true;
  }

  void AppendBarePoint(ByteReader& reader) {
    AppendNumberKey(out_, "[", reader.Double());
    AppendNumberKey(out_, ",", reader.Double());
    AppendNumberKey(out_, ",", reader.Double());
    out_ += ']';
  }

  bool AppendPoints(ByteReader& reader, std::uint64_t count) {
    if (count == 0 || count > reader.Left() / kPointSize) {
      return false;
    }
    JsonList points(out_, ",\"points\":[");
    for (std::uint64_t i = 0; i < count; ++i) {
      points.Item([&] { AppendBarePoint(reader); });
    }
    points.Close();
    return true;
  }

  bool AppendPointItem(std::string_view type, ByteReader& reader, std::uint32_t count) {
    return Begin(type) && AppendPoints(reader, count);
  }

  bool AppendCircle(ByteReader& reader) {
    Begin("CIRCLE");
    AppendPoint(",\"center\":", reader);
    AppendNumberKey(out_, ",\"radius\":", reader.Double());
    return AppendPoint(",\"normal\":", reader);
  }

  bool AppendArc(ByteReader& reader) {
    Begin("ARC");
    AppendPoint(",\"center\":", reader);
    AppendNumberKey(out_, ",\"radius\":", reader.Double());
    AppendPoint(",\"normal\":", reader);
    AppendPoint(",\"startDirection\":", reader);
    AppendNumberKey(out_, ",\"sweepRad\":", reader.Double());
    return true;
  }

  bool AppendEllipticArc(ByteReader& reader) {
    Begin("ELLIPSE");
    AppendPoint(",\"center\":", reader);
    AppendPoint(",\"normal\":", reader);
    AppendNumberKey(out_, ",\"majorRadius\":", reader.Double());
    AppendNumberKey(out_, ",\"minorRadius\":", reader.Double());
    AppendNumberKey(out_, ",\"startParam\":", reader.Double());
    AppendNumberKey(out_, ",\"endParam\":", reader.Double());
    AppendNumberKey(out_, ",\"rotationRad\":", reader.Double());
    return true;
  }

  bool AppendMesh(ByteReader& reader) {
    const std::uint32_t rows = reader.Uint32();
    const std::uint32_t columns = reader.Uint32();
    Begin("MESH");
    AppendIntKey(out_, ",\"rows\":", rows);
    AppendIntKey(out_, ",\"columns\":", columns);
    return AppendPoints(reader, std::uint64_t{rows} * columns);
  }

  // Faces are counts, each before as many numbers of points; a negative count makes
  // the face a hole in the one before.
  bool AppendShell(ByteReader& reader) {
    Begin("SHELL");
    if (!AppendPoints(reader, reader.Uint32())) {
      return false;
    }
    constexpr std::size_t kNumberSize = 4;
    const std::uint32_t length = reader.Uint32();
    if (length > reader.Left() / kNumberSize) {
      return false;
    }
    JsonList faces(out_, ",\"faces\":[");
    std::vector<bool> holes;
    for (std::uint64_t read = 0; read < length;) {
      const std::int64_t count = reader.Int32();
      const auto size =
          std::min<std::uint64_t>(static_cast<std::uint64_t>(std::abs(count)), length - read - 1);
      holes.push_back(count < 0);
      faces.Item([&] { AppendFace(reader, size); });
      read += size + 1;
    }
    faces.Close();
    AppendHoles(holes);
    return true;
  }

  void AppendFace(ByteReader& reader, std::uint64_t size) {
    JsonList face(out_);
    for (std::uint64_t i = 0; i < size; ++i) {
      face.Item([&] { AppendInt(out_, reader.Uint32()); });
    }
    face.Close();
  }

  void AppendHoles(const std::vector<bool>& holes) {
    if (std::find(holes.begin(), holes.end(), true) == holes.end()) {
      return;
    }
    JsonList list(out_, ",\"holes\":[");
    for (std::size_t i = 0; i < holes.size(); ++i) {
      if (holes[i]) {
        list.Item([&] { AppendInt(out_, static_cast<std::int64_t>(i)); });
      }
    }
    list.Close();
  }

  void AppendPlace(ByteReader& reader) {
    Begin("TEXT");
    AppendPoint(",\"position\":", reader);
    AppendPoint(",\"normal\":", reader);
    AppendPoint(",\"direction\":", reader);
  }

  // A text of one byte a character is of the drawing's code page, whatever form the
  // drawing's own texts have.
  void AppendString(std::string_view key, ByteReader& reader, bool isWide) {
    if (isWide) {
      const std::u16string units = reader.WideText();
      const auto* bytes = reinterpret_cast<const char*>(units.data());
      AppendQuotedKey(out_, key, DecodeText(TextForm::kUtf16, bytes));
      return;
    }
    const std::string text = reader.Text();
    if (context_.base.drawing.textForm == TextForm::kUtf16) {
      AppendQuotedKey(out_, key, DecodeText(TextForm::kWindows1252, text.c_str()));
    } else {
      AppendQuotedKey(out_, key, context_.Decode(text.c_str()));
    }
  }

  void AppendTextForm(ByteReader& reader) {
    AppendNumberKey(out_, ",\"height\":", reader.Double());
    AppendNumberKey(out_, ",\"widthFactor\":", reader.Double());
    AppendNumberKey(out_, ",\"obliqueRad\":", reader.Double());
  }

  bool AppendText(ByteReader& reader, bool isWide) {
    AppendPlace(reader);
    AppendTextForm(reader);
    AppendString(",\"text\":", reader, isWide);
    return true;
  }

  void AppendFlag(std::string_view key, ByteReader& reader) {
    if (reader.Uint32() != 0) {
      out_ += key;
      out_ += "true";
    }
  }

  bool AppendStyledText(ByteReader& reader, bool isWide) {
    AppendPlace(reader);
    AppendString(",\"text\":", reader, isWide);
    reader.Uint32();  // its length, which the NUL tells
    AppendFlag(",\"isRaw\":", reader);
    AppendTextForm(reader);
    AppendNumberKey(out_, ",\"tracking\":", reader.Double());
    AppendFlag(",\"isBackward\":", reader);
    AppendFlag(",\"isUpsideDown\":", reader);
    AppendFlag(",\"isVertical\":", reader);
    AppendFlag(",\"isUnderlined\":", reader);
    AppendFlag(",\"isOverlined\":", reader);
    if (isWide) {
      AppendFlag(",\"isBold\":", reader);
      AppendFlag(",\"isItalic\":", reader);
      reader.Uint32();  // character set
      reader.Uint32();  // pitch
      AppendString(",\"typeface\":", reader, isWide);
    }
    AppendString(",\"fontFile\":", reader, isWide);
    AppendString(",\"bigFontFile\":", reader, isWide);
    return true;
  }

  void AppendMatrixRows(ByteReader& reader, std::string_view key) {
    constexpr int kRows = 4;
    JsonList rows(out_, key);
    for (int row = 0; row < kRows; ++row) {
      rows.Item([&] {
        JsonList numbers(out_);
        for (int column = 0; column < kRows; ++column) {
          numbers.Number(reader.Double());
        }
        numbers.Close();
      });
    }
    rows.Close();
  }

  bool AppendMatrix(ByteReader& reader) {
    Begin("PUSH_MATRIX");
    AppendMatrixRows(reader, ",\"matrix\":[");
    return true;
  }

  bool AppendClip(ByteReader& reader) {
    constexpr std::size_t kPlanePointSize = 16;
    Begin("PUSH_CLIP");
    AppendPoint(",\"normal\":", reader);
    AppendPoint(",\"origin\":", reader);
    const std::uint32_t count = reader.Uint32();
    if (count > reader.Left() / kPlanePointSize) {
      return false;
    }
    JsonList points(out_, ",\"points\":[");
    for (std::uint32_t i = 0; i < count; ++i) {
      const double x = reader.Double();
      points.Point(x, reader.Double());
    }
    points.Close();
    AppendMatrixRows(reader, ",\"clipMatrix\":[");
    AppendMatrixRows(reader, ",\"inverseBlockMatrix\":[");
    return true;
  }

  // Stored as the entity of that name is in a DWG.
  bool AppendLwPolyline(ByteReader& reader);

  JsonOut& out_;
  const CompleteContext& context_;
  JsonList list_;
  Attributes attributes_;
};

struct LwPolyline {
  unsigned flags = 0;
  double constantWidth = 0;
  double elevation = 0;
  double thickness = 0;
  BITCODE_3BD normal{0, 0, 1};
  std::vector<BITCODE_2RD> points;
  std::vector<double> bulges;
  std::vector<BITCODE_2RD> widths;
};

// Bits of its flags.
constexpr unsigned kHasNormal = 1;
constexpr unsigned kHasThickness = 2;
constexpr unsigned kHasConstantWidth = 4;
constexpr unsigned kHasElevation = 8;
constexpr unsigned kHasBulges = 16;
constexpr unsigned kHasWidths = 32;
constexpr unsigned kIsClosed = 512;
constexpr unsigned kHasIdentifiers = 1024;

void ReadHead(BitReader& bits, LwPolyline& polyline) {
  polyline.flags = bits.BitShort();
  if ((polyline.flags & kHasConstantWidth) != 0) {
    polyline.constantWidth = bits.BitDouble();
  }
  if ((polyline.flags & kHasElevation) != 0) {
    polyline.elevation = bits.BitDouble();
  }
  if ((polyline.flags & kHasThickness) != 0) {
    polyline.thickness = bits.BitDouble();
  }
  if ((polyline.flags & kHasNormal) != 0) {
    polyline.normal.x = bits.BitDouble();
    polyline.normal.y = bits.BitDouble();
    polyline.normal.z = bits.BitDouble();
  }
}

void ReadPoints(BitReader& bits, LwPolyline& polyline, std::size_t count) {
  BITCODE_2RD point{bits.RawDouble(), bits.RawDouble()};
  polyline.points.push_back(point);
  while (polyline.points.size() < count) {
    point.x = bits.DefaultDouble(point.x);
    point.y = bits.DefaultDouble(point.y);
    polyline.points.push_back(point);
  }
}

// False when the counts say more than the bits can hold: an item takes two at least.
bool ReadLwPolyline(StoredBytes bytes, bool hasIdentifiers, LwPolyline& polyline) {
  BitReader bits(bytes);
  ReadHead(bits, polyline);
  const std::size_t points = bits.BitLong();
  const std::size_t bulges = (polyline.flags & kHasBulges) != 0 ? bits.BitLong() : 0;
  const std::size_t identifiers =
      hasIdentifiers && (polyline.flags & kHasIdentifiers) != 0 ? bits.BitLong() : 0;
  const std::size_t widths = (polyline.flags & kHasWidths) != 0 ? bits.BitLong() : 0;
  if (points == 0 || 2 * (points + bulges + identifiers + widths) > bits.BitsLeft()) {
    return false;
  }
  ReadPoints(bits, polyline, points);
  for (std::size_t i = 0; i < bulges; ++i) {
    polyline.bulges.push_back(bits.BitDouble());
  }
  for (std::size_t i = 0; i < identifiers; ++i) {
    bits.BitLong();
  }
  for (std::size_t i = 0; i < widths; ++i) {
    const double start = bits.BitDouble();
    polyline.widths.push_back({start, bits.BitDouble()});
  }
  return bits.IsGood();
}

bool GraphicsWriter::AppendLwPolyline(ByteReader& reader) {
  const std::uint32_t size = reader.Uint32();
  LwPolyline polyline;
  const StoredBytes bytes = reader.Rest().first(std::min<std::size_t>(size, reader.Left()));
  if (!ReadLwPolyline(bytes, context_.dwg().header.from_version >= R_2010b, polyline)) {
    return false;
  }
  Begin("LWPOLYLINE");
  AppendBoolKey(out_, ",\"closed\":", (polyline.flags & kIsClosed) != 0);
  JsonList points(out_, ",\"points\":[");
  for (const BITCODE_2RD& point : polyline.points) {
    points.Point(point.x, point.y);
  }
  points.Close();
  JsonList bulges(out_, ",\"bulges\":[");
  for (const double bulge : polyline.bulges) {
    bulges.Number(bulge);
  }
  bulges.Close();
  JsonList widths(out_, ",\"widths\":[");
  for (const BITCODE_2RD& width : polyline.widths) {
    widths.Point(width.x, width.y);
  }
  widths.Close();
  AppendNumberKey(out_, ",\"constantWidth\":", polyline.constantWidth);
  AppendNumberKey(out_, ",\"elevation\":", polyline.elevation);
  AppendNumberKey(out_, ",\"normal\":[", polyline.normal.x);
  AppendNumberKey(out_, ",", polyline.normal.y);
  AppendNumberKey(out_, ",", polyline.normal.z);
  out_ += ']';
  return true;
}

}  // namespace

StoredBytes StoredGraphics(const Dwg_Object_Entity& entity) {
  if (entity.preview_exists == 0) {
    return {};
  }
  return SpanOf<unsigned char>(entity.preview, static_cast<std::size_t>(entity.preview_size));
}

void AppendStoredGraphics(JsonOut& out, StoredBytes bytes, const CompleteContext& context) {
  constexpr std::size_t kHeadSize = 8;
  const std::size_t start = out.size();
  GraphicsWriter writer(out, context);
  StoredBytes rest = bytes.size() < kHeadSize ? StoredBytes{} : bytes.subspan(kHeadSize);
  while (rest.size() >= kHeadSize) {
    ByteReader head(rest);
    const std::size_t size = head.Uint32();
    const std::uint32_t kind = head.Uint32();
    if (size < kHeadSize || size > rest.size()) {
      break;
    }
    writer.Add(kind, rest.subspan(kHeadSize, size - kHeadSize));
    rest = rest.subspan(size);
  }
  writer.Close();
  if (writer.IsEmpty()) {
    out.Truncate(start);
  }
}
