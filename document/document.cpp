#include "document/document.hpp"

#include <array>
#include <string>
#include <utility>

#include "document/assets.hpp"
#include "document/layers.hpp"
#include "document/layouts.hpp"
#include "document/model_space.hpp"
#include "document/prepass.hpp"
#include "encode/json_list.hpp"
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

// Types in byte order of their names.
void AddSkippedTypes(Findings& findings) {
  for (const auto& [name, count] : findings.skippedTypes) {
    findings.warnings.push_back("Skipped " + std::to_string(count) + " " + name +
                                (count == 1 ? " entity" : " entities") + " (not yet supported)");
  }
}

void AppendWarnings(JsonOut& out, const std::vector<std::string>& warnings) {
  JsonList list(out, ",\"warnings\":[");
  for (const std::string& warning : warnings) {
    list.Quoted(warning);
  }
  list.Close();
}

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
  const EntityContext context{.dwg = drawing.data,
                              .textForm = drawing.textForm,
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
  AddSkippedTypes(findings);
  AppendWarnings(out, findings.warnings);
}

std::string_view VersionWord(Dwg_Version_Type version) {
  for (const ReleaseWord& entry : kReleaseWords) {
    if (entry.version == version) {
      return entry.word;
    }
  }
  return "Unknown";
}
