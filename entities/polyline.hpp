// Records of LWPOLYLINE, POLYLINE_2D and POLYLINE_3D: point lists as stored,
// with one bulge a point for the two-dimensional ones.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"
#include "entities/entity_context.hpp"

// Missing bulges are 0. Nothing without points.
void AppendLwPolyline(JsonOut& out, const Dwg_Entity_LWPOLYLINE& polyline);

// The vertices are the objects that follow the polyline in the drawing's
// object array, up to the first SEQEND or object that is no entity; consumers
// depend on that order, whatever vertices the polyline itself names. Spline
// frame control points count only when there is nothing else. Nothing without
// vertices.
void AppendPolyline2d(JsonOut& out, const Dwg_Entity_POLYLINE_2D& polyline,
                      const EntityContext& context, const EntityOrigin& origin);

// As above, with every three-dimensional vertex.
void AppendPolyline3d(JsonOut& out, const Dwg_Entity_POLYLINE_3D& polyline,
                      const EntityContext& context, const EntityOrigin& origin);
