// What the fuzz targets share: a check that stops the run with a message when a property of the
// code under test does not hold (libFuzzer then saves the input that broke it).
#pragma once

#include <cstdio>
#include <cstdlib>

#define DRAV_FUZZ_CHECK(condition)                                                          \
  do {                                                                                      \
    if (!(condition)) {                                                                     \
      std::fprintf(stderr, "%s:%d: property failed: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                                         \
    }                                                                                       \
  } while (0)
