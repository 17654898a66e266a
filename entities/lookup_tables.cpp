#include "entities/lookup_tables.hpp"

#include <utility>

std::uint32_t EntitiesByOwner::GroupOf(Handle owner) {
  // Neighbours mostly share their owner, which saves the look-up.
  if (!groups_.empty() && owner == lastOwner_) {
    return groups_.back();
  }
  lastOwner_ = owner;
  std::uint32_t& number = groupOf_[owner];
  if (number == 0) {
    ends_.push_back(0);
    number = static_cast<std::uint32_t>(ends_.size());
  }
  return number - 1;
}

void EntitiesByOwner::Add(Handle owner, const Dwg_Object& entity) {
  const std::uint32_t group = GroupOf(owner);
  entities_.push_back(&entity);
  groups_.push_back(group);
  ++ends_[group];
}

void EntitiesByOwner::Finish() {
  std::size_t begin = 0;
  for (std::size_t& end : ends_) {
    begin += std::exchange(end, begin);
  }
  // Each end, still the group's begin, moves on with every entity.
  std::vector<const Dwg_Object*> grouped(entities_.size());
  for (std::size_t i = 0; i < entities_.size(); ++i) {
    grouped[ends_[groups_[i]]++] = entities_[i];
  }
  entities_ = std::move(grouped);
  groups_ = {};
}

std::span<const Dwg_Object* const> EntitiesByOwner::Of(Handle owner) const {
  const std::uint32_t* number = groupOf_.Find(owner);
  if (number == nullptr) {
    return {};
  }
  const std::size_t begin = *number == 1 ? 0 : ends_[*number - 2];
  return std::span(entities_).subspan(begin, ends_[*number - 1] - begin);
}
