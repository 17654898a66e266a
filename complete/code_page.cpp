#include "complete/code_page.hpp"

#include <dwg.h>

#include <cwchar>
extern "C" {
#include <codepages.h>
}

#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "complete/single_byte_pages.hpp"
#include "encode/ascii.hpp"

struct DoubleBytePage {
  std::string_view name;
  // LibreDWG's tables; the second for what the first lacks.
  Dwg_Codepage table;
  Dwg_Codepage fallback;
  std::uint32_t firstLead;
  std::uint32_t lastLead;
};

namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;
constexpr unsigned kByteBits = 8;
constexpr std::uint32_t kFirstTrail = 0x30;
constexpr std::uint32_t kFirstBeyondAscii = 0x80;

enum : std::uint8_t { kJapanese, kSimplified, kKorean, kTraditional, kJohab };

constexpr std::array<DoubleBytePage, 5> kDoubleBytePages = {{
    {"ANSI_932", CP_ANSI_932, CP_ANSI_932, 0x81, 0xFC},
    {"ANSI_936", CP_ANSI_936, CP_ANSI_936, 0x81, 0xFE},
    {"ANSI_949", CP_ANSI_949, CP_ANSI_949, 0x81, 0xFE},
    {"ANSI_950", CP_ANSI_950, CP_BIG5, 0x81, 0xFE},
    {"ANSI_1361", CP_JOHAB, CP_JOHAB, 0x84, 0xF9},
}};

struct Spelling {
  std::string_view key;
  std::uint8_t page;
};

constexpr std::array<Spelling, 18> kDoubleByteSpellings = {{
    {"932", kJapanese},
    {"shiftjis", kJapanese},
    {"sjis", kJapanese},
    {"31j", kJapanese},
    {"936", kSimplified},
    {"gb2312", kSimplified},
    {"gbk", kSimplified},
    {"euccn", kSimplified},
    {"949", kKorean},
    {"ksc5601", kKorean},
    {"ksc56011987", kKorean},
    {"euckr", kKorean},
    {"950", kTraditional},
    {"big5", kTraditional},
    {"1361", kJohab},
    {"johab", kJohab},
    {"ksc56011992", kJohab},
    {"kscjohab", kJohab},
}};

constexpr std::array<std::array<std::string_view, 2>, 5> kSingleByteSpellings = {{
    {"macintosh", "macroman"},
    {"mac", "macroman"},
    {"latin1", "iso88591"},
    {"ascii", "1252"},
    {"usascii", "1252"},
}};

// What LibreDWG's tables lack: the last code of each, and of Johab the letters that
// stand alone.
struct Missing {
  Dwg_Codepage table;
  std::uint16_t code;
  char16_t codePoint;
};

constexpr std::array<Missing, 24> kMissing = {{
    {CP_ANSI_932, 0xFC4B, 0x9ED1}, {CP_ANSI_936, 0xFE4F, 0xFA29}, {CP_ANSI_949, 0xFDFE, 0x8A70},
    {CP_ANSI_950, 0xF9FE, 0x2593}, {CP_JOHAB, 0x8441, 0x3000},    {CP_JOHAB, 0x8442, 0x3131},
    {CP_JOHAB, 0x8443, 0x3132},    {CP_JOHAB, 0x8445, 0x3134},    {CP_JOHAB, 0x8448, 0x3137},
    {CP_JOHAB, 0x8449, 0x3139},    {CP_JOHAB, 0x8451, 0x3141},    {CP_JOHAB, 0x8453, 0x3142},
    {CP_JOHAB, 0x8455, 0x3145},    {CP_JOHAB, 0x8456, 0x3146},    {CP_JOHAB, 0x8457, 0x3147},
    {CP_JOHAB, 0x8458, 0x3148},    {CP_JOHAB, 0x8459, 0x314A},    {CP_JOHAB, 0x845A, 0x314B},
    {CP_JOHAB, 0x845B, 0x314C},    {CP_JOHAB, 0x845C, 0x314D},    {CP_JOHAB, 0x845D, 0x314E},
    {CP_JOHAB, 0xD9E6, 0x20AC},    {CP_JOHAB, 0xD9E7, 0x00AE},    {CP_JOHAB, 0xF9FE, 0x8A70},
}};

std::uint32_t TableEntry(Dwg_Codepage table, std::uint32_t code) {
  for (const Missing& missing : kMissing) {
    if (missing.table == table && missing.code == code) {
      return missing.codePoint;
    }
  }
  constexpr wchar_t kUnit = 0xFFFF;
  const wchar_t found = dwg_codepage_uwc(table, static_cast<std::uint16_t>(code));
  const auto codePoint = static_cast<std::uint32_t>(found & kUnit);
  return codePoint == kReplacement ? 0 : codePoint;
}

