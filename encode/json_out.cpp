#include "encode/json_out.hpp"

#include <algorithm>
#include <utility>

#include "encode/page_memory.hpp"

namespace {

// Small enough to fit into the holes that reading a drawing leaves in the heap.
constexpr std::size_t kPieceSize = 0x1F000;
static_assert(kPieceSize >= JsonOut::kMaxReserve);

// From this size on a text grows by large pages.
constexpr std::size_t kLargeText = 2 * kLargePage;

}  // namespace

void JsonOut::Free::operator()(char* bytes) const {
  if (capacity == kLargePage) {
    FreeLargePage(bytes);
  } else {
    delete[] bytes;
  }
}

JsonOut::Bytes JsonOut::Allocate(std::size_t sizeBefore) {
  return sizeBefore < kLargeText ? Bytes(new char[kPieceSize], Free{kPieceSize})
                                 : Bytes(AllocateLargePage(), Free{kLargePage});
}

void JsonOut::SetLast(Bytes bytes) {
  last_ = std::move(bytes);
  begin_ = last_.get();
  limit_ = begin_ + last_.get_deleter().capacity;
}

// The analyzer loses sight of the piece when it is moved.
// NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
void JsonOut::AddPiece() {
  if (last_ != nullptr) {
    const auto used = static_cast<std::size_t>(end_ - begin_);
    full_.push_back({std::move(last_), used});
    sizeBefore_ += used;
  }
  SetLast(Allocate(sizeBefore_));
  end_ = begin_;
}
// NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)

void JsonOut::AppendInPieces(std::string_view text) {
  while (!text.empty()) {
    if (Room() == 0) {
      AddPiece();
    }
    const std::size_t count = std::min(Room(), text.size());
    end_ = std::copy_n(text.data(), count, end_);
    text.remove_prefix(count);
  }
}

char JsonOut::back() const {
  return end_ != begin_ ? end_[-1] : full_.back().bytes[full_.back().size - 1];
}

void JsonOut::Truncate(std::size_t size) {
  while (size < sizeBefore_) {
    SetLast(std::move(full_.back().bytes));
    sizeBefore_ -= full_.back().size;
    full_.pop_back();
  }
  end_ = begin_ + (size - sizeBefore_);
}

std::string JsonOut::Text() const {
  std::string text;
  text.reserve(size());
  ForEachPiece([&text](std::string_view piece) { text += piece; });
  return text;
}

bool operator==(const JsonOut& out, std::string_view text) {
  return out.Text() == text;
}

std::ostream& operator<<(std::ostream& stream, const JsonOut& out) {
  return stream << out.Text();
}
