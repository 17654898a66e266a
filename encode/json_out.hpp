// The growing output text. Text is only ever appended, except that what a writer
// has begun can be taken back.
//
// It is kept in pieces, so that growing never copies what is there and the
// memory in use exceeds the text by less than half of it.
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class JsonOut {
 public:
  // The most that one call of Reserve may ask for.
  static constexpr std::size_t kMaxReserve = 0x10000;

  JsonOut() = default;
  explicit JsonOut(std::string_view text) { Append(text); }
  JsonOut(const JsonOut&) = delete;
  JsonOut& operator=(const JsonOut&) = delete;

  void Append(std::string_view text) {
    if (text.size() > Room()) {
      AppendInPieces(text);
    } else if (!text.empty()) {
      // There is room, hence a piece.
      // NOLINTNEXTLINE(clang-analyzer-core.NonNullParamChecker)
      std::memcpy(end_, text.data(), text.size());
      end_ += text.size();
    }
  }

  void Append(char byte) {
    *Reserve(1) = byte;
    ++end_;
  }

  JsonOut& operator+=(std::string_view text) {
    Append(text);
    return *this;
  }

  JsonOut& operator+=(char byte) {
    Append(byte);
    return *this;
  }

  // Where the next `count` bytes may be written. Commit tells how many were: it
  // takes the end of what was written.
  char* Reserve(std::size_t count) {
    if (count > Room()) {
      AddPiece(count);
    }
    return end_;
  }
  void Commit(char* end) { end_ = end; }

  std::size_t size() const { return sizeBefore_ + static_cast<std::size_t>(end_ - begin_); }
  bool empty() const { return size() == 0; }

  // Takes back what was appended since the text had this size.
  void Truncate(std::size_t size) {
    if (size < sizeBefore_) {
      DropPieces(size);
    }
    end_ = begin_ + (size - sizeBefore_);
  }

  // Calls `write` with every stretch of the text in turn.
  template <typename Write>
  void ForEachPiece(Write write) const {
    for (const Piece& piece : full_) {
      write(std::string_view(piece.bytes.get(), piece.size));
    }
    write(std::string_view(begin_, static_cast<std::size_t>(end_ - begin_)));
  }

  // A copy of the whole text.
  std::string Text() const;

 private:
  struct Free {
    std::size_t capacity;
    void operator()(char* bytes) const;
  };
  using Bytes = std::unique_ptr<char[], Free>;

  struct Piece {
    Bytes bytes;
    std::size_t size = 0;
  };

  static Bytes Allocate(std::size_t capacity);

  std::size_t Room() const { return static_cast<std::size_t>(limit_ - end_); }
  void AddPiece(std::size_t room);
  // Those behind the one that holds the end of a text of this size.
  void DropPieces(std::size_t size);
  void SetLast(Bytes bytes);
  void AppendInPieces(std::string_view text);

  std::vector<Piece> full_;
  Bytes last_;
  char* begin_ = nullptr;
  char* end_ = nullptr;
  char* limit_ = nullptr;
  std::size_t sizeBefore_ = 0;
};
