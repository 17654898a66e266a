// Records of LWPOLYLINE, POLYLINE_2D and POLYLINE_3D: point lists as stored,
// with one bulge a point for the two-dimensional ones.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"
#include "entities/entity_context.hpp"
#include "entities/vertex_index.hpp"

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

// The index of the drawing's vertices, made when it is first asked for.
const VertexIndex& FollowingVertices(const EntityContext& context);

// What the records of those two have behind their type, with these vertices, all of
// which have data of the type; nothing without vertices. Bit 1 of `flag` is set for
// a closed polyline.
void AppendVertices2d(JsonOut& out, unsigned flag, VertexIndex::Vertices objects);
void AppendVertices3d(JsonOut& out, unsigned flag, VertexIndex::Vertices vertices);
