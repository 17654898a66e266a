// Records of polylines with their own vertices, and what those records lack.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `constWidth` (group 43), or `widths` with start and end of each segment (groups 40,
// 41) when one is not 0; `linetypeGeneration` when dashes run through the vertices;
// `vertexIds` (group 91) when there are any; the keys of the plane; `world` with
// `points`.
void AppendLwPolylineFurtherKeys(JsonOut& out, const Dwg_Entity_LWPOLYLINE& polyline);

// The plain form's keys with the vertices that the polyline names or that name it as
// their owner; only without those the objects that follow it. Control points of a
// spline frame count only when there is nothing else.
void AppendOwnPolyline2d(JsonOut& out, const Dwg_Entity_POLYLINE_2D& polyline,
                         const CompleteContext& context, const EntityOrigin& origin);
void AppendOwnPolyline3d(JsonOut& out, const Dwg_Entity_POLYLINE_3D& polyline,
                         const CompleteContext& context, const EntityOrigin& origin);

// `startWidth` and `endWidth` (the defaults), `widths`, `vertexFlags` and `tangents`
// when one is not 0, `curveFit`, `splineFit`, `curveType`, `frame` (the control points
// that are not among the points), the keys of the plane; `world` with `points`.
void AppendPolyline2dFurtherKeys(JsonOut& out, const Dwg_Entity_POLYLINE_2D& polyline,
                                 const CompleteContext& context, const EntityOrigin& origin);

// `splineFit`, `curveType`, `frame`.
void AppendPolyline3dFurtherKeys(JsonOut& out, const Dwg_Entity_POLYLINE_3D& polyline,
                                 const CompleteContext& context, const EntityOrigin& origin);
