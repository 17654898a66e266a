// The complete form of the document: that of document/document.hpp, wider.
#pragma once

#include <string>
#include <vector>

#include "document/document.hpp"
#include "encode/json_out.hpp"
#include "entities/drawing.hpp"

// Appends what AppendDocument does, in the complete form, and to `further` the
// sections that stand behind all keys of the plain form, each with its comma.
void AppendCompleteDocument(JsonOut& out, JsonOut& further, const Drawing& drawing,
                            const DocumentOptions& options, std::vector<std::string> warnings,
                            StageObserver& observer);
