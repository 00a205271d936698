#ifndef OVXID_REPLAY_WORLD_H
#define OVXID_REPLAY_WORLD_H

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <system_error>

// Changes to the system that only this process and its children see. When the machine does not
// allow one, it throws a std::system_error that says what is missing.

// The kernel makes no namespace for this process.
class NamespaceRefused : public std::system_error {
 public:
  using std::system_error::system_error;
};

// Whom a user other than root is in the namespace of users that is needed for it.
enum class InNamespace { asRoot, asOneself };

// Gives the process its own mounts, unless it has them already.
void takeOwnMounts(InNamespace user = InNamespace::asRoot);

// From now on the only network interface is a loopback without an address.
void enterEmptyNetwork();

// What a file system in memory takes at most.
struct Room {
  std::uint64_t bytes;
  std::uint64_t files;
};

// While this object lives, a directory of the system holds nothing but `.kept`, and that holds what
// was in the directory before. No device can be opened there. The first object of a process gives
// the process its own mounts.
class ReplacedDirectory {
 public:
  explicit ReplacedDirectory(std::string path, std::optional<Room> room = std::nullopt);
  // NOLINTNEXTLINE(bugprone-exception-escape): nobody may go on with half of the real directory
  ~ReplacedDirectory();
  ReplacedDirectory(const ReplacedDirectory&) = delete;
  ReplacedDirectory& operator=(const ReplacedDirectory&) = delete;

  // Bring entries of the directory back into it.
  void keep(const std::string& entry);
  void keepAllBut(const std::set<std::string>& entries);

 private:
  std::string mPath;
};

#endif
