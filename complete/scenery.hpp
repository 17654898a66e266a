// Records of what CAD programs show by symbols of their own: lights, section planes,
// point clouds, markers.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

void AppendLight(JsonOut& out, const Dwg_Entity_LIGHT& light, const CompleteContext& context);

// The line of the section plane, and the back line where the section has one.
void AppendSectionPlane(JsonOut& out, const Dwg_Entity_SECTIONOBJECT& section,
                        const CompleteContext& context);

// The box that holds the cloud; its points are in the files that it names.
void AppendPointCloud(JsonOut& out, const Dwg_Entity_POINTCLOUD& cloud,
                      const CompleteContext& context);
void AppendPointCloudEx(JsonOut& out, const Dwg_Entity_POINTCLOUDEX& cloud,
                        const CompleteContext& context);

void AppendGeographicMarker(JsonOut& out, const Dwg_Entity_GEOPOSITIONMARKER& marker,
                            const CompleteContext& context);
