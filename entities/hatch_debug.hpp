// A dump of stored hatch boundaries on standard error, for people who look
// into how a drawing's hatches were read. It changes no record.
#pragma once

#include <dwg.h>

// Whether KVT_DWG_HATCH_DEBUG is set, not empty and does not begin with "0".
// Read once, at the first call.
bool HatchDebugEnabled();

void DumpHatch(const Dwg_Entity_HATCH& hatch);
