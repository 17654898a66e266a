// The document's `warnings` array.
#pragma once

#include "encode/json_out.hpp"
#include "entities/findings.hpp"

// Appends the key and its list: the warnings in the order in which they came, then
// a line for each type that has no record, in byte order of the names.
void AppendWarnings(JsonOut& out, const Findings& findings);
