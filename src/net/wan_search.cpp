#include <net/if.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "OvxIdentifier.h"
#include "net/query_socket.h"
#include "params/names.h"

namespace ovxid {

namespace {

constexpr const char* loopback = "lo";
// Board programs rely on how many interfaces are looked at, so the buffer does not grow.
constexpr std::size_t listSize = 1024;

std::string interfaceName(const ifreq& entry) {
  return {std::begin(entry.ifr_name),
          std::find(std::begin(entry.ifr_name), std::end(entry.ifr_name), '\0')};
}

}  // namespace

}  // namespace ovxid

void OvxIdentifier::search_wan() {
  alignas(ifreq) std::array<char, ovxid::listSize> buffer{};
  ifconf list{};
  list.ifc_len = buffer.size();
  list.ifc_buf = buffer.data();

  const ovxid::QuerySocket kernel;
  if (kernel.descriptor() < 0) {
    std::perror("socket");
    return;
  }
  if (ioctl(kernel.descriptor(), SIOCGIFCONF, &list) < 0) {
    std::perror("ioctl(SIOCGIFCONF)");
    return;
  }
  const int count = list.ifc_len / static_cast<int>(sizeof(ifreq));
  for (int i = 0; i < count; ++i) {
    const std::string name = ovxid::interfaceName(list.ifc_req[i]);
    if (name != ovxid::loopback) {
      addParameter(ovxid::parameter::wan, name);
      return;
    }
  }
}
