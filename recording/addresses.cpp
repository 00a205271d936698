#include "recording/addresses.h"

#include <arpa/inet.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>

#include "text/descriptor.h"

namespace ovxid::recording {

namespace {

bool ask(ifconf& list) {
  const Descriptor kernel(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
  return kernel.get() >= 0 && ioctl(kernel.get(), SIOCGIFCONF, &list) == 0;
}

ListedAddress entryOf(const ifreq& entry) {
  const auto* const name = static_cast<const char*>(entry.ifr_name);
  sockaddr_in address{};
  std::memcpy(&address, &entry.ifr_addr, sizeof address);
  std::array<char, INET_ADDRSTRLEN> text{};
  return {{name, strnlen(name, sizeof entry.ifr_name)},
          inet_ntop(AF_INET, &address.sin_addr, text.data(), text.size())};
}

}  // namespace

// A list that fills the room that it was given may go on.
std::optional<std::vector<ListedAddress>> listedAddresses() {
  for (std::size_t room = 32;; room *= 2) {
    std::vector<ifreq> entries(room);
    ifconf list{};
    list.ifc_len = static_cast<int>(room * sizeof(ifreq));
    list.ifc_req = entries.data();
    if (!ask(list)) {
      return std::nullopt;
    }
    entries.resize(static_cast<std::size_t>(list.ifc_len) / sizeof(ifreq));
    if (entries.size() < room) {
      std::vector<ListedAddress> addresses;
      std::transform(entries.begin(), entries.end(), std::back_inserter(addresses), entryOf);
      return addresses;
    }
  }
}

}  // namespace ovxid::recording
