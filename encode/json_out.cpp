#include "encode/json_out.hpp"

#include <algorithm>
#include <new>
#include <utility>

#include "encode/library_memory.hpp"

namespace {

// They fill whole pages of the allocator, less what it needs for itself.
constexpr std::size_t kPieceSize = 0x3F000;
constexpr std::size_t kLargePieceSize = 0x1F0000;
static_assert(kPieceSize >= JsonOut::kMaxReserve);

// Many texts are only a name or a number.
constexpr std::size_t kFirstPieceSize = 0x400;

// From this size on a text grows by large pieces.
constexpr std::size_t kLargeText = 2 * kLargePieceSize;

std::size_t PieceSizeBehind(std::size_t text) {
  if (text == 0) {
    return kFirstPieceSize;
  }
  return text < kLargeText ? kPieceSize : kLargePieceSize;
}

}  // namespace

void JsonOut::Free::operator()(char* bytes) const {
  LibraryFree(bytes);
}

// From the library's allocator, which holds what reading the drawing has left
// free: memory that comes fresh from the system takes longer to get than to write.
JsonOut::Bytes JsonOut::Allocate(std::size_t capacity) {
  void* bytes = LibraryAllocateUnfilled(capacity);
  if (bytes == nullptr) {
    throw std::bad_alloc();
  }
  return Bytes(static_cast<char*>(bytes), Free{capacity});
}

void JsonOut::SetLast(Bytes bytes) {
  last_ = std::move(bytes);
  begin_ = last_.get();
  limit_ = begin_ + last_.get_deleter().capacity;
}

// The analyzer loses sight of the piece when it is moved.
// NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
void JsonOut::AddPiece(std::size_t room) {
  const auto used = static_cast<std::size_t>(end_ - begin_);
  if (used != 0) {
    full_.push_back({std::move(last_), used});
    sizeBefore_ += used;
  }
  SetLast(Allocate(std::max(room, PieceSizeBehind(sizeBefore_))));
  end_ = begin_;
}
// NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)

void JsonOut::AppendInPieces(std::string_view text) {
  while (!text.empty()) {
    if (Room() == 0) {
      AddPiece(1);
    }
    const std::size_t count = std::min(Room(), text.size());
    end_ = std::copy_n(text.data(), count, end_);
    text.remove_prefix(count);
  }
}

void JsonOut::DropPieces(std::size_t size) {
  while (size < sizeBefore_) {
    SetLast(std::move(full_.back().bytes));
    sizeBefore_ -= full_.back().size;
    full_.pop_back();
  }
}

std::string JsonOut::Text() const {
  std::string text;
  text.reserve(size());
  ForEachPiece([&text](std::string_view piece) { text += piece; });
  return text;
}
