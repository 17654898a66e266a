// How a number, an integer, a boolean and a string become JSON text, and the
// small vocabulary of appenders from which every record is written.
//
// The document is built as plain text: nothing here keeps a tree, and no white
// space is ever written between tokens. The appenders write to the end of
// `out`; the functions that return text never fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// At most ten significant digits in C's "%.10g" form; an infinity or a NaN is
// "0", so that the document always parses.
std::string JsonNumber(double value);
void AppendNumber(std::string& out, double value);

// Plain decimal digits with a leading "-" for negative values.
std::string JsonInt(std::int32_t value);
void AppendInt(std::string& out, std::int64_t value);

// A quoted, escaped JSON string literal. `text` is UTF-8 and ends at its first
// NUL; null gives an empty literal. Bytes of 0x80 and above are copied as they
// are, valid UTF-8 or not.
std::string JsonQuote(const char* text);
void AppendQuoted(std::string& out, std::string_view text);

// `true` or `false`.
std::string_view JsonBool(bool value);

// Keys are given with their punctuation, as in `,"x":`.
void AppendNumberKey(std::string& out, std::string_view key, double value);
void AppendIntKey(std::string& out, std::string_view key, std::int64_t value);
void AppendBoolKey(std::string& out, std::string_view key, bool value);
void AppendQuotedKey(std::string& out, std::string_view key, std::string_view text);

// Where a flat sequence of coordinates goes: x0,y0,x1,y1 and so on. The caller
// writes the brackets around it.
struct CoordinateCursor {
  std::string& out;
  bool first = true;
};
void AppendCoordinatePair(CoordinateCursor& cursor, double x, double y);

// Where finished point arrays are collected, each in brackets.
struct BracketCursor {
  std::string& out;
  std::size_t count = 0;
};
void AppendBracketedItem(BracketCursor& cursor, std::string_view text);

// A list of `[x,y]` or `[x,y,z]` points, or of plain numbers, joined by commas.
struct ListCursor {
  std::string& out;
  bool first = true;
};
void AppendPoint(ListCursor& cursor, double x, double y);
void AppendPoint(ListCursor& cursor, double x, double y, double z);
void AppendListNumber(ListCursor& cursor, double value);
void AppendListQuoted(ListCursor& cursor, std::string_view text);
