// Finds a word in a list that is known when the program is compiled, by one comparison
// where a search would take one for each word.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

template <std::size_t N>
class WordIndex {
 public:
  // The words differ and are not empty.
  consteval explicit WordIndex(const std::array<std::string_view, N>& words) : words_(words) {
    for (std::size_t i = 0; i < N; ++i) {
      std::size_t slot = SlotOf(words[i]);
      while (slots_.at(slot) != 0) {
        slot = (slot + 1) % kSlots;
      }
      slots_.at(slot) = static_cast<std::uint8_t>(i + 1);
    }
  }

  // The place of the word in the list; N for one that is not in it.
  constexpr std::size_t Find(std::string_view word) const {
    if (word.empty()) {
      return N;
    }
    std::size_t slot = SlotOf(word);
    while (slots_[slot] != 0) {
      const std::size_t at = slots_[slot] - std::size_t{1};
      if (words_[at] == word) {
        return at;
      }
      slot = (slot + 1) % kSlots;
    }
    return N;
  }

  constexpr bool Holds(std::string_view word) const { return Find(word) != N; }

 private:
  // Most of them stay empty, so that few words share one.
  static constexpr std::size_t kSlots = 512;
  static_assert(2 * N < kSlots && N < UINT8_MAX);

  // The length and three letters tell the words of a DXF apart.
  static constexpr std::size_t SlotOf(std::string_view word) {
    constexpr std::size_t kFirst = 5;
    constexpr std::size_t kMiddle = 121;
    constexpr std::size_t kLast = 61;
    const auto letter = [word](std::size_t at) { return static_cast<unsigned char>(word[at]); };
    return (word.size() + letter(0) * kFirst + letter(word.size() / 2) * kMiddle +
            letter(word.size() - 1) * kLast) %
           kSlots;
  }

  std::array<std::string_view, N> words_;
  std::array<std::uint8_t, kSlots> slots_{};
};

template <std::size_t N>
WordIndex(const std::array<std::string_view, N>&) -> WordIndex<N>;
