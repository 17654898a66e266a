#include "tests/support/json_grammar.hpp"

#include <cstddef>
#include <string>
#include <unordered_set>
#include <vector>

namespace {

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

constexpr bool IsHexDigit(char c) {
  return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

class Checker {
 public:
  explicit Checker(std::string_view text) : text_(text) {}

  bool Run() {
    if (!Value()) {
      return false;
    }
    while (!open_.empty()) {
      if (!(open_.back().isObject ? NextMember() : NextElement())) {
        return false;
      }
    }
    return position_ == text_.size();
  }

 private:
  struct Open {
    bool isObject;
    bool isEmpty = true;
    std::unordered_set<std::string> keys = {};
  };

  bool At(char c) const { return position_ < text_.size() && text_[position_] == c; }

  bool Take(char c) {
    if (!At(c)) {
      return false;
    }
    ++position_;
    return true;
  }

  bool Take(std::string_view word) {
    if (text_.substr(position_, word.size()) != word) {
      return false;
    }
    position_ += word.size();
    return true;
  }

  // A scalar, or the opening bracket of an array or object.
  bool Value() {
    if (Take('{')) {
      open_.push_back({.isObject = true});
      return true;
    }
    if (Take('[')) {
      open_.push_back({.isObject = false});
      return true;
    }
    if (At('"')) {
      return String();
    }
    return Take("true") || Take("false") || Take("null") || Number();
  }

  bool NextElement() {
    if (Take(']')) {
      open_.pop_back();
      return true;
    }
    const bool isFirst = open_.back().isEmpty;
    open_.back().isEmpty = false;
    return (isFirst || Take(',')) && !At(']') && Value();
  }

  bool NextMember() {
    if (Take('}')) {
      open_.pop_back();
      return true;
    }
    if (!open_.back().isEmpty && !Take(',')) {
      return false;
    }
    open_.back().isEmpty = false;
    const std::size_t start = position_;
    if (!String()) {
      return false;
    }
    const std::string key(text_.substr(start, position_ - start));
    return open_.back().keys.insert(key).second && Take(':') && Value();
  }

  bool String() {
    if (!Take('"')) {
      return false;
    }
    while (position_ < text_.size()) {
      const char c = text_[position_++];
      if (c == '"') {
        return true;
      }
      if (static_cast<unsigned char>(c) < 0x20 || (c == '\\' && !Escape())) {
        return false;
      }
    }
    return false;
  }

  bool Escape() {
    if (position_ >= text_.size()) {
      return false;
    }
    const char c = text_[position_++];
    if (c != 'u') {
      return std::string_view("\"\\/bfnrt").find(c) != std::string_view::npos;
    }
    for (int i = 0; i < 4; ++i, ++position_) {
      if (position_ >= text_.size() || !IsHexDigit(text_[position_])) {
        return false;
      }
    }
    return true;
  }

  bool Digits() {
    const std::size_t start = position_;
    while (position_ < text_.size() && IsDigit(text_[position_])) {
      ++position_;
    }
    return position_ > start;
  }

  bool Number() {
    Take('-');
    if (!Take('0') && !Digits()) {
      return false;
    }
    if (Take('.') && !Digits()) {
      return false;
    }
    if (Take('e') || Take('E')) {
      if (!Take('+')) {
        Take('-');
      }
      return Digits();
    }
    return true;
  }

  std::string_view text_;
  std::size_t position_ = 0;
  std::vector<Open> open_;
};

}  // namespace

bool IsGrammaticalJson(std::string_view text) {
  return Checker(text).Run();
}
