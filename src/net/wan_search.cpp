#include <net/if.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "OvxIdentifier.h"
#include "net/query_socket.h"

namespace {

std::string interfaceName(const ifreq& entry) {
  return {std::begin(entry.ifr_name),
          std::find(std::begin(entry.ifr_name), std::end(entry.ifr_name), '\0')};
}

}  // namespace

void OvxIdentifier::search_wan() {
  alignas(ifreq) std::array<char, 1024> buffer{};
  ifconf list{};
  list.ifc_len = buffer.size();
  list.ifc_buf = buffer.data();

  const QuerySocket kernel;
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
    const std::string name = interfaceName(list.ifc_req[i]);
    if (name != "lo") {
      addParameter("OVX_WAN", name);
      return;
    }
  }
}
