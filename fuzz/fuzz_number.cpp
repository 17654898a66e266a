// Numbers against the C library's "%.10g".

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "encode/json_text.hpp"
#include "fuzz/check.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (std::size_t i = 0; i + sizeof(double) <= size; i += sizeof(double)) {
    double value = 0;
    std::memcpy(&value, data + i, sizeof value);
    char expected[64] = "0";
    if (std::isfinite(value)) {
      std::snprintf(expected, sizeof expected, "%.10g", value);
    }
    FUZZ_CHECK(JsonNumber(value) == expected);
  }
  return 0;
}
