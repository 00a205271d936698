#ifndef OVXID_TESTS_SIMULATION_DESCRIPTORS_H
#define OVXID_TESTS_SIMULATION_DESCRIPTORS_H

#include <cstddef>
#include <filesystem>
#include <iterator>

// How many descriptors this process has open, the one that counts them included.
inline std::ptrdiff_t openDescriptors() {
  const std::filesystem::directory_iterator descriptors("/proc/self/fd");
  return std::distance(begin(descriptors), end(descriptors));
}

#endif
