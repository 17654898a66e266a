#include "worker/read_result.hpp"

#include <array>
#include <cstddef>

namespace {

constexpr int kFatalBits =
    DWG_ERR_PAGENOTFOUND | DWG_ERR_INVALIDDWG | DWG_ERR_IOERROR | DWG_ERR_OUTOFMEM;
static_assert(kFatalBits == 0x3A00);

constexpr std::array<std::string_view, 14> kErrorNames = {
    "WRONGCRC",      "NOTYETSUPPORTED",  "UNHANDLEDCLASS",  "INVALIDTYPE",     "INVALIDHANDLE",
    "INVALIDEED",    "VALUEOUTOFBOUNDS", "CLASSESNOTFOUND", "SECTIONNOTFOUND", "PAGENOTFOUND",
    "INTERNALERROR", "INVALIDDWG",       "IOERROR",         "OUTOFMEM"};
static_assert(1 << (kErrorNames.size() - 1) == DWG_ERR_OUTOFMEM);

struct VersionWord {
  Dwg_Version_Type version;
  std::string_view word;
};

constexpr std::array<VersionWord, 7> kVersionWords = {{{R_14, "R14"},
                                                       {R_2000, "2000"},
                                                       {R_2004, "2004"},
                                                       {R_2007, "2007"},
                                                       {R_2010, "2010"},
                                                       {R_2013, "2013"},
                                                       {R_2018, "2018"}}};

}  // namespace

bool IsFatalResult(int result) {
  return (result & kFatalBits) != 0;
}

std::string ErrorNames(int result) {
  std::string names;
  for (std::size_t bit = 0; bit < kErrorNames.size(); ++bit) {
    if ((static_cast<unsigned>(result) >> bit & 1U) == 0) {
      continue;
    }
    if (!names.empty()) {
      names += ", ";
    }
    names += kErrorNames[bit];
  }
  return names;
}

std::string_view ReleaseWord(Dwg_Version_Type version) {
  for (const VersionWord& entry : kVersionWords) {
    if (entry.version == version) {
      return entry.word;
    }
  }
  return "Unknown";
}
