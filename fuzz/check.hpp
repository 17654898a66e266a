// What a fuzz target demands; a broken demand ends the process with a trap, so
// that fuzzer and replay program both see it.
#pragma once

#include <cstddef>
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

// Demands that what happens between construction and Check takes processor time
// in proportion to the input: a second to start with, which sanitizers and
// instrumentation stay far below, and 20 microseconds a byte.
class TimeBudget {
 public:
  explicit TimeBudget(std::size_t inputSize)
      : seconds_(1.0 + 20e-6 * static_cast<double>(inputSize)) {}

  void Check() const {
    const double spent =
        static_cast<double>(std::clock() - start_) / static_cast<double>(CLOCKS_PER_SEC);
    FUZZ_CHECK(spent <= seconds_);
  }

 private:
  double seconds_;
  std::clock_t start_ = std::clock();
};
