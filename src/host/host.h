#ifndef OVXID_HOST_HOST_H
#define OVXID_HOST_HOST_H

#include <sys/utsname.h>

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/input_file.h"

namespace ovxid {

// The files from which an identity comes.
enum class File { boardid, description, cpuinfo, catalogue };

constexpr std::string_view nodePath = "/proc/device-tree/orvanix";
// The device tree in which the node is, and the node's name there.
constexpr std::string_view treePath = nodePath.substr(0, nodePath.rfind('/'));
constexpr std::string_view nodeName = nodePath.substr(treePath.size() + 1);

// Where a file is on a board.
const char* pathOf(File file);

// The part of a path that stands below the node.
constexpr const char* belowNode(const char* path) { return path + nodePath.size() + 1; }

// What a walk over the platform's node comes to: a property, or a node that cannot be read.
class NodeEntry {
 public:
  NodeEntry(std::string_view path, std::string_view name, bool isProperty)
      : mPath(path), mName(name), mIsProperty(isProperty) {}
  NodeEntry(const NodeEntry&) = delete;
  NodeEntry& operator=(const NodeEntry&) = delete;

  // Below the platform's node.
  std::string_view path() const { return mPath; }
  std::string_view name() const { return mName; }
  bool isProperty() const { return mIsProperty; }
  virtual InputFile open() const = 0;

 protected:
  ~NodeEntry() = default;

 private:
  std::string_view mPath;
  std::string_view mName;
  bool mIsProperty;
};

// The kernel's list of interfaces, or the call that failed and its error, as in errno.
struct InterfaceList {
  std::vector<std::string> names;
  const char* failedCall = nullptr;
  int error = 0;
};

using MacAddress = std::array<std::uint8_t, 6>;

// What a board is told by: this machine, or one that was recorded. An error is that of errno, and 0
// if there is none.
class Host {
 public:
  Host() = default;
  virtual ~Host() = default;
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  virtual InputFile open(File file) const = 0;

  // Its release and its machine. Returns the error.
  virtual int uname(utsname& answer) const = 0;

  // Goes through the platform's node in the order of its directories. Returns the error for which
  // there is no node to walk over.
  virtual int walkNode(const std::function<void(const NodeEntry&)>& visit) const = 0;

  // The names of the configured IPv4 addresses, as many as the kernel's list has room for.
  virtual InterfaceList interfaces() const = 0;

  // Returns the error.
  virtual int macAddress(const std::string& interface, MacAddress& address) const = 0;

  // The nodes of the device tree's root, as far as they are known. None if there is no device tree.
  virtual std::optional<std::vector<std::string>> nodesOfTree() const = 0;
};

}  // namespace ovxid

#endif
