// What a fuzz target demands; a broken demand ends the process with a trap, so
// that fuzzer and replay program both see it.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <ctime>

#define FUZZ_CHECK(condition)                                                      \
  do {                                                                             \
    if (!(condition)) {                                                            \
      std::fprintf(stderr, "%s:%d: not so: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                                \
    }                                                                              \
  } while (false)

// Demands that what happens between construction and Check ends. Inputs are
// short: only what grows without bound takes a minute of processor time, on any
// machine and with any instrumentation.
class TimeBudget {
 public:
  void Check() const {
    const double spent =
        static_cast<double>(std::clock() - start_) / static_cast<double>(CLOCKS_PER_SEC);
    FUZZ_CHECK(spent <= kMostSeconds);
  }

 private:
  static constexpr double kMostSeconds = 60;

  std::clock_t start_ = std::clock();
};
