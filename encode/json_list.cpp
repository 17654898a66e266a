#include "encode/json_list.hpp"

#include "encode/fast/number_text.hpp"
#include "encode/json_text.hpp"

namespace {

// Writes a comma unless the item is the first; the caller has room for it.
char* WriteSeparator(char* at, bool& isEmpty) {
  *at = ',';
  at += isEmpty ? 0 : 1;
  isEmpty = false;
  return at;
}

}  // namespace

void JsonList::Number(double value) {
  char* at = out_.Reserve(kNumberRoom + 1);
  out_.Commit(WriteNumber(WriteSeparator(at, isEmpty_), value));
}

void JsonList::Pair(double x, double y) {
  char* at = out_.Reserve(2 * kNumberRoom + 2);
  at = WriteNumber(WriteSeparator(at, isEmpty_), x);
  *at++ = ',';
  out_.Commit(WriteNumber(at, y));
}

void JsonList::Point(double x, double y) {
  char* at = out_.Reserve(2 * kNumberRoom + 4);
  at = WriteSeparator(at, isEmpty_);
  *at++ = '[';
  at = WriteNumber(at, x);
  *at++ = ',';
  at = WriteNumber(at, y);
  *at++ = ']';
  out_.Commit(at);
}

void JsonList::Point(double x, double y, double z) {
  char* at = out_.Reserve(3 * kNumberRoom + 5);
  at = WriteSeparator(at, isEmpty_);
  *at++ = '[';
  at = WriteNumber(at, x);
  *at++ = ',';
  at = WriteNumber(at, y);
  *at++ = ',';
  at = WriteNumber(at, z);
  *at++ = ']';
  out_.Commit(at);
}

void JsonList::Quoted(std::string_view text) {
  char* at = out_.Reserve(1);
  out_.Commit(WriteSeparator(at, isEmpty_));
  AppendQuoted(out_, text);
}
