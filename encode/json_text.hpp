// How a number, an integer, a boolean and a string become JSON text, and the
// small vocabulary of appenders from which every record is written.
//
// The document is built as plain text: nothing here keeps a tree, and no white
// space is ever written between tokens. The appenders write to the end of
// `out`; the functions that return text never fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "encode/json_out.hpp"
#include "encode/number_text.hpp"

// At most ten significant digits in C's "%.10g" form; an infinity or a NaN is
// "0", so that the document always parses.
std::string JsonNumber(double value);
inline void AppendNumber(JsonOut& out, double value) {
  out.Commit(WriteNumber(out.Reserve(kNumberRoom), value));
}

// Plain decimal digits with a leading "-" for negative values.
std::string JsonInt(std::int32_t value);
inline void AppendInt(JsonOut& out, std::int64_t value) {
  out.Commit(WriteInt(out.Reserve(kNumberRoom), value));
}

// A quoted, escaped JSON string literal. `text` is UTF-8 and ends at its first
// NUL; null gives an empty literal. Bytes of 0x80 and above are copied as they
// are, valid UTF-8 or not.
std::string JsonQuote(const char* text);
void AppendQuoted(JsonOut& out, std::string_view text);

// The same between other text inside one literal: what stands between its
// quotes. False when a NUL ended the text.
bool AppendEscaped(JsonOut& out, std::string_view text);

// `true` or `false`.
constexpr std::string_view JsonBool(bool value) {
  return value ? "true" : "false";
}

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
  out += JsonBool(value);
}

inline void AppendQuotedKey(JsonOut& out, std::string_view key, std::string_view text) {
  out += key;
  AppendQuoted(out, text);
}

// Where a flat sequence of coordinates goes: x0,y0,x1,y1 and so on. The caller
// writes the brackets around it.
struct CoordinateCursor {
  JsonOut& out;
  bool first = true;
};
void AppendCoordinatePair(CoordinateCursor& cursor, double x, double y);

// Where point arrays are collected, each in brackets. Its coordinates are
// written between the two calls.
struct BracketCursor {
  JsonOut& out;
  std::size_t count = 0;
};
CoordinateCursor BeginBracketedItem(BracketCursor& cursor);
void EndBracketedItem(BracketCursor& cursor);

// A list of `[x,y]` or `[x,y,z]` points, or of plain numbers, joined by commas.
struct ListCursor {
  JsonOut& out;
  bool first = true;
};
void AppendPoint(ListCursor& cursor, double x, double y);
void AppendPoint(ListCursor& cursor, double x, double y, double z);
void AppendListNumber(ListCursor& cursor, double value);
void AppendListQuoted(ListCursor& cursor, std::string_view text);
