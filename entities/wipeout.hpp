// Records of WIPEOUT.
#pragma once

#include <dwg.h>

#include <string>
#include <string_view>

// The clip outline in drawing coordinates, with as many vertices as are stored
// (a rectangle may be stored as two corners). Nothing for a hidden wipeout or
// one without an outline.
std::string WipeoutRecord(const Dwg_Entity_WIPEOUT& wipeout, std::string_view layer);
