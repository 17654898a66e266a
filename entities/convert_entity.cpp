#include "entities/convert_entity.hpp"

#include <string_view>
#include <utility>

#include "encode/color.hpp"
#include "entities/drawing_access.hpp"
#include "entities/hatch.hpp"
#include "entities/image.hpp"
#include "entities/insert.hpp"
#include "entities/polyline.hpp"
#include "entities/simple_curves.hpp"
#include "entities/solid.hpp"
#include "entities/spline.hpp"
#include "entities/viewport.hpp"
#include "entities/wipeout.hpp"
#include "text/dimension.hpp"
#include "text/leader.hpp"
#include "text/mtext.hpp"
#include "text/multileader.hpp"
#include "text/single_line_text.hpp"

namespace {

// What every writer may ask for besides its own struct.
struct Source {
  const Dwg_Object& object;
  std::string_view layer;
  EntityContext& context;
};

// Calls the writer with the type's data and whichever of layer, context and
// object it takes; nothing is written when the data is missing.
template <typename T, typename Writer>
std::string Write(const Source& source, T* EntityTio::*member, Writer writer) {
  const T* data = EntityData(source.object, member);
  if (data == nullptr) {
    return {};
  }
  if constexpr (requires { writer(*data, source.layer); }) {
    return writer(*data, source.layer);
  } else if constexpr (requires { writer(*data, source.layer, source.context); }) {
    return writer(*data, source.layer, source.context);
  } else {
    return writer(*data, source.layer, source.context, source.object);
  }
}

// These two bracket every block's contents and are no drawing content.
bool IsBlockBracket(std::string_view typeName) {
  return typeName == "BLOCK" || typeName == "ENDBLK";
}

std::string CountUnsupported(const Source& source) {
  const char* name = source.object.name;
  const std::string_view typeName = name == nullptr ? "UNKNOWN" : name;
  if (!IsBlockBracket(typeName)) {
    ++source.context.unknownTypeCounts[std::string(typeName)];
  }
  return {};
}

}  // namespace

std::string convertEntity(const Dwg_Object& object, EntityContext& context) {
  if (!IsEntity(object) || object.tio.entity == nullptr) {
    return {};
  }
  const Source source{object, LayerNameOf(*object.tio.entity, context), context};
  using Tio = EntityTio;
  switch (object.fixedtype) {
    case DWG_TYPE_TEXT: return Write(source, &Tio::TEXT, TextRecord);
    case DWG_TYPE_ATTRIB: return Write(source, &Tio::ATTRIB, AttributeRecord);
    case DWG_TYPE_ATTDEF: return Write(source, &Tio::ATTDEF, AttributeDefinitionRecord);
    case DWG_TYPE_INSERT: return Write(source, &Tio::INSERT, InsertRecord);
    case DWG_TYPE_MINSERT: return Write(source, &Tio::MINSERT, ArrayedInsertRecord);
    case DWG_TYPE_POLYLINE_2D: return Write(source, &Tio::POLYLINE_2D, Polyline2dRecord);
    case DWG_TYPE_POLYLINE_3D: return Write(source, &Tio::POLYLINE_3D, Polyline3dRecord);
    case DWG_TYPE_ARC: return Write(source, &Tio::ARC, ArcRecord);
    case DWG_TYPE_CIRCLE: return Write(source, &Tio::CIRCLE, CircleRecord);
    case DWG_TYPE_LINE: return Write(source, &Tio::LINE, LineRecord);
    case DWG_TYPE_DIMENSION_LINEAR:
      return Write(source, &Tio::DIMENSION_LINEAR, LinearDimensionRecord);
    case DWG_TYPE_DIMENSION_ALIGNED:
      return Write(source, &Tio::DIMENSION_ALIGNED, AlignedDimensionRecord);
    case DWG_TYPE_DIMENSION_RADIUS:
      return Write(source, &Tio::DIMENSION_RADIUS, RadiusDimensionRecord);
    case DWG_TYPE_POINT: return Write(source, &Tio::POINT, PointRecord);
    case DWG_TYPE_SOLID: return Write(source, &Tio::SOLID, SolidRecord);
    case DWG_TYPE_VIEWPORT: return Write(source, &Tio::VIEWPORT, ViewportRecord);
    case DWG_TYPE_ELLIPSE: return Write(source, &Tio::ELLIPSE, EllipseRecord);
    case DWG_TYPE_SPLINE: return Write(source, &Tio::SPLINE, SplineRecord);
    case DWG_TYPE_RAY: return Write(source, &Tio::RAY, RayRecord);
    case DWG_TYPE_XLINE: return Write(source, &Tio::XLINE, XlineRecord);
    case DWG_TYPE_MTEXT: return Write(source, &Tio::MTEXT, MtextRecord);
    case DWG_TYPE_LEADER: return Write(source, &Tio::LEADER, LeaderRecord);
    case DWG_TYPE_LWPOLYLINE: return Write(source, &Tio::LWPOLYLINE, LwPolylineRecord);
    case DWG_TYPE_HATCH: return Write(source, &Tio::HATCH, HatchRecord);
    case DWG_TYPE_IMAGE: return Write(source, &Tio::IMAGE, ImageRecord);
    case DWG_TYPE_MULTILEADER: return Write(source, &Tio::MULTILEADER, MultileaderRecord);
    case DWG_TYPE_PDFUNDERLAY: return Write(source, &Tio::PDFUNDERLAY, PdfUnderlayRecord);
    case DWG_TYPE_WIPEOUT: return Write(source, &Tio::WIPEOUT, WipeoutRecord);
    default: return CountUnsupported(source);
  }
}

void AppendEntity(EntityList& list, const Dwg_Object& object, EntityContext& context) {
  const std::string record =
      AppendColorAndLineweight(convertEntity(object, context), object, list.debugColors);
  if (record.empty()) {
    return;
  }
  if (!list.first) {
    list.out += ',';
  }
  list.first = false;
  list.out += record;
}

void AppendOwnedEntities(EntityList& list, const Dwg_Object& owner, EntityContext& context) {
  for (const Dwg_Object* entity : context.tables.OwnedBy(owner)) {
    AppendEntity(list, *entity, context);
  }
}

void AppendEntityWithAttributes(EntityList& list, const Dwg_Object& object,
                                EntityContext& context) {
  AppendEntity(list, object, context);
  if (IsInsert(object)) {
    AppendOwnedEntities(list, object, context);
  }
}
