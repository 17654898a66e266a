#include "reading/read_result.hpp"

#include <dwg.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace {

constexpr int kFatalBits =
    DWG_ERR_PAGENOTFOUND | DWG_ERR_INVALIDDWG | DWG_ERR_IOERROR | DWG_ERR_OUTOFMEM;
static_assert(kFatalBits == 0x3A00);

constexpr std::array<std::string_view, 14> kErrorNames = {
    "WRONGCRC",      "NOTYETSUPPORTED",  "UNHANDLEDCLASS",  "INVALIDTYPE",     "INVALIDHANDLE",
    "INVALIDEED",    "VALUEOUTOFBOUNDS", "CLASSESNOTFOUND", "SECTIONNOTFOUND", "PAGENOTFOUND",
    "INTERNALERROR", "INVALIDDWG",       "IOERROR",         "OUTOFMEM"};
static_assert(1 << (kErrorNames.size() - 1) == DWG_ERR_OUTOFMEM);

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
