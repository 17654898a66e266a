// A hash table keyed by handle value.
//
// Its entries lie side by side in the order in which their keys first came;
// an index by open addressing leads to them. References to values are valid
// until the next insertion.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <utility>
#include <vector>

#include "entities/drawing_access.hpp"

template <typename Value>
class HandleMap {
 public:
  using value_type = std::pair<Handle, Value>;
  using const_iterator = typename std::vector<value_type>::const_iterator;
  using iterator = const_iterator;

  HandleMap() = default;
  HandleMap(std::initializer_list<value_type> entries) {
    for (const value_type& entry : entries) {
      (*this)[entry.first] = entry.second;
    }
  }

  const_iterator begin() const { return entries_.begin(); }
  const_iterator end() const { return entries_.end(); }
  std::size_t size() const { return entries_.size(); }
  bool empty() const { return entries_.empty(); }

  void clear() {
    entries_.clear();
    index_.clear();
  }

  bool contains(Handle key) const { return Find(key) != nullptr; }

  // The value under the key, null when there is none.
  const Value* Find(Handle key) const {
    if (entries_.empty()) {
      return nullptr;
    }
    const std::uint32_t entry = index_[SlotOf(key)];
    return entry == 0 ? nullptr : &entries_[entry - 1].second;
  }

  // The value under the key, made when there is none.
  Value& operator[](Handle key) {
    if (entries_.size() >= index_.size() / 2) {
      Grow();
    }
    std::uint32_t& entry = index_[SlotOf(key)];
    if (entry == 0) {
      entries_.emplace_back(key, Value{});
      entry = static_cast<std::uint32_t>(entries_.size());
    }
    return entries_[entry - 1].second;
  }

 private:
  static constexpr std::size_t kLeastSlots = 16;

  // Handles mostly count up; the product scatters them over its upper bits.
  std::size_t Home(Handle key) const {
    return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15U) >> shift_);
  }

  // The slot that holds the key or, free, would hold it.
  std::size_t SlotOf(Handle key) const {
    std::size_t slot = Home(key);
    while (index_[slot] != 0 && entries_[index_[slot] - 1].first != key) {
      slot = (slot + 1) & (index_.size() - 1);
    }
    return slot;
  }

  void Grow() {
    const std::size_t slots = std::max(kLeastSlots, index_.size() * 2);
    index_.assign(slots, 0);
    shift_ = 64 - std::countr_zero(slots);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      index_[SlotOf(entries_[i].first)] = static_cast<std::uint32_t>(i + 1);
    }
  }

  std::vector<value_type> entries_;
  std::vector<std::uint32_t> index_;  // position of the entry plus 1, 0 when free
  int shift_ = 64;
};
