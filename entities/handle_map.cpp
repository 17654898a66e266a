#include "entities/handle_map.hpp"

#include <chrono>

// Where this variable lies and when the process began: nothing that whoever
// made a drawing could know.
std::uint64_t HandleHash::Seed() {
  static const char place = 0;
  static const auto began = std::chrono::steady_clock::now().time_since_epoch().count();
  return reinterpret_cast<std::uintptr_t>(&place) ^ static_cast<std::uint64_t>(began) << 20U;
}
