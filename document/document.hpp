// The document's sections in their order, built from a drawing in memory.
#pragma once

#include <dwg.h>

#include <string>
#include <string_view>
#include <vector>

#include "encode/json_out.hpp"
#include "entities/drawing.hpp"

// The stages of a conversion, in run order.
enum class Stage { kPrepass, kLayers, kAssets, kModelSpace, kLayouts };

// Told of each stage as it begins and ends; does nothing by default.
class StageObserver {
 public:
  StageObserver() = default;
  virtual ~StageObserver() = default;
  StageObserver(const StageObserver&) = delete;
  StageObserver& operator=(const StageObserver&) = delete;

  virtual void Begin(Stage /*stage*/) {}
  virtual void End(Stage /*stage*/) {}
};

struct DocumentOptions {
  bool verbose = false;  // colours carry their stored fields, as `_dbg`
};

// Appends the document from its opening brace to the end of its `warnings`: the
// caller adds what is left and closes the object. `warnings` come first in the
// list.
void AppendDocument(JsonOut& out, const Drawing& drawing, const DocumentOptions& options,
                    std::vector<std::string> warnings, StageObserver& observer);

// The document's word for a release, "Unknown" for those it has none for.
std::string_view VersionWord(Dwg_Version_Type version);
