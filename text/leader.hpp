// Records of LEADER.
#pragma once

#include <dwg.h>

#include "encode/json_out.hpp"

// Nothing with fewer than two points.
void AppendLeader(JsonOut& out, const Dwg_Entity_LEADER& leader);
