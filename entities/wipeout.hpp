// Records of WIPEOUT.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"

// The clip outline in drawing coordinates, with as many vertices as are stored
// (a rectangle may be stored as two corners). Nothing for a hidden wipeout or
// one without an outline.
void AppendWipeout(JsonOut& out, const Dwg_Entity_WIPEOUT& wipeout);
