#include "reading/dxf/dxf_layer_defaults.hpp"

#include <string>
#include <unordered_map>

#include "entities/drawing_access.hpp"
#include "reading/dxf/dxf_pairs.hpp"

namespace {

constexpr int kRecordCode = 0;
constexpr int kNameCode = 2;
constexpr int kPlottedCode = 290;
constexpr int kLineweightCode = 370;
constexpr BITCODE_RC kDefaultLineweight = 31;

struct LayerGroups {
  bool hasPlotted = false;
  bool hasLineweight = false;
};

using LayersByName = std::unordered_map<std::string, LayerGroups>;

// The layers stand in the TABLES section, before blocks and entities.
bool EndsTables(const DxfPair& pair) {
  return pair.code == kNameCode && (pair.value == "BLOCKS" || pair.value == "ENTITIES");
}

class LayerReader {
 public:
  explicit LayerReader(std::string_view text) : reader_(text) {}

  LayersByName Read() {
    bool isLayer = false;
    std::string name;
    LayerGroups groups;
    const auto end = [&] {
      if (isLayer) {
        layers_.emplace(name, groups);
      }
      groups = {};
      name.clear();
    };
    bool isSection = false;
    for (DxfPair pair; reader_.Next(pair) == DxfStep::kPair;) {
      if (isSection && EndsTables(pair)) {
        break;
      }
      if (pair.code == kRecordCode) {
        end();
        isLayer = pair.value == "LAYER";
        isSection = pair.value == "SECTION";
      } else if (pair.code == kNameCode) {
        name = pair.value;
      }
      groups.hasPlotted = groups.hasPlotted || pair.code == kPlottedCode;
      groups.hasLineweight = groups.hasLineweight || pair.code == kLineweightCode;
    }
    end();
    return std::move(layers_);
  }

 private:
  DxfPairReader reader_;
  LayersByName layers_;
};

}  // namespace

void SettleLayerDefaults(Dwg_Data& dwg, std::string_view text) {
  const LayersByName told = LayerReader(text).Read();
  for (Dwg_Object& object : MutableObjects(dwg)) {
    auto* layer = object.fixedtype == DWG_TYPE_LAYER ? ObjectData(object, &ObjectTio::LAYER)
                                                     : nullptr;
    if (layer == nullptr || layer->name == nullptr) {
      continue;
    }
    const auto found = told.find(layer->name);
    const LayerGroups groups = found == told.end() ? LayerGroups{} : found->second;
    layer->plotflag = groups.hasPlotted ? layer->plotflag : 1;
    layer->linewt = groups.hasLineweight ? layer->linewt : kDefaultLineweight;
  }
}
