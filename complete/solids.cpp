#include "complete/solids.hpp"

#include "complete/common_keys.hpp"
#include "encode/json_text.hpp"
#include "entities/drawing_access.hpp"

namespace {

void AppendSpatialPoint(JsonOut& out, std::string_view key, const BITCODE_3BD& point) {
  AppendPointKey(out, key, point.x, point.y, point.z);
}

void AppendTransform(JsonOut& out, const Dwg_3DSOLID_wire& wire) {
  out += ",\"transform\":{";
  AppendSpatialPoint(out, "\"x\":", wire.axis_x);
  AppendSpatialPoint(out, ",\"y\":", wire.axis_y);
  AppendSpatialPoint(out, ",\"z\":", wire.axis_z);
  AppendSpatialPoint(out, ",\"translation\":", wire.translation);
  AppendSpatialPoint(out, ",\"scale\":", wire.scale);
  out += '}';
}

void AppendWire(JsonOut& out, const Dwg_3DSOLID_wire& wire) {
  const auto points = SpanOf<BITCODE_3BD>(wire.points, wire.num_points);
  if (points.empty()) {
    return;
  }
  JsonList list(out, "{\"points\":[");
  for (const BITCODE_3BD& point : points) {
    list.Point(point.x, point.y, point.z);
  }
  list.Close();
  if (wire.transform_present != 0) {
    AppendTransform(out, wire);
  }
  out += '}';
}

void AppendSilhouette(JsonOut& out, const Dwg_3DSOLID_silhouette& silhouette) {
  AppendIntKey(out, "{\"viewport\":", silhouette.vp_id);
  AppendSpatialPoint(out, ",\"target\":", silhouette.vp_target);
  AppendSpatialPoint(out, ",\"direction\":", silhouette.vp_dir_from_target);
  AppendSpatialPoint(out, ",\"up\":", silhouette.vp_up_dir);
  AppendBoolKey(out, ",\"isPerspective\":", silhouette.vp_perspective != 0);
  AppendWires(out, ",\"wires\":[", silhouette.wires, silhouette.num_wires);
  out += '}';
}

}  // namespace

void AppendWires(JsonOut& out, std::string_view key, const Dwg_3DSOLID_wire* wires,
                 std::size_t count) {
  JsonList list(out, key);
  for (const Dwg_3DSOLID_wire& wire : SpanOf(wires, count)) {
    list.Item([&] { AppendWire(out, wire); });
  }
  list.Close();
}

void AppendSilhouettes(JsonOut& out, const Dwg_3DSOLID_silhouette* silhouettes, std::size_t count) {
  JsonList list(out, ",\"silhouettes\":[");
  for (const Dwg_3DSOLID_silhouette& silhouette : SpanOf(silhouettes, count)) {
    list.Item([&] { AppendSilhouette(out, silhouette); });
  }
  list.Close();
}

void AppendModelerData(JsonOut& out, bool isDrawn, bool isEmpty, unsigned version) {
  AppendBoolKey(out, ",\"hasModelerData\":", !isEmpty);
  AppendIntKey(out, ",\"modelerVersion\":", version);
  if (!isDrawn) {
    AppendQuotedKey(out, ",\"reason\":", "the drawing stores no lines for it");
  }
}

void AppendSolid3d(JsonOut& out, const Dwg_Entity_3DSOLID& solid) {
  AppendSurface(out, solid);
}
