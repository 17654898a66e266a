#include "encode/html.hpp"

void AppendHtmlEscaped(std::string& out, char byte) {
  switch (byte) {
    case '<': out += "&lt;"; break;
    case '>': out += "&gt;"; break;
    case '&': out += "&amp;"; break;
    default: out += byte; break;
  }
}

void AppendHtmlEscaped(std::string& out, std::string_view text) {
  for (const char byte : text) {
    AppendHtmlEscaped(out, byte);
  }
}
