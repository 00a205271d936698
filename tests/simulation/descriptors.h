#ifndef OVXID_TESTS_SIMULATION_DESCRIPTORS_H
#define OVXID_TESTS_SIMULATION_DESCRIPTORS_H

#include <fcntl.h>
#include <sys/resource.h>

#include <cstddef>
#include <filesystem>
#include <iterator>

// The number of open descriptors. It includes the one that this function opens.
inline std::ptrdiff_t openDescriptors() {
  const std::filesystem::directory_iterator descriptors("/proc/self/fd");
  return std::distance(begin(descriptors), end(descriptors));
}

// While this object lives, the process can have only `count` more descriptors open.
// UndefinedBehaviorSanitizer opens descriptors when it first meets a type of objects. So a test
// does the same without the limit first.
class FreeDescriptors {
 public:
  explicit FreeDescriptors(int count) {
    getrlimit(RLIMIT_NOFILE, &mBefore);
    // The limit is for the numbers of new descriptors, not for how many are open.
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
