#include "entities/convert_entity.hpp"

#include <cstddef>
#include <string>
#include <string_view>

#include "entities/drawing_access.hpp"
#include "entities/hatch.hpp"
#include "entities/image.hpp"
#include "entities/insert.hpp"
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

struct Source {
  JsonOut& out;
  const Dwg_Object& object;
  const LayerEntry& layer;
  const EntityContext& context;
};

// Begins a record of that type and has the writer append its keys. The writer
// gets the type's data and whichever of context and origin it takes. Nothing is
// written when the data is missing or the writer appends nothing.
template <typename T, typename Writer>
void Write(const Source& source, std::string_view type, T* EntityTio::*member, Writer writer) {
  const T* data = EntityData(source.object, member);
  if (data == nullptr) {
    return;
  }
  JsonOut& out = source.out;
  const std::size_t start = out.size();
  BeginRecord(out, type, source.layer.quoted);
  const std::size_t keys = out.size();
  if constexpr (requires { writer(out, *data); }) {
    writer(out, *data);
  } else if constexpr (requires { writer(out, *data, source.context); }) {
    writer(out, *data, source.context);
  } else {
    writer(out, *data, source.context, EntityOrigin{source.object, source.layer.name});
  }
  if (out.size() == keys) {
    out.Truncate(start);
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
    ++source.context.findings.skippedTypes[std::string(typeName)];
  }
}

// Appends a record up to its end, which is left open, or nothing.
void AppendOpenRecord(const Source& source) {
  using Tio = EntityTio;
  switch (source.object.fixedtype) {
    case DWG_TYPE_TEXT: return Write(source, "TEXT", &Tio::TEXT, AppendText);
    case DWG_TYPE_ATTRIB: return Write(source, "DYNTEXT", &Tio::ATTRIB, AppendAttribute);
    case DWG_TYPE_ATTDEF: return Write(source, "DYNTEXT", &Tio::ATTDEF, AppendAttributeDefinition);
    case DWG_TYPE_INSERT: return Write(source, "INSERT", &Tio::INSERT, AppendInsert);
    case DWG_TYPE_MINSERT: return Write(source, "INSERT", &Tio::MINSERT, AppendArrayedInsert);
    case DWG_TYPE_POLYLINE_2D:
      return Write(source, "POLYLINE_2D", &Tio::POLYLINE_2D, AppendPolyline2d);
    case DWG_TYPE_POLYLINE_3D:
      return Write(source, "POLYLINE_3D", &Tio::POLYLINE_3D, AppendPolyline3d);
    case DWG_TYPE_ARC: return Write(source, "ARC", &Tio::ARC, AppendArc);
    case DWG_TYPE_CIRCLE: return Write(source, "CIRCLE", &Tio::CIRCLE, AppendCircle);
    case DWG_TYPE_LINE: return Write(source, "LINE", &Tio::LINE, AppendLine);
    case DWG_TYPE_DIMENSION_LINEAR:
      return Write(source, "DIMENSION_LINEAR", &Tio::DIMENSION_LINEAR, AppendLinearDimension);
    case DWG_TYPE_DIMENSION_ALIGNED:
      return Write(source, "DIMENSION_ALIGNED", &Tio::DIMENSION_ALIGNED, AppendAlignedDimension);
    case DWG_TYPE_DIMENSION_RADIUS:
      return Write(source, "DIMENSION_RADIUS", &Tio::DIMENSION_RADIUS, AppendRadiusDimension);
    case DWG_TYPE_POINT: return Write(source, "POINT", &Tio::POINT, AppendPoint);
    case DWG_TYPE_SOLID: return Write(source, "SOLID", &Tio::SOLID, AppendSolid);
    case DWG_TYPE_VIEWPORT: return Write(source, "VIEWPORT", &Tio::VIEWPORT, AppendViewport);
    case DWG_TYPE_ELLIPSE: return Write(source, "ELLIPSE", &Tio::ELLIPSE, AppendEllipse);
    case DWG_TYPE_SPLINE: return Write(source, "SPLINE", &Tio::SPLINE, AppendSpline);
    case DWG_TYPE_RAY: return Write(source, "RAY", &Tio::RAY, AppendRay);
    case DWG_TYPE_XLINE: return Write(source, "XLINE", &Tio::XLINE, AppendXline);
    case DWG_TYPE_MTEXT: return Write(source, "MTEXT", &Tio::MTEXT, AppendMtext);
    case DWG_TYPE_LEADER: return Write(source, "LEADER", &Tio::LEADER, AppendLeader);
    case DWG_TYPE_LWPOLYLINE:
      return Write(source, "LWPOLYLINE", &Tio::LWPOLYLINE, AppendLwPolyline);
    case DWG_TYPE_HATCH: return Write(source, "HATCH", &Tio::HATCH, AppendHatch);
    case DWG_TYPE_IMAGE: return Write(source, "IMAGE", &Tio::IMAGE, AppendImage);
    case DWG_TYPE_MULTILEADER:
      return Write(source, "MULTILEADER", &Tio::MULTILEADER, AppendMultileader);
    case DWG_TYPE_PDFUNDERLAY:
      return Write(source, "PDFUNDERLAY", &Tio::PDFUNDERLAY, AppendPdfUnderlay);
    case DWG_TYPE_WIPEOUT: return Write(source, "WIPEOUT", &Tio::WIPEOUT, AppendWipeout);
    default: return CountUnsupported(source);
  }
}

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
      AppendCommonKeys(out, entity, context.verbose);
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
