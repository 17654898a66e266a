// Records of LEADER.
#pragma once

#include <dwg.h>

#include <string>
#include <string_view>

// Nothing with fewer than two points.
std::string LeaderRecord(const Dwg_Entity_LEADER& leader, std::string_view layer);
