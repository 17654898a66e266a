// The section of the groups.
#pragma once

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `groups`: name, description and the handles of the members.
void AppendGroups(JsonOut& out, const CompleteContext& context);
