#include "entities/lookup_tables.hpp"

#include <algorithm>
#include <numeric>
#include <utility>

std::uint32_t EntitiesByOwner::GroupOf(Handle owner) {
  std::uint32_t& number = groupOf_[owner];
  if (number == 0) {
    ends_.push_back(0);
    number = static_cast<std::uint32_t>(ends_.size());
  }
  return number - 1;
}

void EntitiesByOwner::Add(Handle owner, const Dwg_Object& entity) {
  // Neighbours mostly share their owner, which saves the look-up.
  if (runs_.empty() || owner != lastOwner_) {
    runs_.push_back({GroupOf(owner), 0});
    lastOwner_ = owner;
  }
  ++runs_.back().size;
  entities_.push_back(&entity);
}

void EntitiesByOwner::Finish() {
  for (const Run& run : runs_) {
    ends_[run.group] += run.size;
  }
  std::partial_sum(ends_.begin(), ends_.end(), ends_.begin());
  // Groups of one run each stand in their order already.
  if (runs_.size() != ends_.size()) {
    MoveGroupsTogether();
  }
  runs_ = {};
}

void EntitiesByOwner::MoveGroupsTogether() {
  // Where the next run of each group goes.
  std::vector<std::size_t> places(ends_.size());
  std::copy(ends_.begin(), ends_.end() - 1, places.begin() + 1);
  std::vector<const Dwg_Object*> grouped(entities_.size());
  const auto* from = entities_.data();
  for (const Run& run : runs_) {
    std::copy_n(from, run.size, grouped.data() + places[run.group]);
    places[run.group] += run.size;
    from += run.size;
  }
  entities_ = std::move(grouped);
}

std::span<const Dwg_Object* const> EntitiesByOwner::Of(Handle owner) const {
  const std::uint32_t* number = groupOf_.Find(owner);
  if (number == nullptr) {
    return {};
  }
  const std::size_t begin = *number == 1 ? 0 : ends_[*number - 2];
  return std::span(entities_).subspan(begin, ends_[*number - 1] - begin);
}

const double* LookupTables::FixedTextHeight(Handle style) const {
  return style == 0 ? nullptr : textStyles.Find(style);
}

std::string_view LookupTables::FontFamily(Handle style) const {
  const std::string* family = style == 0 ? nullptr : styleFonts.Find(style);
  return family == nullptr ? std::string_view{} : *family;
}
