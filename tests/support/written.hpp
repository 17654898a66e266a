// What an appender writes, as a string, and output texts as values of assertions.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>

#include "encode/json_out.hpp"

inline bool operator==(const JsonOut& out, std::string_view text) {
  return out.Text() == text;
}

inline std::ostream& operator<<(std::ostream& stream, const JsonOut& out) {
  return stream << out.Text();
}

// Calls `append` with an empty text and the arguments.
template <typename Append, typename... Arguments>
std::string Written(Append append, Arguments&&... arguments) {
  JsonOut out;
  append(out, arguments...);
  return out.Text();
}

// What stands between the brackets of a list.
inline std::string Inside(const std::string& list) {
  EXPECT_TRUE(list.starts_with('[') && list.ends_with(']')) << list;
  return list.substr(1, list.size() - 2);
}
