#include "document/warnings.hpp"

#include <cstddef>
#include <string>

#include "encode/json_list.hpp"

namespace {

std::string SkippedType(const std::string& name, std::size_t count) {
  return "Skipped " + std::to_string(count) + " " + name + (count == 1 ? " entity" : " entities") +
         " (not yet supported)";
}

}  // namespace

void AppendWarnings(JsonOut& out, const Findings& findings) {
  JsonList list(out, ",\"warnings\":[");
  for (const std::string& warning : findings.warnings) {
    list.Quoted(warning);
  }
  for (const auto& [name, count] : findings.skippedTypes) {
    list.Quoted(SkippedType(name, count));
  }
  list.Close();
}
