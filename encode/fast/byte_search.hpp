// Search for bytes of a kind in eight of them at once.
//
// A search for one kind gives bits, searches for several are joined by `|`, and
// Found leaves the highest bit of each byte that was found. Bytes behind the
// first find may be marked wrongly; before it none is, and a word without any
// find is 0.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

using ByteWord = std::uint64_t;

// Eight bytes, the first in the lowest byte.
inline ByteWord LoadBytes(const void* from) {
  if constexpr (std::endian::native == std::endian::little) {
    ByteWord word = 0;
    std::memcpy(&word, from, sizeof word);
    return word;
  } else {
    ByteWord word = 0;
    for (unsigned i = 0; i < sizeof word; ++i) {
      word |= ByteWord{static_cast<const unsigned char*>(from)[i]} << (8 * i);
    }
    return word;
  }
}

inline void StoreBytes(char* at, ByteWord word) {
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(at, &word, sizeof word);
  } else {
    for (unsigned i = 0; i < sizeof word; ++i) {
      at[i] = static_cast<char>(word >> (8 * i));
    }
  }
}

constexpr ByteWord AllBytes(unsigned char byte) {
  return ~ByteWord{0} / 0xFF * byte;
}

// Only bytes below 0x80 are searched for; `limit` is at most 0x80.
constexpr ByteWord BytesBelow(ByteWord word, unsigned char limit) {
  return word - AllBytes(limit);
}

constexpr ByteWord BytesEqual(ByteWord word, char byte) {
  return BytesBelow(word ^ AllBytes(static_cast<unsigned char>(byte)), 1);
}

constexpr ByteWord Found(ByteWord word, ByteWord bits) {
  return bits & ~word & AllBytes(0x80);
}

// How many bytes stand before the first find; all eight without one.
constexpr std::size_t CountBefore(ByteWord found) {
  return static_cast<std::size_t>(std::countr_zero(found)) / 8;
}
static_assert(CountBefore(0) == 8);

// How many bytes stand before the first of a kind, which `find` finds in a word
// and `is` tells of one byte.
template <typename Find, typename Is>
std::size_t CountWithout(std::string_view text, Find find, Is is) {
  std::size_t count = 0;
  for (; text.size() - count >= sizeof(ByteWord); count += sizeof(ByteWord)) {
    const ByteWord found = find(LoadBytes(text.data() + count));
    if (found != 0) {
      return count + CountBefore(found);
    }
  }
  while (count < text.size() && !is(text[count])) {
    ++count;
  }
  return count;
}

// The bytes of a text of fewer than eight, and zeros behind them.
inline ByteWord LoadFewBytes(std::string_view text) {
  ByteWord word = 0;
  for (std::size_t i = text.size(); i > 0; --i) {
    word = word << 8U | static_cast<unsigned char>(text[i - 1]);
  }
  return word;
}

// Copies the bytes before the first of a kind, which `find` finds in a word, and
// returns how many these are. Whole words are written: `at` needs room for the
// text and one word more.
template <typename Find>
std::size_t CopyWithout(char* at, std::string_view text, Find find) {
  std::size_t count = 0;
  for (; text.size() - count >= sizeof(ByteWord); count += sizeof(ByteWord)) {
    const ByteWord word = LoadBytes(text.data() + count);
    StoreBytes(at + count, word);
    const ByteWord found = find(word);
    if (found != 0) {
      return count + CountBefore(found);
    }
  }
  const std::size_t rest = text.size() - count;
  if (rest == 0) {
    return count;
  }
  const ByteWord word = count == 0 ? LoadFewBytes(text)
                                   : LoadBytes(text.data() + text.size() - sizeof(ByteWord)) >>
                                         (8 * (sizeof(ByteWord) - rest));
  StoreBytes(at + count, word);
  return count + std::min(CountBefore(find(word)), rest);
}
