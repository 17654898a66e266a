// Records of DWF and DGN underlays, and of PDF underlays whose file is missing.
#pragma once

#include <dwg.h>

#include "complete/complete_context.hpp"
#include "encode/json_out.hpp"

// The keys of a PDF underlay's record; `path` is the declared one when no file was
// found, `found` says which. Nothing for an underlay that has no definition.
void AppendUnderlay(JsonOut& out, const Dwg_Entity_UNDERLAY& underlay,
                    const CompleteContext& context);

// Whether and how it is shown, contrast and fading, and the outline that it is clipped by.
void AppendUnderlayFurtherKeys(JsonOut& out, const Dwg_Entity_UNDERLAY& underlay);
