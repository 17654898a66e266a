// Records of polygon, polyface and subdivision meshes.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// A grid of points in the world, row after row in the direction m. A smoothed mesh
// has its drawn points, and those that control it apart. Nothing without points.
void AppendPolygonMesh(JsonOut& out, const Dwg_Entity_POLYLINE_MESH& mesh,
                       const CompleteContext& context, const EntityOrigin& origin);

// Points in the world and faces of up to four of them, each with the edges that are
// drawn and with its own colour and layer. Nothing without points.
void AppendPolyfaceMesh(JsonOut& out, const Dwg_Entity_POLYLINE_PFACE& mesh,
                        const CompleteContext& context, const EntityOrigin& origin);

// Points, faces and edges of the mesh before it is subdivided, the level of that, and
// the creases. Nothing without points.
void AppendSubdivisionMesh(JsonOut& out, const Dwg_Entity_MESH& mesh);
