// Values of handle tables, for tests.
#pragma once

#include <gtest/gtest.h>

#include "entities/handle_map.hpp"

// The value under the key; a failure without one.
template <typename Value>
Value ValueAt(const HandleMap<Value>& map, Handle key) {
  for (const auto& [handle, value] : map) {
    if (handle == key) {
      return value;
    }
  }
  ADD_FAILURE() << "nothing under " << key;
  return {};
}
