// The HTML of the text converters, read back from the literal that they append.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "encode/json_out.hpp"
#include "text/mtext_to_html.hpp"
#include "text/text_codes.hpp"

// What stands inside a JSON literal that the program wrote. Bytes that it would
// have escaped become "?".
inline std::string Unescaped(std::string_view literal) {
  std::string text;
  for (std::size_t i = 0; i < literal.size(); ++i) {
    const auto byte = static_cast<unsigned char>(literal[i]);
    if (byte != '\\') {
      text += byte < 0x20 || byte == '"' ? '?' : literal[i];
      continue;
    }
    const char escape = literal.substr(++i, 1).empty() ? '?' : literal[i];
    switch (escape) {
      case '"':
      case '\\': text += escape; break;
      case 't': text += '\t'; break;
      case 'n': text += '\n'; break;
      case 'r': text += '\r'; break;
      case 'u':
        text += static_cast<char>(std::stoi(std::string(literal.substr(i + 1, 4)), nullptr, 16));
        i += 4;
        break;
      default: text += '?'; break;
    }
  }
  return text;
}

inline std::string MtextToHtml(std::string_view text, double baseHeight, MtextLayout& layout) {
  JsonOut out;
  AppendMtextHtml(out, text, baseHeight, layout);
  return Unescaped(out.Text());
}

inline std::string TextCodesToHtml(std::string_view text) {
  JsonOut out;
  AppendTextCodes(out, text);
  return Unescaped(out.Text());
}
