// Prints what stands in a drawing's tables and in the attributes of its blocks.
//
//   dwg_import_worker plan.dwg --complete | tables     (compiled with models/cpp and nlohmann/json)
#include <iostream>
#include <string>
#include <vector>

#include "models/cpp/dwg_document_complete.hpp"

namespace {

using dwg_document_complete::AcadTable;
using dwg_document_complete::Entity;
using dwg_document_complete::Insert;

void Print(const AcadTable& table) {
  for (const auto& cell : table.cells) {
    if (cell.text) {
      std::cout << "cell " << cell.row << " " << cell.column << ": " << *cell.text << "\n";
    }
  }
}

void Print(const Insert& insert) {
  if (insert.attributes) {
    for (const auto& attribute : *insert.attributes) {
      std::cout << insert.blockName << " " << attribute.tag << ": " << attribute.text << "\n";
    }
  }
}

void Print(const std::vector<Entity>& entities) {
  for (const Entity& entity : entities) {
    if (const auto* table = std::get_if<AcadTable>(&entity.value)) {
      Print(*table);
    } else if (const auto* insert = std::get_if<Insert>(&entity.value)) {
      Print(*insert);
    }
  }
}

}  // namespace

int main() try {
  std::string line;
  std::getline(std::cin, line);
  const auto document = dwg_document_complete::ParseDocument(line);
  Print(document.entities);
  for (const auto& layout : document.layouts) {
    Print(layout.entities);
  }
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << "\n";
  return 1;
}
