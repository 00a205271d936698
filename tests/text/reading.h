#ifndef OVXID_TESTS_TEXT_READING_H
#define OVXID_TESTS_TEXT_READING_H

#include <cstddef>
#include <cstdint>
#include <optional>

#include "simulation/kernel.h"

// How the kernel gives a file: how often it can be read before that fails, and how many bytes at
// most each time.
struct Reading {
  std::optional<int> reads;
  std::size_t bytes = SIZE_MAX;
};

// Has every file read in this way for as long as this lives.
class LimitedReading {
 public:
  explicit LimitedReading(const Reading& reading) {
    kernel.readsLeft = reading.reads;
    kernel.mostBytes = reading.bytes;
  }
  ~LimitedReading() { kernel = {}; }
  LimitedReading(const LimitedReading&) = delete;
  LimitedReading& operator=(const LimitedReading&) = delete;
};

#endif
