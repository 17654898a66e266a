#include "entities/convert_entity.hpp"

#include <cstddef>
#include <string>
#include <string_view>

#include "entities/drawing_access.hpp"
#include "entities/hatch.hpp"
#include "entities/image.hpp"
#include "entities/insert.hpp"
#include "entities/open_record.hpp"
#include "entities/polyline.hpp"
#include "entities/record.hpp"
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

using Source = RecordSource<EntityContext>;

// These two bracket every block's contents and are no drawing content.
bool IsBlockBracket(std::string_view typeName) {
  return typeName == "BLOCK" || typeName == "ENDBLK";
}

void CountUnsupported(const Source& source) {
  const char* name = source.object.name;
  const std::string_view typeName = name == nullptr ? "UNKNOWN" : name;
  if (!IsBlockBracket(typeName)) {
    ++source.context.findings.skippedTypes[std::string(typeName)];
  }
}

}  // namespace

void AppendOpenRecord(const RecordSource<EntityContext>& source) {
  using Tio = EntityTio;
  switch (source.object.fixedtype) {
    case DWG_TYPE_TEXT: return WriteRecord(source, "TEXT", &Tio::TEXT, AppendText);
    case DWG_TYPE_ATTRIB: return WriteRecord(source, "DYNTEXT", &Tio::ATTRIB, AppendAttribute);
    case DWG_TYPE_ATTDEF:
      return WriteRecord(source, "DYNTEXT", &Tio::ATTDEF, AppendAttributeDefinition);
    case DWG_TYPE_INSERT: return WriteRecord(source, "INSERT", &Tio::INSERT, AppendInsert);
    case DWG_TYPE_MINSERT: return WriteRecord(source, "INSERT", &Tio::MINSERT, AppendArrayedInsert);
    case DWG_TYPE_POLYLINE_2D:
      return WriteRecord(source, "POLYLINE_2D", &Tio::POLYLINE_2D, AppendPolyline2d);
    case DWG_TYPE_POLYLINE_3D:
      return WriteRecord(source, "POLYLINE_3D", &Tio::POLYLINE_3D, AppendPolyline3d);
    case DWG_TYPE_ARC: return WriteRecord(source, "ARC", &Tio::ARC, AppendArc);
    case DWG_TYPE_CIRCLE: return WriteRecord(source, "CIRCLE", &Tio::CIRCLE, AppendCircle);
    case DWG_TYPE_LINE: return WriteRecord(source, "LINE", &Tio::LINE, AppendLine);
    case DWG_TYPE_DIMENSION_LINEAR:
      return WriteRecord(source, "DIMENSION_LINEAR", &Tio::DIMENSION_LINEAR, AppendLinearDimension);
    case DWG_TYPE_DIMENSION_ALIGNED:
      return WriteRecord(source, "DIMENSION_ALIGNED", &Tio::DIMENSION_ALIGNED,
                         AppendAlignedDimension);
    case DWG_TYPE_DIMENSION_RADIUS:
      return WriteRecord(source, "DIMENSION_RADIUS", &Tio::DIMENSION_RADIUS, AppendRadiusDimension);
    case DWG_TYPE_POINT: return WriteRecord(source, "POINT", &Tio::POINT, AppendPoint);
    case DWG_TYPE_SOLID: return WriteRecord(source, "SOLID", &Tio::SOLID, AppendSolid);
    case DWG_TYPE_VIEWPORT: return WriteRecord(source, "VIEWPORT", &Tio::VIEWPORT, AppendViewport);
    case DWG_TYPE_ELLIPSE: return WriteRecord(source, "ELLIPSE", &Tio::ELLIPSE, AppendEllipse);
    case DWG_TYPE_SPLINE: return WriteRecord(source, "SPLINE", &Tio::SPLINE, AppendSpline);
    case DWG_TYPE_RAY: return WriteRecord(source, "RAY", &Tio::RAY, AppendRay);
    case DWG_TYPE_XLINE: return WriteRecord(source, "XLINE", &Tio::XLINE, AppendXline);
    case DWG_TYPE_MTEXT: return WriteRecord(source, "MTEXT", &Tio::MTEXT, AppendMtext);
    case DWG_TYPE_LEADER: return WriteRecord(source, "LEADER", &Tio::LEADER, AppendLeader);
    case DWG_TYPE_LWPOLYLINE:
      return WriteRecord(source, "LWPOLYLINE", &Tio::LWPOLYLINE, AppendLwPolyline);
    case DWG_TYPE_HATCH: return WriteRecord(source, "HATCH", &Tio::HATCH, AppendHatch);
    case DWG_TYPE_IMAGE: return WriteRecord(source, "IMAGE", &Tio::IMAGE, AppendImage);
    case DWG_TYPE_MULTILEADER:
      return WriteRecord(source, "MULTILEADER", &Tio::MULTILEADER, AppendMultileader);
    case DWG_TYPE_PDFUNDERLAY:
      return WriteRecord(source, "PDFUNDERLAY", &Tio::PDFUNDERLAY, AppendPdfUnderlay);
    case DWG_TYPE_WIPEOUT: return WriteRecord(source, "WIPEOUT", &Tio::WIPEOUT, AppendWipeout);
    default: return CountUnsupported(source);
  }
}

namespace {

// Calls `end` for a record that was begun.
template <typename End>
void Convert(JsonOut& out, const Dwg_Object& object, const EntityContext& context, End end) {
  const Dwg_Object_Entity* entity = EntityOf(object);
  if (entity == nullptr) {
    return;
  }
  const std::size_t start = out.size();
  AppendOpenRecord({out, object, context.tables.layers.Of(*entity), context});
  if (out.size() != start) {
    end(*entity);
    EndRecord(out);
  }
}

}  // namespace

void convertEntity(JsonOut& out, const Dwg_Object& object, const EntityContext& context) {
  Convert(out, object, context, [](const Dwg_Object_Entity&) {});
}

void AppendEntity(JsonList& list, const Dwg_Object& object, const EntityContext& context) {
  JsonOut& out = list.out();
  list.Item([&] {
    Convert(out, object, context, [&](const Dwg_Object_Entity& entity) {
      AppendCommonKeys(out, entity, context.verbose, context.drawing.palette);
    });
  });
}

void AppendEntityWithAttributes(JsonList& list, const Dwg_Object& object,
                                const EntityContext& context) {
  AppendEntity(list, object, context);
  if (IsInsert(object)) {
    WalkEntities(context.tables.OwnedBy(object),
                 [&](const Dwg_Object& attribute) { AppendEntity(list, attribute, context); });
  }
}
