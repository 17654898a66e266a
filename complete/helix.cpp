#include "complete/helix.hpp"

#include "complete/common_keys.hpp"
#include "complete/proxy_graphics.hpp"
#include "complete/spline_keys.hpp"
#include "encode/json_text.hpp"
#include "entities/spline.hpp"

namespace {

// The spline that stands first in the helix' data. Its arrays stay the helix'.
Dwg_Entity_SPLINE SplineOf(const Dwg_Entity_HELIX& helix) {
  Dwg_Entity_SPLINE spline{};
  spline.flag = helix.flag;
  spline.scenario = helix.scenario;
  spline.degree = helix.degree;
  spline.splineflags = helix.splineflags;
  spline.knotparam = helix.knotparam;
  spline.fit_tol = helix.fit_tol;
  spline.beg_tan_vec = helix.beg_tan_vec;
  spline.end_tan_vec = helix.end_tan_vec;
  spline.rational = helix.rational;
  spline.closed_b = helix.closed_b;
  spline.periodic = helix.periodic;
  spline.weighted = helix.weighted;
  spline.knot_tol = helix.knot_tol;
  spline.ctrl_tol = helix.ctrl_tol;
  spline.num_fit_pts = helix.num_fit_pts;
  spline.fit_pts = helix.fit_pts;
  spline.num_knots = helix.num_knots;
  spline.knots = helix.knots;
  spline.num_ctrl_pts = helix.num_ctrl_pts;
  spline.ctrl_pts = helix.ctrl_pts;
  return spline;
}

bool HasCurve(const Dwg_Entity_HELIX& helix) {
  return (helix.fit_pts != nullptr && helix.num_fit_pts > 0) ||
         (helix.ctrl_pts != nullptr && helix.num_ctrl_pts > 0);
}

}  // namespace

void AppendHelix(JsonOut& out, const Dwg_Entity_HELIX& helix, const CompleteContext& context,
                 const EntityOrigin& origin) {
  if (HasCurve(helix)) {
    AppendSpline(out, SplineOf(helix), context.base, origin);
  } else {
    AppendStoredGraphics(out, StoredGraphics(*origin.object.tio.entity), context);
  }
}

void AppendHelixFurtherKeys(JsonOut& out, const Dwg_Entity_HELIX& helix) {
  if (HasCurve(helix)) {
    AppendSplineFurtherKeys(out, SplineOf(helix));
  }
  if (!(helix.radius > 0)) {
    return;
  }
  AppendPointKey(out, ",\"axisBase\":", helix.axis_base_pt.x, helix.axis_base_pt.y,
                 helix.axis_base_pt.z);
  AppendPointKey(out, ",\"axisVector\":", helix.axis_vector.x, helix.axis_vector.y,
                 helix.axis_vector.z);
  AppendPointKey(out, ",\"startPoint\":", helix.start_pt.x, helix.start_pt.y, helix.start_pt.z);
  AppendNumberKey(out, ",\"radius\":", helix.radius);
  AppendNumberKey(out, ",\"turns\":", helix.turns);
  AppendNumberKey(out, ",\"turnHeight\":", helix.turn_height);
  AppendBoolKey(out, ",\"isCounterClockwise\":", helix.handedness != 0);
}
