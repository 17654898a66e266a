#include "entities/lookup_tables.hpp"

#include <chrono>

namespace {

const std::vector<const Dwg_Object*> kNoObjects;

// Where this variable lies and when the process began: nothing that whoever
// made a drawing could know.
std::uint64_t MakeSeed() {
  static const char place = 0;
  const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
  return reinterpret_cast<std::uintptr_t>(&place) ^ static_cast<std::uint64_t>(now) << 20U;
}

}  // namespace

// Two rounds of multiplication and shift (D. Stafford, variant 13 of the
// finalizer of MurmurHash3), the seed going into both.
std::size_t HandleHash::operator()(Handle handle) const {
  static const std::uint64_t seed = MakeSeed();
  std::uint64_t mixed = handle ^ seed;
  mixed = (mixed ^ mixed >> 30U) * 0xBF58476D1CE4E5B9;
  mixed = (mixed ^ mixed >> 27U ^ seed) * 0x94D049BB133111EB;
  return static_cast<std::size_t>(mixed ^ mixed >> 31U);
}

const std::vector<const Dwg_Object*>& LookupTables::OwnedBy(Handle owner) const {
  const auto found = entitiesByOwner.find(owner);
  return found == entitiesByOwner.end() ? kNoObjects : found->second;
}

const std::vector<const Dwg_Object*>& LookupTables::OwnedBy(const Dwg_Object& owner) const {
  return owner.handle.value == 0 ? kNoObjects : OwnedBy(owner.handle.value);
}
