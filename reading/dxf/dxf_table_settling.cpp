#include "reading/dxf/dxf_table_settling.hpp"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "encode/library_memory.hpp"
#include "encode/numbers.hpp"
#include "entities/drawing_access.hpp"
#include "reading/dxf/dxf_pairs.hpp"
#include "reading/library_copy.hpp"

namespace {

constexpr int kRecordCode = 0;
constexpr int kNameCode = 2;
constexpr int kDescriptionCode = 4;
constexpr int kBaseZCode = 30;
constexpr int kUnitsCode = 70;
constexpr int kPlottedCode = 290;
constexpr int kLineweightCode = 370;
constexpr int kFirstExtendedCode = 1000;

// The pairs of a record up to its extended data.
using Pairs = std::vector<DxfPair>;

const DxfPair* Find(const Pairs& pairs, int code) {
  const auto found = std::ranges::find(pairs, code, &DxfPair::code);
  return found == pairs.end() ? nullptr : &*found;
}

std::string NameOf(const Pairs& pairs) {
  const DxfPair* name = Find(pairs, kNameCode);
  return name == nullptr ? std::string{} : std::string(name->value);
}

template <typename T>
using ByName = std::unordered_map<std::string, T*>;

struct Records {
  ByName<Dwg_Object_LAYER> layers;
  ByName<Dwg_Object_BLOCK_HEADER> blocks;
};

template <typename T>
void Add(ByName<T>& records, T* record) {
  if (record != nullptr && record->name != nullptr) {
    records.emplace(record->name, record);
  }
}

Records RecordsOf(Dwg_Data& dwg) {
  Records records;
  for (const Dwg_Object& object : Objects(dwg)) {
    if (object.fixedtype == DWG_TYPE_LAYER) {
      Add(records.layers, ObjectData(object, &ObjectTio::LAYER));
    } else if (object.fixedtype == DWG_TYPE_BLOCK_HEADER) {
      Add(records.blocks, ObjectData(object, &ObjectTio::BLOCK_HEADER));
    }
  }
  return records;
}

void SettleLayer(Dwg_Object_LAYER& layer, const Pairs& pairs) {
  constexpr BITCODE_RC kDefaultLineweight = 31;
  if (Find(pairs, kPlottedCode) == nullptr) {
    layer.plotflag = 1;
  }
  if (Find(pairs, kLineweightCode) == nullptr) {
    layer.linewt = kDefaultLineweight;
  }
}

void SettleUnits(Dwg_Object_BLOCK_HEADER& block, const Pairs& pairs) {
  const DxfPair* units = Find(pairs, kUnitsCode);
  const auto value = units == nullptr ? std::nullopt : ParseInt32(units->value);
  if (value && *value >= 0 && *value <= 0xFFFF) {
    block.insert_units = static_cast<BITCODE_BS>(*value);
  }
}

void SettleBlock(Dwg_Object_BLOCK_HEADER& block, const Pairs& pairs) {
  if (const DxfPair* z = Find(pairs, kBaseZCode)) {
    block.base_pt.z = ParseDouble(z->value).value_or(0);
  }
  const DxfPair* description = Find(pairs, kDescriptionCode);
  if (description == nullptr || description->value.empty()) {
    return;
  }
  if (char* copy = LibraryCopy(description->value)) {
    LibraryFree(block.description);
    block.description = copy;
  }
}

template <typename T, typename Settle>
void SettleNamed(const ByName<T>& records, const Pairs& pairs, Settle settle) {
  const auto found = records.find(NameOf(pairs));
  if (found != records.end()) {
    settle(*found->second, pairs);
  }
}

void SettleRecord(const Records& records, std::string_view type, const Pairs& pairs) {
  if (type == "LAYER") {
    SettleNamed(records.layers, pairs, SettleLayer);
  } else if (type == "BLOCK_RECORD") {
    SettleNamed(records.blocks, pairs, SettleUnits);
  } else if (type == "BLOCK") {
    SettleNamed(records.blocks, pairs, SettleBlock);
  }
}

bool IsSettled(std::string_view type) {
  return type == "LAYER" || type == "BLOCK_RECORD" || type == "BLOCK";
}

}  // namespace

void SettleDxfTables(Dwg_Data& dwg, std::string_view text) {
  const Records records = RecordsOf(dwg);
  DxfPairReader reader(text);
  std::string_view type;
  Pairs pairs;
  bool isTaken = false;
  for (DxfPair pair; reader.Next(pair) == DxfStep::kPair;) {
    if (pair.code == kRecordCode) {
      SettleRecord(records, type, pairs);
      pairs.clear();
      type = pair.value;
      isTaken = IsSettled(type);
    } else if (pair.code >= kFirstExtendedCode) {
      isTaken = false;
    } else if (type == "SECTION" && pair.code == kNameCode && pair.value == "ENTITIES") {
      break;
    } else if (isTaken) {
      pairs.push_back(pair);
    }
  }
  SettleRecord(records, type, pairs);
}
