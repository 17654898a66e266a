#include "complete/convert_entity.hpp"

#include <cstddef>

#include "complete/block_array.hpp"
#include "complete/common_keys.hpp"
#include "complete/curve_keys.hpp"
#include "complete/dimensions.hpp"
#include "complete/faces.hpp"
#include "complete/foreign.hpp"
#include "complete/hatch_keys.hpp"
#include "complete/hatch_loops.hpp"
#include "complete/helix.hpp"
#include "complete/images.hpp"
#include "complete/leaders.hpp"
#include "complete/meshes.hpp"
#include "complete/multilines.hpp"
#include "complete/obsolete.hpp"
#include "complete/ole_frame.hpp"
#include "complete/polylines.hpp"
#include "complete/reference_keys.hpp"
#include "complete/scenery.hpp"
#include "complete/solids.hpp"
#include "complete/spline_keys.hpp"
#include "complete/symbols.hpp"
#include "complete/table.hpp"
#include "complete/text_keys.hpp"
#include "complete/underlays.hpp"
#include "complete/viewports.hpp"
#include "entities/convert_entity.hpp"
#include "entities/open_record.hpp"
#include "entities/walk_entities.hpp"

namespace {

using Source = RecordSource<CompleteContext>;

// The library has no data of its own for them.
void AppendUnknownEntity(const Source& source) {
  JsonOut& out = source.out;
  const std::size_t start = out.size();
  BeginRecord(out, "UNKNOWN_ENT", source.layer.quoted);
  const std::size_t keys = out.size();
  CallWriter(source, *EntityOf(source.object), AppendUnknown);
  if (out.size() == keys) {
    out.Truncate(start);
  }
}

// Appends a record up to its colour keys, or nothing. Types that stand here have
// no record in the plain form, or one that the complete form corrects.
// A line a type, like a table.
// NOLINTNEXTLINE(readability-function-size)
void AppendOpenCompleteRecord(const Source& source) {
  using Tio = EntityTio;
  switch (source.object.fixedtype) {
    case DWG_TYPE__3DFACE: return WriteRecord(source, "3DFACE", &Tio::_3DFACE, AppendFace);
    case DWG_TYPE_TRACE: return WriteRecord(source, "TRACE", &Tio::TRACE, AppendTrace);
    case DWG_TYPE_DIMENSION_ANG2LN:
      return WriteRecord(source, "DIMENSION_ANG2LN", &Tio::DIMENSION_ANG2LN,
                         AppendDimension<Dwg_Entity_DIMENSION_ANG2LN>);
    case DWG_TYPE_DIMENSION_ANG3PT:
      return WriteRecord(source, "DIMENSION_ANG3PT", &Tio::DIMENSION_ANG3PT,
                         AppendDimension<Dwg_Entity_DIMENSION_ANG3PT>);
    case DWG_TYPE_DIMENSION_DIAMETER:
      return WriteRecord(source, "DIMENSION_DIAMETER", &Tio::DIMENSION_DIAMETER,
                         AppendDimension<Dwg_Entity_DIMENSION_DIAMETER>);
    case DWG_TYPE_DIMENSION_ORDINATE:
      return WriteRecord(source, "DIMENSION_ORDINATE", &Tio::DIMENSION_ORDINATE,
                         AppendDimension<Dwg_Entity_DIMENSION_ORDINATE>);
    case DWG_TYPE_ARC_DIMENSION:
      return WriteRecord(source, "ARC_DIMENSION", &Tio::ARC_DIMENSION,
                         AppendDimension<Dwg_Entity_ARC_DIMENSION>);
    case DWG_TYPE_LARGE_RADIAL_DIMENSION:
      return WriteRecord(source, "LARGE_RADIAL_DIMENSION", &Tio::LARGE_RADIAL_DIMENSION,
                         AppendDimension<Dwg_Entity_LARGE_RADIAL_DIMENSION>);
    case DWG_TYPE_MLINE: return WriteRecord(source, "MLINE", &Tio::MLINE, AppendMultiline);
    case DWG_TYPE_SHAPE: return WriteRecord(source, "SHAPE", &Tio::SHAPE, AppendShape);
    case DWG_TYPE_TOLERANCE:
      return WriteRecord(source, "TOLERANCE", &Tio::TOLERANCE, AppendTolerance);
    case DWG_TYPE_TABLE: return WriteRecord(source, "ACAD_TABLE", &Tio::TABLE, AppendTable);
    case DWG_TYPE_PROXY_ENTITY:
      return WriteRecord(source, "PROXY_ENTITY", &Tio::PROXY_ENTITY, AppendProxy);
    case DWG_TYPE_UNKNOWN_ENT: return AppendUnknownEntity(source);
    case DWG_TYPE__3DSOLID: return WriteRecord(source, "3DSOLID", &Tio::_3DSOLID, AppendSolid3d);
    case DWG_TYPE_REGION: return WriteRecord(source, "REGION", &Tio::REGION, AppendSolid3d);
    case DWG_TYPE_BODY: return WriteRecord(source, "BODY", &Tio::BODY, AppendSolid3d);
    case DWG_TYPE_PLANESURFACE:
      return WriteRecord(source, "PLANESURFACE", &Tio::PLANESURFACE,
                         AppendSurface<Dwg_Entity_PLANESURFACE>);
    case DWG_TYPE_EXTRUDEDSURFACE:
      return WriteRecord(source, "EXTRUDEDSURFACE", &Tio::EXTRUDEDSURFACE,
                         AppendSurface<Dwg_Entity_EXTRUDEDSURFACE>);
    case DWG_TYPE_LOFTEDSURFACE:
      return WriteRecord(source, "LOFTEDSURFACE", &Tio::LOFTEDSURFACE,
                         AppendSurface<Dwg_Entity_LOFTEDSURFACE>);
    case DWG_TYPE_REVOLVEDSURFACE:
      return WriteRecord(source, "REVOLVEDSURFACE", &Tio::REVOLVEDSURFACE,
                         AppendSurface<Dwg_Entity_REVOLVEDSURFACE>);
    case DWG_TYPE_SWEPTSURFACE:
      return WriteRecord(source, "SWEPTSURFACE", &Tio::SWEPTSURFACE,
                         AppendSurface<Dwg_Entity_SWEPTSURFACE>);
    case DWG_TYPE_NURBSURFACE:
      return WriteRecord(source, "NURBSURFACE", &Tio::NURBSURFACE,
                         AppendSurface<Dwg_Entity_NURBSURFACE>);
    case DWG_TYPE_DWFUNDERLAY:
      return WriteRecord(source, "DWFUNDERLAY", &Tio::DWFUNDERLAY, AppendUnderlay);
    case DWG_TYPE_DGNUNDERLAY:
      return WriteRecord(source, "DGNUNDERLAY", &Tio::DGNUNDERLAY, AppendUnderlay);
    case DWG_TYPE_OLE2FRAME:
      return WriteRecord(source, "OLE2FRAME", &Tio::OLE2FRAME, AppendOle2Frame);
    case DWG_TYPE_OLEFRAME: return WriteRecord(source, "OLEFRAME", &Tio::OLEFRAME, AppendOleFrame);
    case DWG_TYPE_POLYLINE_MESH:
      return WriteRecord(source, "POLYLINE_MESH", &Tio::POLYLINE_MESH, AppendPolygonMesh);
    case DWG_TYPE_POLYLINE_PFACE:
      return WriteRecord(source, "POLYLINE_PFACE", &Tio::POLYLINE_PFACE, AppendPolyfaceMesh);
    // parts of a mesh, which writes them
    case DWG_TYPE_VERTEX_PFACE:
    case DWG_TYPE_VERTEX_PFACE_FACE: return;
    case DWG_TYPE_MESH: return WriteRecord(source, "MESH", &Tio::MESH, AppendSubdivisionMesh);
    case DWG_TYPE_HELIX: return WriteRecord(source, "HELIX", &Tio::HELIX, AppendHelix);
    case DWG_TYPE_MINSERT: return WriteRecord(source, "INSERT", &Tio::MINSERT, AppendBlockArray);
    case DWG_TYPE__3DLINE: return WriteRecord(source, "3DLINE", &Tio::_3DLINE, AppendSpatialLine);
    case DWG_TYPE_REPEAT: return WriteRecord(source, "REPEAT", &Tio::REPEAT, AppendRepeatStart);
    case DWG_TYPE_ENDREP: return WriteRecord(source, "ENDREP", &Tio::ENDREP, AppendRepeatEnd);
    case DWG_TYPE_LIGHT: return WriteRecord(source, "LIGHT", &Tio::LIGHT, AppendLight);
    case DWG_TYPE_SECTIONOBJECT:
      return WriteRecord(source, "SECTIONOBJECT", &Tio::SECTIONOBJECT, AppendSectionPlane);
    case DWG_TYPE_POINTCLOUD:
      return WriteRecord(source, "POINTCLOUD", &Tio::POINTCLOUD, AppendPointCloud);
    case DWG_TYPE_POINTCLOUDEX:
      return WriteRecord(source, "POINTCLOUDEX", &Tio::POINTCLOUDEX, AppendPointCloudEx);
    case DWG_TYPE_GEOPOSITIONMARKER:
      return WriteRecord(source, "GEOPOSITIONMARKER", &Tio::GEOPOSITIONMARKER,
                         AppendGeographicMarker);
    case DWG_TYPE_POLYLINE_2D:
      return WriteRecord(source, "POLYLINE_2D", &Tio::POLYLINE_2D, AppendOwnPolyline2d);
    case DWG_TYPE_POLYLINE_3D:
      return WriteRecord(source, "POLYLINE_3D", &Tio::POLYLINE_3D, AppendOwnPolyline3d);
    case DWG_TYPE_HATCH: return WriteRecord(source, "HATCH", &Tio::HATCH, AppendHatchLoops);
    case DWG_TYPE_MPOLYGON: return WriteRecord(source, "MPOLYGON", &Tio::HATCH, AppendHatchLoops);
    case DWG_TYPE_IMAGE: return WriteRecord(source, "IMAGE", &Tio::IMAGE, AppendAnyImage);
    case DWG_TYPE_WIPEOUT: return WriteRecord(source, "WIPEOUT", &Tio::WIPEOUT, AppendWholeWipeout);
    case DWG_TYPE_PDFUNDERLAY:
      return WriteRecord(source, "PDFUNDERLAY", &Tio::PDFUNDERLAY, AppendAnyPdfUnderlay);
    case DWG_TYPE_LEADER: return WriteRecord(source, "LEADER", &Tio::LEADER, AppendSizedLeader);
    case DWG_TYPE_MULTILEADER:
      return WriteRecord(source, "MULTILEADER", &Tio::MULTILEADER, AppendAnyMultileader);
    case DWG_TYPE_VIEWPORT:
      return WriteRecord(source, "VIEWPORT", &Tio::VIEWPORT, AppendNumberedViewport);
    default:
      return AppendOpenRecord({source.out, source.object, source.layer, source.context.base});
  }
}

// Appends the keys that a type's record has behind the common ones.
template <typename T, typename Writer>
void Further(const Source& source, T* EntityTio::*member, Writer writer) {
  if (const T* data = EntityData(source.object, member)) {
    CallWriter(source, *data, writer);
  }
}

// A line a type, like a table.
// NOLINTNEXTLINE(readability-function-size)
void AppendFurtherKeys(const Source& source) {
  using Tio = EntityTio;
  switch (source.object.fixedtype) {
    case DWG_TYPE_LINE: return Further(source, &Tio::LINE, AppendLineFurtherKeys);
    case DWG_TYPE_POINT: return Further(source, &Tio::POINT, AppendPointFurtherKeys);
    case DWG_TYPE_RAY: return Further(source, &Tio::RAY, AppendRayFurtherKeys);
    case DWG_TYPE_XLINE: return Further(source, &Tio::XLINE, AppendRayFurtherKeys);
    case DWG_TYPE_CIRCLE: return Further(source, &Tio::CIRCLE, AppendCircleFurtherKeys);
    case DWG_TYPE_ARC: return Further(source, &Tio::ARC, AppendArcFurtherKeys);
    case DWG_TYPE_ELLIPSE: return Further(source, &Tio::ELLIPSE, AppendEllipseFurtherKeys);
    case DWG_TYPE_SOLID: return Further(source, &Tio::SOLID, AppendSolidFurtherKeys);
    case DWG_TYPE_TRACE: return Further(source, &Tio::TRACE, AppendTraceFurtherKeys);
    case DWG_TYPE_DIMENSION_LINEAR:
      return Further(source, &Tio::DIMENSION_LINEAR, AppendLinearDimensionFurtherKeys);
    case DWG_TYPE_DIMENSION_ALIGNED:
      return Further(source, &Tio::DIMENSION_ALIGNED, AppendAlignedDimensionFurtherKeys);
    case DWG_TYPE_DIMENSION_RADIUS:
      return Further(source, &Tio::DIMENSION_RADIUS, AppendRadiusDimensionFurtherKeys);
    case DWG_TYPE_DIMENSION_DIAMETER:
      return Further(source, &Tio::DIMENSION_DIAMETER, AppendDiameterDimensionFurtherKeys);
    case DWG_TYPE_DIMENSION_ANG2LN:
      return Further(source, &Tio::DIMENSION_ANG2LN, AppendTwoLineAngularFurtherKeys);
    case DWG_TYPE_DIMENSION_ANG3PT:
      return Further(source, &Tio::DIMENSION_ANG3PT, AppendThreePointAngularFurtherKeys);
    case DWG_TYPE_DIMENSION_ORDINATE:
      return Further(source, &Tio::DIMENSION_ORDINATE, AppendOrdinateFurtherKeys);
    case DWG_TYPE_ARC_DIMENSION:
      return Further(source, &Tio::ARC_DIMENSION, AppendArcDimensionFurtherKeys);
    case DWG_TYPE_LARGE_RADIAL_DIMENSION:
      return Further(source, &Tio::LARGE_RADIAL_DIMENSION, AppendJoggedFurtherKeys);
    case DWG_TYPE_SHAPE: return Further(source, &Tio::SHAPE, AppendShapeFurtherKeys);
    case DWG_TYPE_TOLERANCE: return Further(source, &Tio::TOLERANCE, AppendToleranceFurtherKeys);
    case DWG_TYPE_TABLE: return Further(source, &Tio::TABLE, AppendTableFurtherKeys);
    case DWG_TYPE_DWFUNDERLAY: return Further(source, &Tio::DWFUNDERLAY, AppendUnderlayFurtherKeys);
    case DWG_TYPE_DGNUNDERLAY: return Further(source, &Tio::DGNUNDERLAY, AppendUnderlayFurtherKeys);
    case DWG_TYPE_HELIX: return Further(source, &Tio::HELIX, AppendHelixFurtherKeys);
    case DWG_TYPE_TEXT: return Further(source, &Tio::TEXT, AppendTextFurtherKeys);
    case DWG_TYPE_ATTRIB: return Further(source, &Tio::ATTRIB, AppendAttributeFurtherKeys);
    case DWG_TYPE_ATTDEF:
      return Further(source, &Tio::ATTDEF, AppendAttributeDefinitionFurtherKeys);
    case DWG_TYPE_MTEXT: return Further(source, &Tio::MTEXT, AppendMtextFurtherKeys);
    case DWG_TYPE_LWPOLYLINE: return Further(source, &Tio::LWPOLYLINE, AppendLwPolylineFurtherKeys);
    case DWG_TYPE_POLYLINE_2D:
      return Further(source, &Tio::POLYLINE_2D, AppendPolyline2dFurtherKeys);
    case DWG_TYPE_POLYLINE_3D:
      return Further(source, &Tio::POLYLINE_3D, AppendPolyline3dFurtherKeys);
    case DWG_TYPE_SPLINE: return Further(source, &Tio::SPLINE, AppendSplineFurtherKeys);
    case DWG_TYPE_HATCH: return Further(source, &Tio::HATCH, AppendHatchFurtherKeys);
    case DWG_TYPE_MPOLYGON: return Further(source, &Tio::HATCH, AppendMpolygonFurtherKeys);
    case DWG_TYPE_INSERT: return Further(source, &Tio::INSERT, AppendInsertFurtherKeys);
    case DWG_TYPE_MINSERT:
      Further(source, &Tio::MINSERT, AppendArrayedInsertFurtherKeys);
      return Further(source, &Tio::MINSERT, AppendBlockArrayFurtherKeys);
    case DWG_TYPE_IMAGE: return Further(source, &Tio::IMAGE, AppendImageFurtherKeys);
    case DWG_TYPE_WIPEOUT: return Further(source, &Tio::WIPEOUT, AppendWipeoutFurtherKeys);
    case DWG_TYPE_PDFUNDERLAY:
      return Further(source, &Tio::PDFUNDERLAY, AppendPdfUnderlayFurtherKeys);
    case DWG_TYPE_LEADER: return Further(source, &Tio::LEADER, AppendLeaderFurtherKeys);
    case DWG_TYPE_MULTILEADER:
      return Further(source, &Tio::MULTILEADER, AppendMultileaderFurtherKeys);
    case DWG_TYPE_VIEWPORT: return Further(source, &Tio::VIEWPORT, AppendViewportFurtherKeys);
    default: return;
  }
}

// Releases that know no lineweights leave the field empty, which would be 0.
void AppendColorAndLineweight(JsonOut& out, const Dwg_Object_Entity& entity,
                              const CompleteContext& context) {
  const Palette& palette = context.base.drawing.palette;
  if (context.tables.holdsLineweights) {
    AppendCommonKeys(out, entity, context.base.verbose, palette);
    return;
  }
  Dwg_Object_Entity inherited = entity;
  inherited.linewt = kInheritedLineweight;
  AppendCommonKeys(out, inherited, context.base.verbose, palette);
}

void Convert(JsonOut& out, const Dwg_Object& object, const CompleteContext& context) {
  const Dwg_Object_Entity* entity = EntityOf(object);
  if (entity == nullptr) {
    return;
  }
  const Source source{out, object, context.base.tables.layers.Of(*entity), context};
  const std::size_t start = out.size();
  AppendOpenCompleteRecord(source);
  if (out.size() == start) {
    return;
  }
  AppendColorAndLineweight(out, *entity, context);
  AppendCommonFurtherKeys(out, object, *entity, context);
  AppendFurtherKeys(source);
  EndRecord(out);
}

}  // namespace

void AppendCompleteEntity(JsonList& list, const Dwg_Object& object,
                          const CompleteContext& context) {
  list.Item([&] { Convert(list.out(), object, context); });
}

void AppendCompleteEntityWithAttributes(JsonList& list, const Dwg_Object& object,
                                        const CompleteContext& context) {
  AppendCompleteEntity(list, object, context);
  if (IsInsert(object)) {
    WalkEntities(context.base.tables.OwnedBy(object), [&](const Dwg_Object& attribute) {
      AppendCompleteEntity(list, attribute, context);
    });
  }
}
