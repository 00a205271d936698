#ifndef OVXID_REPLAY_RECORDING_H
#define OVXID_REPLAY_RECORDING_H

#include <optional>
#include <string>
#include <vector>

namespace ovxid::replay {

// In the place of what an interface does not have.
constexpr const char* none = "-";

// An entry of the kernel's list of addresses.
struct Address {
  // A name or a label such as "eth0:1".
  std::string name;
  // "-" for an interface without one.
  std::string address;
  // "-" for an interface that has none.
  std::string mac;
};

// A board as `ovxid record` has written it down.
struct Recording {
  std::string path;
  // Whether the kernel told its release and machine.
  bool hasUname = true;
  std::optional<std::string> release;
  std::optional<std::string> machine;
  // Paths below `path`.
  std::vector<std::string> unreadable;
  // Paths below the node, in the order in which its directories list them.
  std::vector<std::string> order;
  std::vector<Address> addresses;

  std::string file(const char* name) const { return path + "/" + name; }
  bool has(const char* name) const;
  bool isUnreadable(const std::string& name) const;
};

// Throws Failure when it is no recording.
Recording readRecording(const std::string& directory);

}  // namespace ovxid::replay

#endif
