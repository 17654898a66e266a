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
  const auto page = static_cast<Dwg_Codepage>(dwg.header.codepage);
  const char* name = page == CP_UTF8 || page == CP_UNDEFINED ? nullptr : dwg_codepage_dxfstr(page);
  StoredText stored;
  stored.codePage = name == nullptr ? "" : name;
  return stored;
}
