// What a conversion finds besides the records that it writes.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

struct Findings {
  std::vector<std::string> warnings;

  // How many entities have no record, by the name of their type.
  std::map<std::string, std::size_t> skippedTypes;
};
