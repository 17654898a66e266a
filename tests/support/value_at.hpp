// Values of handle tables, for tests.
#pragma once

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "entities/handle_map.hpp"

// The value under the key; a failure without one.
template <typename Value>
Value ValueAt(const HandleMap<Value>& map, Handle key) {
  const Value* value = map.Find(key);
  EXPECT_NE(value, nullptr) << "nothing under " << key;
  return value == nullptr ? Value{} : *value;
}

// All entries under the handles of tests, which are below 0x1000, by handle.
template <typename Value>
std::vector<std::pair<Handle, Value>> EntriesOf(const HandleMap<Value>& map) {
  std::vector<std::pair<Handle, Value>> entries;
  for (Handle handle = 0; handle < 0x1000; ++handle) {
    if (const Value* value = map.Find(handle)) {
      entries.emplace_back(handle, *value);
    }
  }
  return entries;
}

template <typename Value>
HandleMap<Value> MapOf(const std::vector<std::pair<Handle, Value>>& entries) {
  HandleMap<Value> map;
  for (const auto& [handle, value] : entries) {
    map[handle] = value;
  }
  return map;
}
