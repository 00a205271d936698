#include "net/wan.h"

#include <net/if.h>

#include <algorithm>
#include <cerrno>
#include <charconv>

#include "params/names.h"

namespace ovxid {

namespace {

constexpr const char* loopback = "lo";

int askForAddress(const Host& host, const std::string& interface, MacAddress& address) {
  // If it were cut, it could be the name of another interface, whose address would then be taken
  // for the board's.
  if (interface.size() >= IFNAMSIZ) {
    return ENAMETOOLONG;
  }
  return host.macAddress(interface, address);
}

}  // namespace

std::string macText(const MacAddress& address) {
  std::string text;
  for (const std::uint8_t byte : address) {
    const auto extended = static_cast<std::uint16_t>(byte < 0x80 ? byte : 0xff00 + byte);
    std::array<char, 4> digits{};
    const std::to_chars_result written =
        std::to_chars(digits.data(), digits.data() + digits.size(), extended, 16);
    text.append(digits.data(), written.ptr);
  }
  return text;
}

void searchWan(const Host& host, Collector& collector) {
  InterfaceList list = host.interfaces();
  if (list.failedCall != nullptr) {
    collector.fail(list.failedCall, list.error);
    return;
  }
  const auto wan = std::find_if(list.names.begin(), list.names.end(),
                                [](const std::string& name) { return name != loopback; });
  if (wan != list.names.end()) {
    collector.add(parameter::wan, std::move(*wan), {Origin::Kind::interface});
  }
}

std::optional<std::string> wanIn(const std::vector<ovx_param>& list) {
  const auto wan = std::find_if(list.begin(), list.end(), [](const ovx_param& param) {
    return param.name == parameter::wan;
  });
  if (wan == list.end()) {
    return std::nullopt;
  }
  return wan->value.substr(0, wan->value.find('\0'));
}

int addWanMac(const Host& host, Collector& collector) {
  const std::optional<std::string> wan = wanIn(collector.list());
  if (!wan) {
    return 0;
  }
  MacAddress address{};
  const int error = askForAddress(host, *wan, address);
  if (error == 0) {
    collector.add(parameter::wanMac, macText(address), {Origin::Kind::interface});
  } else {
    collector.fail("ioctl(wan_mac)", error);
  }
  return error;
}

}  // namespace ovxid
