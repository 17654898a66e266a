// What an appender writes, as a string.
#pragma once

#include <string>

#include "encode/json_out.hpp"

// Calls `append` with an empty text and the arguments.
template <typename Append, typename... Arguments>
std::string Written(Append append, Arguments&&... arguments) {
  JsonOut out;
  append(out, arguments...);
  return out.Text();
}
