#include "reading/stored_text.hpp"

#include <dwg.h>

#include <cwchar>
extern "C" {
#include <codepages.h>
}

#include "encode/utf8_check.hpp"

StoredText StoredTextOfDxf(const Dwg_Data& dwg, std::string_view text) {
  const Utf8Findings findings = CheckUtf8(text);
  StoredText stored{.codePage = {},
                    .isUtf8 = findings.isUtf8 && !findings.isAscii,
                    .hasLongUtf8 = findings.hasLong,
                    .hasCaretCodes = true};
  // LibreDWG makes up a name where there is none.
  const char* name = dwg.header_vars.DWGCODEPAGE;
  if (name != nullptr && text.find("$DWGCODEPAGE") != std::string_view::npos) {
    stored.codePage = name;
  }
  return stored;
}

StoredText StoredTextOfDwg(const Dwg_Data& dwg) {
  // Any number may stand there.
  const int page = dwg.header.codepage;
  StoredText stored;
  if (page > CP_UTF8 && page <= CP_ANSI_1258) {
    stored.codePage = dwg_codepage_dxfstr(static_cast<Dwg_Codepage>(page));
  }
  return stored;
}
