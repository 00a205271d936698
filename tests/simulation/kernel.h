#ifndef OVXID_TESTS_SIMULATION_KERNEL_H
#define OVXID_TESTS_SIMULATION_KERNEL_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

// The test program defines some functions of the C library itself. The library under test calls
// these, because the dynamic linker prefers the definitions of the program. They do what is said
// here.
struct Kernel {
  std::string release;
  std::string machine;
  // A failing uname(2) fills the structure all the same.
  bool unameFails = false;
  // When set, socket(2) fails with this errno.
  std::optional<int> socketError;
  // When set, this request of ioctl(2) fails with EIO.
  std::optional<unsigned long> failingRequest;
  // When set, read(2) works this many more times, and then fails with EIO.
  std::optional<int> readsLeft;
  // How many more times a signal interrupts read(2) before it works.
  int interruptions = 0;
  // How many bytes read(2) gives at most.
  std::size_t mostBytes = SIZE_MAX;
  // A successful close(2) may change errno, and does when this is set.
  bool closeChangesErrno = false;
  // The argument of the last close(2).
  std::optional<int> askedClose;
  // The arguments of the last socket(2).
  std::array<int, 3> askedSocket{};
  // The interface whose address ioctl(2) was asked for last.
  std::string askedInterface;
  // The size of the buffer for the last list of addresses.
  int askedBytes = 0;
  // When set, every interface has this hardware address.
  std::optional<std::array<unsigned char, 6>> mac;
};

extern Kernel kernel;

#endif
