#ifndef OVXID_RECORDING_RECORDING_H
#define OVXID_RECORDING_RECORDING_H

#include <cerrno>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/host.h"

namespace ovxid::recording {

// What a file had. Errors are those of errno, and 0 if there was none.
struct Content {
  std::string bytes;
  // Why it could not be opened.
  int openError = 0;
  // Why it could not be read any further.
  int readError = 0;
};

inline Content missing() { return {{}, ENOENT, 0}; }

// A property of the platform's node, or a node below it.
struct Entry {
  std::string name;
  bool isNode = false;
  // Of a property. Of a node, why it could not be read.
  Content value;
  // Of a node, in the kernel's order.
  std::vector<Entry> content;
};

// An entry of the kernel's list of IPv4 addresses, or an interface that has none.
struct Interface {
  // A name, or a label such as "eth0:1".
  std::string name;
  std::optional<std::string> address;
  std::optional<MacAddress> mac;
};

// The interface that a name or a label means, for which the kernel answers.
inline std::string interfaceOf(const std::string& nameOrLabel) {
  return nameOrLabel.substr(0, nameOrLabel.find(':'));
}

// What `ovxid -v list` did.
struct Said {
  int status = 0;
  std::string out;
  std::string err;
};

// A board as it was written down.
struct Recording {
  // Of the program that wrote it.
  std::string version;
  std::string release;
  std::string machine;
  // Why the kernel told neither, as in errno; else 0.
  int unameError = 0;
  Content cpuinfo = missing();
  Content catalogue = missing();
  // What the root of the device tree tells people. Empty if there is none.
  std::string model;
  std::vector<std::string> compatible;
  // Whether there was a device tree, with the platform's node or without.
  bool hasDeviceTree = false;
  std::optional<Entry> node;
  std::vector<Interface> interfaces;
  // Why they are not known, as in errno; else 0.
  int interfacesError = 0;
  // How many entries the kernel's list had room for, as the library asks for it there.
  std::size_t interfaceRoom = 0;
  std::optional<Said> said;
};

}  // namespace ovxid::recording

#endif
