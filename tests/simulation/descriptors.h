#ifndef OVXID_TESTS_SIMULATION_DESCRIPTORS_H
#define OVXID_TESTS_SIMULATION_DESCRIPTORS_H

#include <fcntl.h>
#include <sys/resource.h>

#include <cstddef>
#include <filesystem>
#include <iterator>

// How many descriptors this process has open, the one that counts them included.
inline std::ptrdiff_t openDescriptors() {
  const std::filesystem::directory_iterator descriptors("/proc/self/fd");
  return std::distance(begin(descriptors), end(descriptors));
}

// Lets this process open only so many more descriptors at a time, for as long as this lives.
class FreeDescriptors {
 public:
  explicit FreeDescriptors(int count) {
    getrlimit(RLIMIT_NOFILE, &mBefore);
    // A new descriptor must lie below the limit, and those that are open may lie anywhere.
    int limit = 0;
    for (int free = 0; free < count; ++limit) {
      free += fcntl(limit, F_GETFD) < 0 ? 1 : 0;
    }
    const rlimit limits{static_cast<rlim_t>(limit), mBefore.rlim_max};
    setrlimit(RLIMIT_NOFILE, &limits);
  }
  ~FreeDescriptors() { setrlimit(RLIMIT_NOFILE, &mBefore); }
  FreeDescriptors(const FreeDescriptors&) = delete;
  FreeDescriptors& operator=(const FreeDescriptors&) = delete;

 private:
  rlimit mBefore{};
};

#endif
