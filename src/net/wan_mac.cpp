#include <net/if.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "OvxIdentifier.h"
#include "net/query_socket.h"
#include "params/names.h"

namespace ovxid {

namespace {

constexpr std::size_t macLength = 6;

// A name that does not fit aborts the process. If it were cut, it could be the name of another
// interface, whose address would then be taken for the board's.
ifreq requestFor(const std::string& interface) {
  ifreq request{};
  const std::size_t length = std::strlen(interface.c_str());
  // A process that aborts writes no coverage data.
  if (length >= sizeof request.ifr_name) {  // GCOVR_EXCL_BR_LINE
    std::abort();                           // GCOVR_EXCL_LINE
  }
  std::memcpy(request.ifr_name, interface.c_str(), length);
  return request;
}

// Bytes of 0x80 and above are sign-extended to 16 bits: board programs expect this form.
std::string macText(const sockaddr& address) {
  std::string text;
  for (std::size_t i = 0; i < macLength; ++i) {
    const auto byte = static_cast<signed char>(address.sa_data[i]);
    std::array<char, 4> digits{};
    const std::to_chars_result written = std::to_chars(digits.data(), digits.data() + digits.size(),
                                                       static_cast<std::uint16_t>(byte), 16);
    text.append(digits.data(), written.ptr);
  }
  return text;
}

}  // namespace

}  // namespace ovxid

void OvxIdentifier::add_wan_mac() {
  namespace parameter = ovxid::parameter;
  const auto wan = std::find_if(mParams.begin(), mParams.end(), [](const ovx_param& param) {
    return param.name == parameter::wan;
  });
  if (wan == mParams.end()) {
    return;
  }
  // Not checked: without a socket the request fails, and gives the message that board programs
  // expect.
  const ovxid::QuerySocket kernel;
  ifreq request = ovxid::requestFor(wan->value);
  if (ioctl(kernel.descriptor(), SIOCGIFHWADDR, &request) < 0) {
    std::perror("ioctl(wan_mac)");
    return;
  }
  addParameter(parameter::wanMac, ovxid::macText(request.ifr_hwaddr));
}
