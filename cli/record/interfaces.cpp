#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "diagnostics.h"
#include "record/records.h"
#include "recording/addresses.h"
#include "recording/files.h"
#include "recording/session.h"

namespace ovxid::cli {

namespace {

constexpr const char* none = "-";

std::string textOf(const std::optional<Mac>& mac, Macs& macs) {
  if (!mac) {
    return none;
  }
  return colonText(macs.written(*mac));
}

std::string line(const std::string& name, const std::string& address, Macs& macs) {
  return recording::escaped(name) + " " + address + " " + textOf(macOf(name), macs) + "\n";
}

}  // namespace

std::optional<Mac> macOf(const std::string& interface) {
  ifreq request{};
  interface.copy(static_cast<char*>(request.ifr_name), sizeof request.ifr_name - 1);
  const int kernel = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  const bool answered = ioctl(kernel, SIOCGIFHWADDR, &request) == 0;
  close(kernel);
  if (!answered) {
    return std::nullopt;
  }
  Mac mac{};
  std::memcpy(mac.data(), request.ifr_hwaddr.sa_data, mac.size());
  return mac;
}

void recordInterfaces(const std::string& wan, Macs& macs, const RecordingDirectory& directory) {
  const auto addresses = recording::listedAddresses();
  if (!addresses) {
    throw Failure(exit_status::notRead, "interfaces", std::strerror(errno));
  }
  std::string text;
  bool isListed = false;
  for (const auto& [name, address] : *addresses) {
    text += line(name, address, macs);
    isListed = isListed || name == wan;
  }
  if (!isListed && macOf(wan)) {
    text += line(wan, none, macs);
  }
  directory.file(recording::file::interfaces, text);
}

}  // namespace ovxid::cli
