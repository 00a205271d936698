#ifndef OVXID_TESTS_EXHAUSTION_REQUIRE_H
#define OVXID_TESTS_EXHAUSTION_REQUIRE_H

#include <stdexcept>

inline void require(bool truth, const char* otherwise) {
  if (!truth) {
    throw std::runtime_error(otherwise);
  }
}

#endif
