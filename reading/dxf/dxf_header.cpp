#include "reading/dxf/dxf_header.hpp"

#include <string>

#include "reading/dxf/dxf_pairs.hpp"

namespace {

constexpr int kRecordCode = 0;
constexpr int kTextCode = 1;
constexpr int kNameCode = 9;

bool EndsHeader(const DxfPair& pair) {
  return pair.code == kRecordCode && pair.value == "ENDSEC";
}

}  // namespace

DxfHeader HeaderOfDxf(std::string_view text) {
  DxfHeader header;
  DxfPairReader reader(text);
  std::string name;
  for (DxfPair pair; reader.Next(pair) == DxfStep::kPair && !EndsHeader(pair);) {
    if (pair.code == kNameCode && pair.value.starts_with('$')) {
      name = pair.value.substr(1);
      header.names.insert(name);
    } else if (pair.code == kTextCode && !name.empty()) {
      header.texts.emplace_back(name, pair.value);
    }
  }
  return header;
}
