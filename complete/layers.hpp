// The `layers` array of the complete form.
#pragma once

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// As the plain form's, with the colours that CAD programs show and, behind its keys,
// `frozen`, `plotted`, `linetype`.
void AppendCompleteLayers(JsonOut& out, const CompleteContext& context);
