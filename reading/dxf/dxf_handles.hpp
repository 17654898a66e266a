// The handles that a DXF uses.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "entities/handle_map.hpp"

// A set of handles. 0 is never in it.
class DxfHandleSet {
 public:
  // Whether the handle is new. False for 0.
  bool Insert(std::uint64_t handle) {
    if (handle == 0) {
      return false;
    }
    if (2 * (count_ + 1) > slots_.size()) {
      Grow();
    }
    std::uint64_t& slot = slots_[PlaceOf(handle)];
    if (slot == handle) {
      return false;
    }
    slot = handle;
    ++count_;
    return true;
  }

  bool Contains(std::uint64_t handle) const {
    return handle != 0 && count_ != 0 && slots_[PlaceOf(handle)] == handle;
  }

 private:
  std::size_t PlaceOf(std::uint64_t handle) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = hash_(handle) & mask;
    while (slots_[i] != 0 && slots_[i] != handle) {
      i = (i + 1) & mask;
    }
    return i;
  }

  void Grow() {
    constexpr std::size_t kFirstSize = 1024;
    std::vector<std::uint64_t> old(slots_.empty() ? kFirstSize : 2 * slots_.size());
    old.swap(slots_);
    for (const std::uint64_t handle : old) {
      if (handle != 0) {
        slots_[PlaceOf(handle)] = handle;
      }
    }
  }

  HandleHash hash_;
  std::vector<std::uint64_t> slots_;  // a power of two of them
  std::size_t count_ = 0;
};

// Gives handles that a drawing does not use, in rising order.
class FreeDxfHandles {
 public:
  // Begins behind `largest`.
  FreeDxfHandles(const DxfHandleSet& used, std::uint64_t largest)
      : used_(used), next_(largest < kLowest ? kLowest : largest + 1) {}

  std::uint64_t Take() {
    while (used_.Contains(next_)) {
      ++next_;
    }
    return next_++;
  }

 private:
  // LibreDWG gives small ones to objects of its own.
  static constexpr std::uint64_t kLowest = 0x1000;

  const DxfHandleSet& used_;
  std::uint64_t next_;
};
