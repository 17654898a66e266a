// The section of the dimension styles.
#pragma once

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// `dimensionStyles`: name, handle and all dimension variables of the drawing's release.
void AppendDimensionStyles(JsonOut& out, const CompleteContext& context);
