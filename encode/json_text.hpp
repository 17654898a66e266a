// How a number, an integer, a boolean and a string become JSON text, and the
// small vocabulary of appenders from which every record is written.
//
// The document is built as plain text: nothing here keeps a tree, and no white
// space is ever written between tokens. The appenders write to the end of `out`
// and never fail.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

#include "encode/fast/number_text.hpp"
#include "encode/json_out.hpp"

// At most ten significant digits in C's "%.10g" form; an infinity or a NaN is
// "0", so that the document always parses.
inline void AppendNumber(JsonOut& out, double value) {
  out.Commit(WriteNumber(out.Reserve(kNumberRoom), value));
}

// Plain decimal digits with a leading "-" for negative values.
inline void AppendInt(JsonOut& out, std::int64_t value) {
  out.Commit(WriteInt(out.Reserve(kNumberRoom), value));
}

// A quoted, escaped JSON string literal. `text` is UTF-8 and ends at its first
// NUL. Bytes of 0x80 and above are copied as they are, valid UTF-8 or not.
void AppendQuoted(JsonOut& out, std::string_view text);

// The same between other text inside one literal: what stands between its
// quotes. False when a NUL ended the text.
bool AppendEscaped(JsonOut& out, std::string_view text);

// Keys are given with their punctuation, as in `,"x":`.
inline void AppendNumberKey(JsonOut& out, std::string_view key, double value) {
  char* at = out.Reserve(key.size() + kNumberRoom);
  std::memcpy(at, key.data(), key.size());
  out.Commit(WriteNumber(at + key.size(), value));
}

inline void AppendIntKey(JsonOut& out, std::string_view key, std::int64_t value) {
  char* at = out.Reserve(key.size() + kNumberRoom);
  std::memcpy(at, key.data(), key.size());
  out.Commit(WriteInt(at + key.size(), value));
}

inline void AppendBoolKey(JsonOut& out, std::string_view key, bool value) {
  out += key;
  out += value ? "true" : "false";
}

inline void AppendQuotedKey(JsonOut& out, std::string_view key, std::string_view text) {
  out += key;
  AppendQuoted(out, text);
}
