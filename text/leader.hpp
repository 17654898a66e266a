// Records of LEADER.
#pragma once

#include <dwg.h>

#include <string_view>

#include "encode/json_out.hpp"

// Nothing with fewer than two points.
void AppendLeaderRecord(JsonOut& out, const Dwg_Entity_LEADER& leader, std::string_view layer);
