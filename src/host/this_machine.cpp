#include "host/this_machine.h"

#include <ftw.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "host/directory_listing.h"
#include "host/tree_walk.h"
#include "text/descriptor.h"

namespace ovxid {

namespace {

// The node itself has no path below it.
std::string_view pathBelowNode(std::string_view path) {
  return path.substr(std::min(nodePath.size() + 1, path.size()));
}

class FileOfNode : public NodeEntry {
 public:
  FileOfNode(std::string_view path, std::size_t nameAt, bool isProperty)
      : NodeEntry(pathBelowNode(path), path.substr(nameAt), isProperty), mPath(path) {}

  InputFile open() const override { return InputFile(mPath.data()); }

 private:
  std::string_view mPath;
};

// Through which the kernel answers questions about its interfaces.
Descriptor querySocket() { return Descriptor(socket(AF_INET, SOCK_DGRAM, 0)); }

std::string interfaceName(const ifreq& entry) {
  return {std::begin(entry.ifr_name),
          std::find(std::begin(entry.ifr_name), std::end(entry.ifr_name), '\0')};
}

}  // namespace

InputFile ThisMachine::open(File file) const { return InputFile(pathOf(file)); }

int ThisMachine::uname(utsname& answer) const { return ::uname(&answer) < 0 ? errno : 0; }

int ThisMachine::walkNode(const std::function<void(const NodeEntry&)>& visit) const {
  const std::string path(nodePath);
  const int result = walkTree(path.c_str(), [&](const char* found, const struct stat* /*status*/,
                                                int type, const FTW* position) {
    const bool isProperty = type == FTW_F;
    if (isProperty || type == FTW_DNR) {
      visit(FileOfNode(found, static_cast<std::size_t>(position->base), isProperty));
    }
    return 0;
  });
  return result < 0 ? errno : 0;
}

InterfaceList ThisMachine::interfaces() const {
  alignas(ifreq) std::array<char, interfaceListSize> buffer{};
  ifconf list{};
  list.ifc_len = buffer.size();
  list.ifc_buf = buffer.data();

  const Descriptor kernel = querySocket();
  if (kernel.get() < 0) {
    return {{}, "socket", errno};
  }
  if (ioctl(kernel.get(), SIOCGIFCONF, &list) < 0) {
    return {{}, "ioctl(SIOCGIFCONF)", errno};
  }
  InterfaceList interfaces;
  std::for_each_n(list.ifc_req, list.ifc_len / static_cast<int>(sizeof(ifreq)),
                  [&](const ifreq& entry) { interfaces.names.push_back(interfaceName(entry)); });
  return interfaces;
}

int ThisMachine::macAddress(const std::string& interface, MacAddress& address) const {
  ifreq request{};
  interface.copy(static_cast<char*>(request.ifr_name), sizeof request.ifr_name - 1);
  // Not checked: without a socket the request fails, with the error that programs expect.
  const Descriptor kernel = querySocket();
  if (ioctl(kernel.get(), SIOCGIFHWADDR, &request) < 0) {
    return errno;
  }
  std::memcpy(address.data(), request.ifr_hwaddr.sa_data, address.size());
  return 0;
}

// One that may not be read is there.
std::optional<std::vector<std::string>> ThisMachine::nodesOfTree() const {
  std::optional<std::vector<std::string>> names = namesIn(std::string(treePath));
  if (!names && errno != ENOENT) {
    return std::vector<std::string>();
  }
  return names;
}

}  // namespace ovxid
