#ifndef OVXID_TESTS_SIMULATION_BOARD_H
#define OVXID_TESTS_SIMULATION_BOARD_H

#include <OvxIdentifier.h>

#include <array>
#include <functional>
#include <string>

#include "simulation/logger.h"
#include "simulation/replaced_directory.h"

// The board on which the library runs while this object lives. A new board cannot be identified. It
// has no device-tree node, no /proc/cpuinfo and no catalogue file. Its only interface is a loopback
// without an address. Its kernel release is 5.10.0 and its machine is armv7l.
class Board {
 public:
  Board();
  ~Board();
  Board(const Board&) = delete;
  Board& operator=(const Board&) = delete;

  // Paths below the device-tree node. Missing directories are made.
  Board& property(const std::string& path, const std::string& bytes);
  Board& childNode(const std::string& path);
  Board& link(const std::string& path, const std::string& target);
  Board& node();

  Board& cpuinfo(const std::string& text);
  Board& catalogue(const std::string& text);
  Board& kernelRelease(const std::string& release);
  Board& machine(const std::string& machine);
  Board& unameFails();

  Board& directory(const std::string& path);
  Board& file(const std::string& path, const std::string& bytes);
  Board& remove(const std::string& path);
  Board& permissions(const std::string& path, unsigned mode);

  // The kernel lists the interfaces in the order of these calls.
  Board& interface(const std::string& name, const std::string& mac);
  Board& mac(const std::string& interface, const std::string& mac);
  Board& address(const std::string& interface, const std::string& address);
  Board& labelledAddress(const std::string& label, const std::string& address);

  Board& socketFails(int error);
  Board& requestFails(unsigned long request);
  Board& closeChangesErrno();
  Board& readFailsAfter(int reads);
  // For an address that Linux gives no interface.
  Board& kernelAnswersMac(const std::array<unsigned char, 6>& mac);

  cQlog* logger() { return &mLogger; }
  // All messages so far.
  const Messages& messages() const { return mLogger.messages; }
  // The messages of this call only.
  Messages messagesOf(const std::function<void()>& call);

 private:
  ReplacedDirectory mProc;
  ReplacedDirectory mEtc;
  cQlog mLogger;
  int mInterfaces = 0;
};

// What a program of tests does when the kernel makes no namespaces for it: each defines this.
[[noreturn]] void giveUpSimulation(const std::string& why);

constexpr const char* nodePath = "/proc/device-tree/orvanix";
constexpr const char* cataloguePath = "/etc/known_ovx_ids";
constexpr const char* cpuinfoPath = "/proc/cpuinfo";

// All bytes of a literal, including its NUL bytes, but not the NUL byte that ends it.
template <std::size_t Size>
std::string bytes(const char (&literal)[Size]) {
  return {literal, Size - 1};
}

std::string listing(OvxIdentifier& identifier);

#endif
