#include "document/document.hpp"

#include <array>
#include <map>
#include <utility>

#include "document/assets.hpp"
#include "document/layers.hpp"
#include "document/layouts.hpp"
#include "document/model_space.hpp"
#include "document/prepass.hpp"
#include "encode/json_text.hpp"
#include "entities/entity_context.hpp"

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

using TypeCounts = std::map<std::string, std::size_t>;

// Types in byte order of their names.
void AddSkippedTypes(const TypeCounts& counts, std::vector<std::string>& warnings) {
  for (const auto& [name, count] : counts) {
    warnings.push_back("Skipped " + std::to_string(count) + " " + name +
                       (count == 1 ? " entity" : " entities") + " (not yet supported)");
  }
}

void AppendWarnings(JsonOut& out, const std::vector<std::string>& warnings) {
  out += ",\"warnings\":[";
  ListCursor list{out};
  for (const std::string& warning : warnings) {
    AppendListQuoted(list, warning);
  }
  out += ']';
}

template <typename Write>
void AppendSection(JsonOut& out, std::string_view key, Write write) {
  out += key;
  out += '[';
  write();
  out += ']';
}

}  // namespace

void AppendDocument(JsonOut& out, const DocumentInput& input, std::vector<std::string> warnings,
                    StageObserver& observer) {
  Dwg_Data& dwg = input.dwg;
  observer.Begin(Stage::kPrepass);
  const LookupTables tables = BuildLookupTables(dwg, input.unicodeText, input.drawingFolder);
  observer.End(Stage::kPrepass);

  TypeCounts skippedTypes;
  EntityContext context{dwg, tables, input.unicodeText, warnings, skippedTypes};
  AppendQuotedKey(out, "{\"dwgVersion\":", VersionWord(dwg.header.version));
  AppendIntKey(out, ",\"insunits\":", dwg.header_vars.INSUNITS);

  observer.Begin(Stage::kLayers);
  AppendSection(
      out, ",\"layers\":", [&] { AppendLayers(out, dwg, input.unicodeText, input.debugColors); });
  observer.End(Stage::kLayers);

  observer.Begin(Stage::kAssets);
  AppendSection(out, ",\"assets\":", [&] { AppendAssets(out, context, input.debugColors); });
  observer.End(Stage::kAssets);

  observer.Begin(Stage::kModelSpace);
  AppendSection(out,
                ",\"entities\":", [&] { AppendModelSpace(out, dwg, context, input.debugColors); });
  observer.End(Stage::kModelSpace);

  observer.Begin(Stage::kLayouts);
  AppendSection(out, ",\"layouts\":", [&] { AppendLayouts(out, context, input.debugColors); });
  observer.End(Stage::kLayouts);

  AddSkippedTypes(skippedTypes, warnings);
  AppendWarnings(out, warnings);
}

std::string_view VersionWord(Dwg_Version_Type version) {
  for (const ReleaseWord& entry : kReleaseWords) {
    if (entry.version == version) {
      return entry.word;
    }
  }
  return "Unknown";
}
