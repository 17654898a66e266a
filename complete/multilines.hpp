// Records of MLINE: parallel lines along a path.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// The path's vertices with their directions, and for each element of the style its
// offset, colour, line type and the lines that are drawn, in the world's system,
// with the gaps that cuts left. Nothing without vertices.
void AppendMultiline(JsonOut& out, const Dwg_Entity_MLINE& multiline,
                     const CompleteContext& context);
