// Takes single values out of finished records, for tests that check numbers
// rather than texts.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

// Every number of the array under `key`, nested arrays flattened, in order.
inline std::vector<double> NumbersOf(const std::string& record, std::string_view key) {
  const std::string start = "\"" + std::string(key) + "\":[";
  std::size_t position = record.find(start);
  if (position == std::string::npos) {
    ADD_FAILURE() << "no array " << key << " in " << record;
    return {};
  }
  position += start.size();
  std::vector<double> numbers;
  for (int depth = 1; depth > 0 && position < record.size();) {
    const char c = record[position];
    if (c == '[' || c == ']' || c == ',') {
      depth += c == '[' ? 1 : (c == ']' ? -1 : 0);
      ++position;
      continue;
    }
    char* end = nullptr;
    numbers.push_back(std::strtod(record.c_str() + position, &end));
    const auto next = static_cast<std::size_t>(end - record.c_str());
    if (next == position) {
      ADD_FAILURE() << "no number at " << record.substr(position);
      return {};
    }
    position = next;
  }
  return numbers;
}

// How often `part` stands in `text`, without overlaps.
inline std::size_t CountOf(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos;
       at = text.find(part, at + part.size())) {
    ++count;
  }
  return count;
}
