// HTML as the inside of a JSON string literal, escaped for both while it is
// written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "encode/fast/byte_search.hpp"
#include "encode/json_text.hpp"

class HtmlLiteral {
 public:
  struct PlainRun {
    std::size_t size;
    bool isAscii;  // false when in doubt
  };

  explicit HtmlLiteral(JsonOut& out) : out_(out) {}

  // HTML that stands in the program, given as a JSON literal has it: with its
  // quotes and backslashes escaped.
  void Markup(std::string_view escaped) { out_ += escaped; }
  void Number(std::int32_t value) { AppendInt(out_, value); }

  // Text that is no HTML: `<`, `>` and `&` become entities; quotes do not.
  void Text(char byte);
  void Text(std::string_view text);

  // Text that is taken as HTML; it holds no NUL.
  void Verbatim(std::string_view html) { AppendEscaped(out_, html); }

  // Writes the start of a text up to the first byte that does not stand for
  // itself, or that `find` finds in a word. A long run may end early.
  template <typename Find>
  PlainRun Plain(std::string_view text, Find find);

  // A NUL among the text ends the literal: what was written behind it is taken
  // back. Whether there was none.
  bool Finish();

 private:
  // More than that is not reserved at once, as it is left free behind a run.
  static constexpr std::size_t kLongestRun = 1024;

  JsonOut& out_;
  std::optional<std::size_t> end_;  // where the first NUL was
};

template <typename Find>
HtmlLiteral::PlainRun HtmlLiteral::Plain(std::string_view text, Find find) {
  text = text.substr(0, kLongestRun);
  char* at = out_.Reserve(text.size() + sizeof(ByteWord));
  ByteWord seen = 0;
  const std::size_t size = CopyWithout(at, text, [find, &seen](ByteWord word) {
    seen |= word;
    // Of `<` and `>` one bit differs, and so it does of `"` and `&`.
    return Found(word, BytesBelow(word, 0x20) | BytesEqual(word, '\\') |
                           BytesEqual(word | AllBytes('"' ^ '&'), '&') |
                           BytesEqual(word | AllBytes('<' ^ '>'), '>') | find(word));
  });
  out_.Commit(at + size);
  return {size, (seen & AllBytes(0x80)) == 0};
}
