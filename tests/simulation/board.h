#ifndef OVXID_TESTS_SIMULATION_BOARD_H
#define OVXID_TESTS_SIMULATION_BOARD_H

#include <OvxIdentifier.h>

#include <array>
#include <functional>
#include <string>

#include "simulation/logger.h"
#include "simulation/world.h"

// The board that the library finds itself on while this lives. A fresh one has no device-tree node,
// no /proc/cpuinfo, no catalogue file, no interface but an unconfigured loopback, and the kernel
// release 5.10.0 on the machine armv7l, so that nothing identifies it.
class Board {
 public:
  Board();
  ~Board();
  Board(const Board&) = delete;
  Board& operator=(const Board&) = delete;

  // Files below the device-tree node; missing directories are made.
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

  // Interfaces stand in the kernel's list in the order in which they are made here.
  Board& interface(const std::string& name, const std::string& mac);
  Board& mac(const std::string& interface, const std::string& mac);
  Board& address(const std::string& interface, const std::string& address);
  Board& labelledAddress(const std::string& label, const std::string& address);

  Board& socketFails(int error);
  Board& requestFails(unsigned long request);
  Board& closeChangesErrno();
  Board& readFailsAfter(int reads);
  // For addresses that no interface of this kernel can be given.
  Board& kernelAnswersMac(const std::array<unsigned char, 6>& mac);

  cQlog* logger() { return &mLogger; }
  // The messages so far, and those of one call alone.
  const Messages& messages() const { return mLogger.messages; }
  Messages messagesOf(const std::function<void()>& call);

 private:
  void ip(const std::string& command);

  ReplacedDirectory mProc;
  ReplacedDirectory mEtc;
  cQlog mLogger;
  int mInterfaces = 0;
};

constexpr const char* nodePath = "/proc/device-tree/orvanix";
constexpr const char* cataloguePath = "/etc/known_ovx_ids";
constexpr const char* cpuinfoPath = "/proc/cpuinfo";

// A literal's bytes, the NUL bytes in it included.
template <std::size_t Size>
std::string bytes(const char (&literal)[Size]) {
  return {literal, Size - 1};
}

std::string listing(OvxIdentifier& identifier);

#endif
