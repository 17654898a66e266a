#include "complete/sheet_keys.hpp"

#include "complete/common_keys.hpp"
#include "encode/json_list.hpp"
#include "encode/json_text.hpp"

namespace {

// Files from release 2004 on refer to the view, older ones name it.
void AppendPlotView(JsonOut& out, const Dwg_Object_PLOTSETTINGS& plot,
                    const CompleteContext& context) {
  if (const std::string* name = context.tables.views.Find(HandleOf(plot.plotview))) {
    out += ",\"plotView\":";
    out += *name;
    return;
  }
  const DecodedText name = context.Decode(plot.plotview_name);
  if (!name.view().empty()) {
    AppendQuotedKey(out, ",\"plotView\":", name);
  }
}

void AppendPlotWindow(JsonOut& out, const Dwg_Object_PLOTSETTINGS& plot) {
  JsonList corners(out, ",\"plotWindow\":[");
  corners.Point(plot.plot_window_ll.x, plot.plot_window_ll.y);
  corners.Point(plot.plot_window_ur.x, plot.plot_window_ur.y);
  corners.Close();
}

// LibreDWG's names of the first two fields are not what they hold.
void AppendPlotting(JsonOut& out, const Dwg_Object_PLOTSETTINGS& plot,
                    const CompleteContext& context) {
  AppendQuotedKey(out, ",\"pageSetup\":", context.Decode(plot.printer_cfg_file));
  AppendQuotedKey(out, ",\"plotDevice\":", context.Decode(plot.paper_size));
  AppendQuotedKey(out, ",\"paperSize\":", context.Decode(plot.canonical_media_name));
  AppendQuotedKey(out, ",\"plotStyleSheet\":", context.Decode(plot.stylesheet));
  AppendIntKey(out, ",\"plotFlags\":", plot.plot_flags);
  AppendIntKey(out, ",\"plotType\":", plot.plot_type);
  AppendPlotView(out, plot, context);
  AppendPlotWindow(out, plot);
  AppendIntKey(out, ",\"standardScale\":", plot.std_scale_type);
  AppendNumberKey(out, ",\"standardScaleFactor\":", plot.std_scale_factor);
  AppendIntKey(out, ",\"shadePlot\":", plot.shadeplot_type);
  AppendIntKey(out, ",\"shadeResolution\":", plot.shadeplot_reslevel);
  AppendIntKey(out, ",\"shadeDpi\":", plot.shadeplot_customdpi);
  AppendNumberKey(out, ",\"paperImageOriginX\":", plot.paper_image_origin.x);
  AppendNumberKey(out, ",\"paperImageOriginY\":", plot.paper_image_origin.y);
}

template <typename Point>
void AppendPoint(JsonOut& out, std::string_view key, const Point& point) {
  AppendPointKey(out, key, point.x, point.y, point.z);
}

}  // namespace

void AppendSheetKeys(JsonOut& out, const Dwg_Object_LAYOUT& layout,
                     const CompleteContext& context) {
  AppendPlotting(out, layout.plotsettings, context);
  AppendIntKey(out, ",\"layoutFlags\":", layout.layout_flags);
  AppendPoint(out, ",\"insertionBase\":", layout.INSBASE);
  AppendPoint(out, ",\"ucs\":{\"origin\":", layout.UCSORG);
  AppendPoint(out, ",\"xAxis\":", layout.UCSXDIR);
  AppendPoint(out, ",\"yAxis\":", layout.UCSYDIR);
  AppendNumberKey(out, ",\"elevation\":", layout.ucs_elevation);
  out += '}';
}
