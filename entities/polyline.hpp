// Records of LWPOLYLINE, POLYLINE_2D and POLYLINE_3D: point lists as stored,
// with one bulge a point for the two-dimensional ones.
#pragma once

#include <dwg.h>

#include <string_view>

#include "entities/entity_context.hpp"

// Missing bulges are 0. Nothing without points.
void AppendLwPolylineRecord(JsonOut& out, const Dwg_Entity_LWPOLYLINE& polyline,
                            std::string_view layer);

// The vertices are the objects that follow the polyline in the drawing's
// object array, up to the first SEQEND or object that is no entity; consumers
// depend on that order, whatever vertices the polyline itself names. Spline
// frame control points count only when there is nothing else. Nothing without
// vertices.
void AppendPolyline2dRecord(JsonOut& out, const Dwg_Entity_POLYLINE_2D& polyline,
                            std::string_view layer, EntityContext& context,
                            const Dwg_Object& object);

// As above, with every three-dimensional vertex.
void AppendPolyline3dRecord(JsonOut& out, const Dwg_Entity_POLYLINE_3D& polyline,
                            std::string_view layer, EntityContext& context,
                            const Dwg_Object& object);
