#include "complete/scenery.hpp"

#include <cstddef>
#include <string_view>

#include "complete/common_keys.hpp"
#include "complete/property_color.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"

namespace {

void AppendSpatialPoint(JsonOut& out, std::string_view key, const BITCODE_3BD& point) {
  AppendPointKey(out, key, point.x, point.y, point.z);
}

void AppendPoints(JsonOut& out, std::string_view key, std::span<const BITCODE_3BD> points) {
  JsonList list(out, key);
  for (const BITCODE_3BD& point : points) {
    list.Point(point.x, point.y, point.z);
  }
  list.Close();
}

template <typename Cloud>
void AppendBox(JsonOut& out, const Cloud& cloud) {
  AppendSpatialPoint(out, ",\"min\":", cloud.extents_min);
  AppendSpatialPoint(out, ",\"max\":", cloud.extents_max);
  AppendSpatialPoint(out, ",\"ucsOrigin\":", cloud.ucs_origin);
  AppendSpatialPoint(out, ",\"ucsX\":", cloud.ucs_x_dir);
  AppendSpatialPoint(out, ",\"ucsY\":", cloud.ucs_y_dir);
  AppendSpatialPoint(out, ",\"ucsZ\":", cloud.ucs_z_dir);
}

std::string_view LightKind(BITCODE_BL type) {
  constexpr BITCODE_BL kDistant = 1;
  constexpr BITCODE_BL kPoint = 2;
  switch (type) {
    case kDistant: return "distant";
    case kPoint: return "point";
    default: return "spot";
  }
}

}  // namespace

void AppendLight(JsonOut& out, const Dwg_Entity_LIGHT& light, const CompleteContext& context) {
  AppendQuotedKey(out, ",\"name\":", context.Decode(light.name));
  AppendQuotedKey(out, ",\"kind\":", LightKind(light.type));
  AppendBoolKey(out, ",\"on\":", light.status != 0);
  AppendSpatialPoint(out, ",\"position\":", light.position);
  AppendSpatialPoint(out, ",\"target\":", light.target);
  AppendNumberKey(out, ",\"intensity\":", light.intensity);
  out += ",\"lightColor\":";
  AppendPropertyColor(out, light.light_color, context);
  AppendNumberKey(out, ",\"hotspotRad\":", light.hotspot_angle);
  AppendNumberKey(out, ",\"falloffRad\":", light.falloff_angle);
  AppendBoolKey(out, ",\"plotsGlyph\":", light.plot_glyph != 0);
}

void AppendSectionPlane(JsonOut& out, const Dwg_Entity_SECTIONOBJECT& section,
                        const CompleteContext& context) {
  AppendQuotedKey(out, ",\"name\":", context.Decode(section.name));
  AppendPoints(out, ",\"points\":[", SpanOf<BITCODE_3BD>(section.verts, section.num_verts));
  AppendPoints(out, ",\"backPoints\":[", SpanOf<BITCODE_3BD>(section.blverts, section.num_blverts));
  AppendIntKey(out, ",\"state\":", section.state);
  AppendSpatialPoint(out, ",\"verticalDirection\":", section.vert_dir);
  AppendNumberKey(out, ",\"topHeight\":", section.top_height);
  AppendNumberKey(out, ",\"bottomHeight\":", section.bottom_height);
  out += ",\"indicatorColor\":";
  AppendPropertyColor(out, section.indicator_color, context);
}

void AppendPointCloud(JsonOut& out, const Dwg_Entity_POINTCLOUD& cloud,
                      const CompleteContext& context) {
  AppendQuotedKey(out, ",\"path\":", context.Decode(cloud.saved_filename));
  AppendSpatialPoint(out, ",\"origin\":", cloud.origin);
  AppendBox(out, cloud);
}

void AppendPointCloudEx(JsonOut& out, const Dwg_Entity_POINTCLOUDEX& cloud,
                        const CompleteContext& context) {
  AppendQuotedKey(out, ",\"name\":", context.Decode(cloud.name));
  AppendBox(out, cloud);
}

void AppendGeographicMarker(JsonOut& out, const Dwg_Entity_GEOPOSITIONMARKER& marker,
                            const CompleteContext& context) {
  AppendSpatialPoint(out, ",\"position\":", marker.position);
  AppendNumberKey(out, ",\"radius\":", marker.radius);
  AppendQuotedKey(out, ",\"notes\":", context.Decode(marker.notes));
}
