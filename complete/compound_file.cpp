#include "complete/compound_file.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace {

using Bytes = std::vector<unsigned char>;

constexpr std::uint32_t kLastSector = 0xFFFFFFFA;  // larger numbers have other meanings

std::uint32_t WordAt(StoredBytes bytes, std::size_t at) {
  return at + 4 > bytes.size() ? 0xFFFFFFFF : ByteReader(bytes.subspan(at)).Uint32();
}

std::uint32_t HalfWordAt(StoredBytes bytes, std::size_t at) {
  return at + 2 > bytes.size() ? 0U : bytes[at] | unsigned{bytes[at + 1]} << 8U;
}

class CompoundFile {
 public:
  explicit CompoundFile(StoredBytes file) : file_(file), left_(file.size()) {}

  bool IsOne() const {
    constexpr std::array<unsigned char, 8> kSignature = {0xD0, 0xCF, 0x11, 0xE0,
                                                         0xA1, 0xB1, 0x1A, 0xE1};
    constexpr std::uint32_t kLargestShift = 12;
    return file_.size() >= kHeaderSize &&
           std::equal(kSignature.begin(), kSignature.end(), file_.begin()) &&
           HalfWordAt(file_, kSectorShift) <= kLargestShift &&
           HalfWordAt(file_, kSectorShift) >= 7 && HalfWordAt(file_, kMiniShift) >= 4 &&
           HalfWordAt(file_, kMiniShift) <= kLargestShift;
  }

  std::vector<Bytes> Streams() {
    sectorSize_ = std::size_t{1} << HalfWordAt(file_, kSectorShift);
    miniSize_ = std::size_t{1} << HalfWordAt(file_, kMiniShift);
    ReadSectorTable();
    const Bytes directory = Chain(WordAt(file_, kDirectoryStart), file_.size());
    miniTable_ = Words(Chain(WordAt(file_, kMiniTableStart), file_.size()));
    ReadMiniSectors(directory);
    std::vector<Bytes> streams;
    for (std::size_t at = 0; at + kEntrySize <= directory.size(); at += kEntrySize) {
      AddStream(streams, StoredBytes(directory).subspan(at, kEntrySize));
    }
    return streams;
  }

 private:
  // Places in the header.
  static constexpr std::size_t kHeaderSize = 512;
  static constexpr std::size_t kSectorShift = 30;
  static constexpr std::size_t kMiniShift = 32;
  static constexpr std::size_t kDirectoryStart = 48;
  static constexpr std::size_t kMiniLimit = 56;
  static constexpr std::size_t kMiniTableStart = 60;
  static constexpr std::size_t kTableStart = 76;

  // Places in an entry of the directory, and kinds of entries.
  static constexpr std::size_t kEntrySize = 128;
  static constexpr std::size_t kEntryKind = 66;
  static constexpr std::size_t kEntryStart = 116;
  static constexpr std::size_t kEntryLength = 120;
  static constexpr unsigned kStreamEntry = 2;
  static constexpr unsigned kRootEntry = 5;

  StoredBytes Sector(std::uint32_t number) const {
    const std::size_t at = (std::size_t{number} + 1) * sectorSize_;
    return number >= kLastSector || at >= file_.size()
               ? StoredBytes{}
               : file_.subspan(at, std::min(sectorSize_, file_.size() - at));
  }

  static std::vector<std::uint32_t> Words(const Bytes& bytes) {
    std::vector<std::uint32_t> words;
    ByteReader reader(bytes);
    while (reader.Left() >= 4) {
      words.push_back(reader.Uint32());
    }
    return words;
  }

  // The sectors that the header lists; files of more than some seven megabytes go on
  // elsewhere, which drawings do not embed.
  void ReadSectorTable() {
    Bytes table;
    for (std::size_t at = kTableStart; at + 4 <= kHeaderSize; at += 4) {
      const StoredBytes sector = Sector(WordAt(file_, at));
      if (table.size() + sector.size() <= file_.size()) {
        table.insert(table.end(), sector.begin(), sector.end());
      }
    }
    table_ = Words(table);
  }

  // Every sector adds to the result, which the length ends: circles, too.
  Bytes Chain(std::uint32_t sector, std::size_t length) const {
    Bytes bytes;
    std::size_t steps = 0;
    while (bytes.size() < length && sector < table_.size() && steps++ <= table_.size()) {
      const StoredBytes part = Sector(sector);
      bytes.insert(bytes.end(), part.begin(), part.end());
      sector = table_[sector];
    }
    bytes.resize(std::min(bytes.size(), length));
    return bytes;
  }

  Bytes MiniChain(std::uint32_t sector, std::size_t length) const {
    Bytes bytes;
    std::size_t steps = 0;
    while (bytes.size() < length && sector < miniTable_.size() && steps++ <= miniTable_.size()) {
      const std::size_t at = std::size_t{sector} * miniSize_;
      if (at >= mini_.size()) {
        break;
      }
      const auto part = StoredBytes(mini_).subspan(at, std::min(miniSize_, mini_.size() - at));
      bytes.insert(bytes.end(), part.begin(), part.end());
      sector = miniTable_[sector];
    }
    bytes.resize(std::min(bytes.size(), length));
    return bytes;
  }

  // The root entry's own stream holds the small streams.
  void ReadMiniSectors(const Bytes& directory) {
    const StoredBytes root = StoredBytes(directory).first(std::min(kEntrySize, directory.size()));
    if (root.size() == kEntrySize && root[kEntryKind] == kRootEntry) {
      mini_ = Chain(WordAt(root, kEntryStart), WordAt(root, kEntryLength));
    }
  }

  void AddStream(std::vector<Bytes>& streams, StoredBytes entry) {
    if (entry[kEntryKind] != kStreamEntry) {
      return;
    }
    const std::size_t length = std::min<std::size_t>(WordAt(entry, kEntryLength), left_);
    const std::uint32_t start = WordAt(entry, kEntryStart);
    streams.push_back(length < WordAt(file_, kMiniLimit) ? MiniChain(start, length)
                                                         : Chain(start, length));
    left_ -= streams.back().size();
  }

  StoredBytes file_;
  std::size_t left_;  // how much all streams may still hold
  std::size_t sectorSize_ = 0;
  std::size_t miniSize_ = 0;
  std::vector<std::uint32_t> table_;
  std::vector<std::uint32_t> miniTable_;
  Bytes mini_;
};

}  // namespace

std::vector<std::vector<unsigned char>> StreamsOf(StoredBytes file) {
  CompoundFile compound(file);
  return compound.IsOne() ? compound.Streams() : std::vector<Bytes>{};
}
