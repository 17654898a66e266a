#include "tests/support/test_drawing.hpp"

#include "document/prepass.hpp"
#include "entities/convert_entity.hpp"

char* TestDrawing::Utf16(const std::u16string& text) {
  std::vector<char16_t> units(text.begin(), text.end());
  units.push_back(0);
  return reinterpret_cast<char*>(Array(units));
}

Handle TestDrawing::AddLayer(Handle handle, const std::string& name) {
  AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER, handle).name = Text(name);
  return handle;
}

EntityContext TestDrawing::Context(bool verbose) {
  return EntityContext{.drawing = drawings_.emplace_back(drawing()),
                       .tables = tables,
                       .verbose = verbose,
                       .findings = findings,
                       .memory = memories_.emplace_back()};
}

std::string TestDrawing::RecordOfLast(const std::string& layer) {
  constexpr Handle kLayer = 0xFFFF;
  if (layer != "0") {
    tables.layers.Add(kLayer, LayerEntry(layer));
    lastEntity().layer = Ref(kLayer);
  }
  JsonOut out;
  convertEntity(out, last(), Context());
  return out.Text();
}

void TestDrawing::Prepass() {
  tables = BuildLookupTables(drawing());
}
