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
#include "entities/walk_entities.hpp"
#include "entities/wipeout.hpp"
#include "text/dimension.hpp"
#include "text/leader.hpp"
#include "text/mtext.hpp"
#include "text/multileader.hpp"
#include "text/single_line_text.hpp"

namespace {

// What every writer may ask for besides its own struct.
struct Source {
  JsonOut& out;
  const Dwg_Object& object;
  std::string_view layer;
  EntityContext& context;
};

// Calls the writer with the type's data and whichever of layer, context and
// object it takes; nothing is written when the data is missing.
template <typename T, typename Writer>
void Write(const Source& source, T* EntityTio::*member, Writer writer) {
  const T* data = EntityData(source.object, member);
  if (data == nullptr) {
    return;
  }
  if constexpr (requires { writer(source.out, *data, source.layer); }) {
    writer(source.out, *data, source.layer);
  } else if constexpr (requires { writer(source.out, *data, source.layer, source.context); }) {
    writer(source.out, *data, source.layer, source.context);
  } else {
    writer(source.out, *data, source.layer, source.context, source.object);
  }
}

// These two bracket every block's contents and are no drawing content.
bool IsBlockBracket(std::string_view typeName) {
  return typeName == "BLOCK" || typeName == "ENDBLK";
}

void CountUnsupported(const Source& source) {
  const char* name = source.object.name;
  const std::string_view typeName = name == nullptr ? "UNKNOWN" : name;
  if (!IsBlockBracket(typeName)) {
    ++source.context.unknownTypeCounts[std::string(typeName)];
  }
}

}  // namespace

void convertEntity(JsonOut& out, const Dwg_Object& object, EntityContext& context) {
  if (!IsEntity(object) || object.tio.entity == nullptr) {
    return;
  }
  const Source source{out, object, LayerNameOf(*object.tio.entity, context), context};
  using Tio = EntityTio;
  switch (object.fixedtype) {
    case DWG_TYPE_TEXT: return Write(source, &Tio::TEXT, AppendTextRecord);
    case DWG_TYPE_ATTRIB: return Write(source, &Tio::ATTRIB, AppendAttributeRecord);
    case DWG_TYPE_ATTDEF: return Write(source, &Tio::ATTDEF, AppendAttributeDefinitionRecord);
    case DWG_TYPE_INSERT: return Write(source, &Tio::INSERT, AppendInsertRecord);
    case DWG_TYPE_MINSERT: return Write(source, &Tio::MINSERT, AppendArrayedInsertRecord);
    case DWG_TYPE_POLYLINE_2D: return Write(source, &Tio::POLYLINE_2D, AppendPolyline2dRecord);
    case DWG_TYPE_POLYLINE_3D: return Write(source, &Tio::POLYLINE_3D, AppendPolyline3dRecord);
    case DWG_TYPE_ARC: return Write(source, &Tio::ARC, AppendArcRecord);
    case DWG_TYPE_CIRCLE: return Write(source, &Tio::CIRCLE, AppendCircleRecord);
    case DWG_TYPE_LINE: return Write(source, &Tio::LINE, AppendLineRecord);
    case DWG_TYPE_DIMENSION_LINEAR:
      return Write(source, &Tio::DIMENSION_LINEAR, AppendLinearDimensionRecord);
    case DWG_TYPE_DIMENSION_ALIGNED:
      return Write(source, &Tio::DIMENSION_ALIGNED, AppendAlignedDimensionRecord);
    case DWG_TYPE_DIMENSION_RADIUS:
      return Write(source, &Tio::DIMENSION_RADIUS, AppendRadiusDimensionRecord);
    case DWG_TYPE_POINT: return Write(source, &Tio::POINT, AppendPointRecord);
    case DWG_TYPE_SOLID: return Write(source, &Tio::SOLID, AppendSolidRecord);
    case DWG_TYPE_VIEWPORT: return Write(source, &Tio::VIEWPORT, AppendViewportRecord);
    case DWG_TYPE_ELLIPSE: return Write(source, &Tio::ELLIPSE, AppendEllipseRecord);
    case DWG_TYPE_SPLINE: return Write(source, &Tio::SPLINE, AppendSplineRecord);
    case DWG_TYPE_RAY: return Write(source, &Tio::RAY, AppendRayRecord);
    case DWG_TYPE_XLINE: return Write(source, &Tio::XLINE, AppendXlineRecord);
    case DWG_TYPE_MTEXT: return Write(source, &Tio::MTEXT, AppendMtextRecord);
    case DWG_TYPE_LEADER: return Write(source, &Tio::LEADER, AppendLeaderRecord);
    case DWG_TYPE_LWPOLYLINE: return Write(source, &Tio::LWPOLYLINE, AppendLwPolylineRecord);
    case DWG_TYPE_HATCH: return Write(source, &Tio::HATCH, AppendHatchRecord);
    case DWG_TYPE_IMAGE: return Write(source, &Tio::IMAGE, AppendImageRecord);
    case DWG_TYPE_MULTILEADER: return Write(source, &Tio::MULTILEADER, AppendMultileaderRecord);
    case DWG_TYPE_PDFUNDERLAY: return Write(source, &Tio::PDFUNDERLAY, AppendPdfUnderlayRecord);
    case DWG_TYPE_WIPEOUT: return Write(source, &Tio::WIPEOUT, AppendWipeoutRecord);
    default: return CountUnsupported(source);
  }
}

void AppendEntity(EntityList& list, const Dwg_Object& object, EntityContext& context) {
  const std::size_t end = list.out.size();
  if (!list.first) {
    list.out += ',';
  }
  const std::size_t start = list.out.size();
  convertEntity(list.out, object, context);
  if (list.out.size() == start) {
    list.out.Truncate(end);
    return;
  }
  AppendColorAndLineweight(list.out, start, object, list.debugColors);
  list.first = false;
}

void AppendOwnedEntities(EntityList& list, const Dwg_Object& owner, EntityContext& context) {
  WalkEntities(context.tables.OwnedBy(owner),
               [&](const Dwg_Object& entity) { AppendEntity(list, entity, context); });
}

void AppendEntityWithAttributes(EntityList& list, const Dwg_Object& object,
                                EntityContext& context) {
  AppendEntity(list, object, context);
  if (IsInsert(object)) {
    AppendOwnedEntities(list, object, context);
  }
}
