// The section of the variables that drawing needs.
#pragma once

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `header`: the variables of the drawing's header under the names that DXF gives them,
// those that the drawing has. References to table records and blocks are their names.
void AppendHeaderVariables(JsonOut& out, const CompleteContext& context);
