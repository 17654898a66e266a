// The sections of the named views and coordinate systems.
#pragma once

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `views`: name, place, size, direction, and the coordinate system of those that have
// one.
void AppendViews(JsonOut& out, const CompleteContext& context);

// `coordinateSystems`: name, origin and axes.
void AppendCoordinateSystems(JsonOut& out, const CompleteContext& context);
