#include "encode/html.hpp"

void HtmlLiteral::Text(char byte) {
  switch (byte) {
    case '<': Markup("&lt;"); break;
    case '>': Markup("&gt;"); break;
    case '&': Markup("&amp;"); break;
    case '\0': end_ = end_.value_or(out_.size()); break;
    default: AppendEscaped(out_, {&byte, 1}); break;
  }
}

void HtmlLiteral::Text(std::string_view text) {
  while (!text.empty()) {
    text.remove_prefix(Plain(text, [](ByteWord) { return ByteWord{0}; }).size);
    if (!text.empty()) {
      Text(text.front());
      text.remove_prefix(1);
    }
  }
}

bool HtmlLiteral::Finish() {
  if (!end_) {
    return true;
  }
  out_.Truncate(*end_);
  return false;
}
