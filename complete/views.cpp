#include "complete/views.hpp"

#include "complete/common_keys.hpp"
#include "complete/table_section.hpp"
#include "encode/json_text.hpp"

namespace {

void AppendPoint(JsonOut& out, std::string_view key, const BITCODE_3BD& point) {
  AppendPointKey(out, key, point.x, point.y, point.z);
}

// Origin and axes, as a view, a sheet and a system of its own have them.
void AppendSystem(JsonOut& out, const Dwg_Object_VIEW& view) {
  AppendPoint(out, ",\"ucs\":{\"origin\":", view.ucsorg);
  AppendPoint(out, ",\"xAxis\":", view.ucsxdir);
  AppendPoint(out, ",\"yAxis\":", view.ucsydir);
  AppendNumberKey(out, ",\"elevation\":", view.ucs_elevation);
  out += '}';
}

void AppendView(JsonOut& out, const Dwg_Object& object, const Dwg_Object_VIEW& view,
                const CompleteContext& context) {
  constexpr unsigned kPaperSpace = 1;
  AppendQuotedKey(out, "{\"name\":", context.Decode(view.name));
  AppendHandleKey(out, ",\"handle\":", object.handle.value);
  AppendNumberKey(out, ",\"height\":", view.VIEWSIZE);
  AppendNumberKey(out, ",\"width\":", view.view_width);
  AppendNumberKey(out, ",\"centerX\":", view.VIEWCTR.x);
  AppendNumberKey(out, ",\"centerY\":", view.VIEWCTR.y);
  AppendPoint(out, ",\"target\":", view.view_target);
  AppendPoint(out, ",\"direction\":", view.VIEWDIR);
  AppendNumberKey(out, ",\"twistRad\":", view.VIEWTWIST);
  AppendNumberKey(out, ",\"lensLength\":", view.LENSLENGTH);
  AppendNumberKey(out, ",\"frontClip\":", view.FRONTZ);
  AppendNumberKey(out, ",\"backClip\":", view.BACKZ);
  AppendIntKey(out, ",\"mode\":", view.VIEWMODE);
  AppendBoolKey(out, ",\"paperSpace\":", view.is_pspace != 0 || (view.flag & kPaperSpace) != 0);
  if (view.associated_ucs != 0) {
    AppendSystem(out, view);
  }
  out += '}';
}

void AppendCoordinateSystem(JsonOut& out, const Dwg_Object& object, const Dwg_Object_UCS& ucs,
                            const CompleteContext& context) {
  AppendQuotedKey(out, "{\"name\":", context.Decode(ucs.name));
  AppendHandleKey(out, ",\"handle\":", object.handle.value);
  AppendPoint(out, ",\"origin\":", ucs.ucsorg);
  AppendPoint(out, ",\"xAxis\":", ucs.ucsxdir);
  AppendPoint(out, ",\"yAxis\":", ucs.ucsydir);
  AppendNumberKey(out, ",\"elevation\":", ucs.ucs_elevation);
  out += '}';
}

}  // namespace

void AppendViews(JsonOut& out, const CompleteContext& context) {
  AppendTableSection(out, ",\"views\":[", context.tables.objects.views, &ObjectTio::VIEW,
                     AppendView, context);
}

void AppendCoordinateSystems(JsonOut& out, const CompleteContext& context) {
  AppendTableSection(out, ",\"coordinateSystems\":[", context.tables.objects.coordinateSystems,
                     &ObjectTio::UCS, AppendCoordinateSystem, context);
}
