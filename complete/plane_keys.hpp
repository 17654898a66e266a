// The keys of entities that lie in a plane of their own.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"

// `elevation` (group 38, or the z of group 10), `thickness` (group 39) and `extrusion`
// (group 210), each where it is not 0, or not the z axis; lengths in drawing units.
void AppendPlaneKeys(JsonOut& out, double elevation, double thickness, const BITCODE_BE& extrusion);
