// Records of SPLINE: through its fit points, or sampled from its control
// points when it has none.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"
#include "entities/entity_context.hpp"

// The fit-point form carries the end tangents that are not zero; the sampled
// form has 4 points a control point, at least 20, and no tangents. A spline
// with neither kind of points, or with too few knots, gives nothing and a
// warning; one with an empty parameter range gives nothing. So does one of a
// degree so high that evaluating it would take longer than its stored points
// justify.
void AppendSpline(JsonOut& out, const Dwg_Entity_SPLINE& spline, const EntityContext& context,
                  const EntityOrigin& origin);
