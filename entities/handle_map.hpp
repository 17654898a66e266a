// A hash table keyed by handle value.
//
// Its entries lie side by side in the order in which their keys first came;
// an index by open addressing leads to them. References to values are valid
// until the next insertion.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <unordered_set>
#include <utility>
#include <vector>

#include "entities/drawing_access.hpp"

// Mixes a handle with a number that differs from run to run. A drawing chooses
// its handles; hashed by their value alone they could all be made to fall into
// one place, where a look-up searches them all.
class HandleHash {
 public:
  // Two rounds of multiplication and shift (D. Stafford, variant 13 of the
  // finalizer of MurmurHash3), the seed going into both.
  std::size_t operator()(Handle handle) const {
    std::uint64_t mixed = handle ^ seed_;
    mixed = (mixed ^ mixed >> 30U) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ mixed >> 27U ^ seed_) * 0x94D049BB133111EB;
    return static_cast<std::size_t>(mixed ^ mixed >> 31U);
  }

 private:
  // The same for the whole run.
  static std::uint64_t Seed();

  std::uint64_t seed_ = Seed();
};

using HandleSet = std::unordered_set<Handle, HandleHash>;

template <typename Value>
class HandleMap {
 public:
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

  // The slot that holds the key or, free, would hold it.
  std::size_t SlotOf(Handle key) const {
    std::size_t slot = hash_(key) & (index_.size() - 1);
    while (index_[slot] != 0 && entries_[index_[slot] - 1].first != key) {
      slot = (slot + 1) & (index_.size() - 1);
    }
    return slot;
  }

  void Grow() {
    const std::size_t slots = std::max(kLeastSlots, index_.size() * 2);
    index_.assign(slots, 0);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      index_[SlotOf(entries_[i].first)] = static_cast<std::uint32_t>(i + 1);
    }
  }

  std::vector<std::pair<Handle, Value>> entries_;
  std::vector<std::uint32_t> index_;  // position of the entry plus 1, 0 when free
  HandleHash hash_;
};
