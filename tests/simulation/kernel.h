#ifndef OVXID_TESTS_SIMULATION_KERNEL_H
#define OVXID_TESTS_SIMULATION_KERNEL_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

// What the test program answers in the C library's place. Definitions of a program come before
// those of its libraries, so the library under test calls these.
struct Kernel {
  std::string release;
  std::string machine;
  // Whether uname(2) fails, though it fills the structure.
  bool unameFails = false;
  // The errno with which socket(2) fails.
  std::optional<int> socketError;
  // The ioctl(2) request that fails, with EIO.
  std::optional<unsigned long> failingRequest;
  // How many more times read(2) works before it fails, with EIO.
  std::optional<int> readsLeft;
  // How many more times a signal interrupts read(2) before it works.
  int interruptions = 0;
  // How many bytes read(2) gives at most.
  std::size_t mostBytes = SIZE_MAX;
  // Whether close(2), while it works, changes errno, as it may.
  bool closeChangesErrno = false;
  // The domain, type and protocol of the last socket.
  std::array<int, 3> askedSocket{};
  // What ioctl(2) was asked for last: the interface whose address, the bytes of a list.
  std::string askedInterface;
  int askedBytes = 0;
  // The hardware address of every interface.
  std::optional<std::array<unsigned char, 6>> mac;
};

extern Kernel kernel;

#endif
