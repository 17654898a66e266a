// The `assets` array of the complete form: the block definitions.
#pragma once

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

void AppendCompleteAssets(JsonOut& out, const CompleteContext& context);
