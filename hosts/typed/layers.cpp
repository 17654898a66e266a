// Says how many entities lie on each layer, and which texts a drawing holds.
//
//   dwg_import_worker plan.dwg | layers     (compiled with models/cpp and nlohmann/json)
#include <iostream>
#include <map>
#include <string>

#include "models/cpp/dwg_document.hpp"

namespace {

std::string WithoutTags(const std::string& html) {
  std::string plain;
  std::size_t at = 0;
  while (at < html.size()) {
    const std::size_t tag = html[at] == '<' ? html.find('>', at) : std::string::npos;
    if (tag == std::string::npos) {
      plain += html[at];
    }
    at = tag == std::string::npos ? at + 1 : tag + 1;
  }
  return plain;
}

// A line with what a text says; nothing for what is no text.
template <typename Record>
std::string TextLine(const Record& record) {
  if constexpr (requires { record.html; }) {
    return "text " + WithoutTags(record.html) + "\n";
  } else if constexpr (requires { record.text->html; }) {
    return record.text ? "text " + WithoutTags(record.text->html) + "\n" : "";
  }
  return {};
}

}  // namespace

int main() try {
  std::string line;
  std::getline(std::cin, line);
  const dwg_document::Document document = dwg_document::ParseDocument(line);
  std::map<std::string, int> counts;
  for (const dwg_document::Entity& entity : document.entities) {
    std::visit([&counts](const auto& record) { ++counts[record.layer]; }, entity.value);
    std::visit([](const auto& record) { std::cout << TextLine(record); }, entity.value);
  }
  for (const dwg_document::Layer& layer : document.layers) {
    std::cout << "layer " << layer.name << ": " << counts[layer.name]
              << (layer.visible ? "" : ", off") << "\n";
  }
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << "\n";
  return 1;
}
