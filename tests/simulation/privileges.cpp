#include "simulation/privileges.h"

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <system_error>

namespace {

void require(bool success, const char* what) {
  if (!success) {
    throw std::system_error(errno, std::generic_category(), what);
  }
}

using Capabilities = std::array<__user_cap_data_struct, 2>;

Capabilities capabilities() {
  __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
  Capabilities data{};
  require(syscall(SYS_capget, &header, data.data()) == 0, "read the process's capabilities");
  return data;
}

void setCapabilities(const Capabilities& data) {
  __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
  require(syscall(SYS_capset, &header, data.data()) == 0, "set the process's capabilities");
}

constexpr std::uint32_t passPermissions = 1U << CAP_DAC_OVERRIDE | 1U << CAP_DAC_READ_SEARCH;

}  // namespace

DroppedPrivileges::DroppedPrivileges() {
  Capabilities data = capabilities();
  data[0].effective &= ~passPermissions;
  setCapabilities(data);
}

// NOLINTNEXTLINE(bugprone-exception-escape): no test may run without these rights
DroppedPrivileges::~DroppedPrivileges() {
  Capabilities data = capabilities();
  data[0].effective |= passPermissions;
  setCapabilities(data);
}