// The characters that users of the Japanese page define stand for private ones.
std::uint32_t UserDefined(const DoubleBytePage& page, std::uint32_t code) {
  constexpr std::uint32_t kFirst = 0xF040;
  constexpr std::uint32_t kLast = 0xF9FC;
  constexpr std::uint32_t kTrails = 188;
  constexpr std::uint32_t kPrivate = 0xE000;
  const std::uint32_t trail = code & 0xFFU;
  if (page.table != CP_ANSI_932 || code < kFirst || code > kLast || trail < 0x40 || trail == 0x7F ||
      trail > 0xFC) {
    return 0;
  }
  const std::uint32_t lead = (code >> kByteBits) - (kFirst >> kByteBits);
  return kPrivate + lead * kTrails + trail - (trail > 0x7F ? 0x41 : 0x40);
}

std::uint32_t DoubleByteCodePoint(const DoubleBytePage& page, std::uint32_t code) {
  if (const std::uint32_t found = TableEntry(page.table, code)) {
    return found;
  }
  if (const std::uint32_t found = TableEntry(page.fallback, code)) {
    return found;
  }
  return UserDefined(page, code);
}

// Without what spellings differ in: case, punctuation, and the words before a number.
std::string KeyOf(std::string_view name) {
  std::string key;
  for (const char c : LowerAscii(name)) {
    if (IsDigit(c) || (c >= 'a' && c <= 'z')) {
      key += c;
    }
  }
  for (const std::string_view prefix : {"ansi", "windows", "dos", "ibm", "oem", "cp", "ms"}) {
    if (key.starts_with(prefix) && key.size() > prefix.size() && IsDigit(key[prefix.size()])) {
      return key.substr(prefix.size());
    }
  }
  return key;
}

const DoubleBytePage* FindDouble(std::string_view key) {
  const auto* const found = std::ranges::find(kDoubleByteSpellings, key, &Spelling::key);
  return found == kDoubleByteSpellings.end() ? nullptr : &kDoubleBytePages[found->page];
}

const SingleBytePage* FindSingle(std::string_view key) {
  for (const auto& [spelling, meant] : kSingleByteSpellings) {
    if (key == spelling) {
      key = meant;
    }
  }
  const auto pages = SingleBytePages();
  const auto found = std::ranges::find(pages, key, &SingleBytePage::key);
  return found == pages.end() ? nullptr : &*found;
}

}  // namespace

CodePage::CodePage(std::string_view name) {
  const std::string key = KeyOf(name);
  double_ = FindDouble(key);
  single_ = FindSingle(key);
  if (double_ == nullptr && single_ == nullptr) {
    single_ = FindSingle("1252");
  }
}

bool CodePage::IsKnown(std::string_view name) {
  const std::string key = KeyOf(name);
  return FindDouble(key) != nullptr || FindSingle(key) != nullptr;
}

std::string_view CodePage::name() const {
  return double_ != nullptr ? double_->name : single_->name;
}

bool CodePage::IsLead(unsigned char byte) const {
  if (double_ == nullptr || byte < double_->firstLead || byte > double_->lastLead) {
    return false;
  }
  return CodePointOf(byte) == 0;
}

std::uint32_t CodePage::CodePointOf(std::uint32_t code) const {
  if (code < kFirstBeyondAscii) {
    return code;
  }
  if (double_ != nullptr) {
    return DoubleByteCodePoint(*double_, code);
  }
  const std::size_t place = code - kFirstBeyondAscii;
  const std::uint32_t found = place < single_->high.size() ? single_->high[place] : 0;
  return found == kReplacement ? 0 : found;
}

CodePage::Character CodePage::First(std::string_view text) const {
  const auto first = static_cast<unsigned char>(text[0]);
  const std::uint32_t alone = CodePointOf(first);
  if (alone != 0 || !IsLead(first) || text.size() == 1) {
    return {alone == 0 ? kReplacement : alone, 1};
  }
  const auto second = static_cast<unsigned char>(text[1]);
  if (second < kFirstTrail) {
    return {kReplacement, 1};
  }
  const std::uint32_t both = CodePointOf(static_cast<std::uint32_t>(first) << kByteBits | second);
  if (both != 0) {
    return {both, 2};
  }
  // An ASCII character behind half a one is itself.
  return {kReplacement, second < kFirstBeyondAscii ? 1U : 2U};
}

const CodePage* PageOfMultibyteCode(char digit) {
  static const std::array<CodePage, 5> pages = {CodePage("932"), CodePage("950"), CodePage("949"),
                                                CodePage("1361"), CodePage("936")};
  return digit < '1' || digit > '5' ? nullptr : &pages[static_cast<std::size_t>(digit - '1')];
}
