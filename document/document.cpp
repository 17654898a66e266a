#include "document/document.hpp"

#include <array>
#include <string>
#include <utility>

#include "document/assets.hpp"
#include "document/layers.hpp"
#include "document/layouts.hpp"
#include "document/model_space.hpp"
#include "document/prepass.hpp"
#include "document/warnings.hpp"
#include "encode/json_text.hpp"
#include "entities/entity_context.hpp"
#include "entities/writer_memory.hpp"

namespace {

struct ReleaseWord {
  Dwg_Version_Type version;
  std::string_view word;
};

constexpr std::array<ReleaseWord, 7> kReleaseWords = {{{R_14, "R14"},
                                                       {R_2000, "2000"},
                                                       {R_2004, "2004"},
                                                       {R_2007, "2007"},
                                                       {R_2010, "2010"},
                                                       {R_2013, "2013"},
                                                       {R_2018, "2018"}}};

// The key and its list, which `append` appends.
void AppendSection(JsonOut& out, Stage stage, std::string_view key,
                   void (*append)(JsonOut&, const EntityContext&), const EntityContext& context,
                   StageObserver& observer) {
  observer.Begin(stage);
  out += key;
  append(out, context);
  observer.End(stage);
}

}  // namespace

void AppendDocument(JsonOut& out, const Drawing& drawing, const DocumentOptions& options,
                    std::vector<std::string> warnings, StageObserver& observer) {
  observer.Begin(Stage::kPrepass);
  const LookupTables tables = BuildLookupTables(drawing);
  observer.End(Stage::kPrepass);

  Findings findings{.warnings = std::move(warnings), .skippedTypes = drawing.unknownEntities};
  WriterMemory memory;
  const EntityContext context{.drawing = drawing,
                              .tables = tables,
                              .verbose = options.verbose,
                              .findings = findings,
                              .memory = memory};
  AppendQuotedKey(out, "{\"dwgVersion\":", VersionWord(drawing.data.header.version));
  AppendIntKey(out, ",\"insunits\":", drawing.data.header_vars.INSUNITS);
  AppendSection(out, Stage::kLayers, ",\"layers\":", AppendLayers, context, observer);
  AppendSection(out, Stage::kAssets, ",\"assets\":", AppendAssets, context, observer);
  AppendSection(out, Stage::kModelSpace, ",\"entities\":", AppendModelSpace, context, observer);
  AppendSection(out, Stage::kLayouts, ",\"layouts\":", AppendLayouts, context, observer);
  AppendWarnings(out, findings);
}

std::string_view VersionWord(Dwg_Version_Type version) {
  for (const ReleaseWord& entry : kReleaseWords) {
    if (entry.version == version) {
      return entry.word;
    }
  }
  return "Unknown";
}
