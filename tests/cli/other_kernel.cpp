// Loaded before the front end. It answers for uname(2) with OVXID_RELEASE and OVXID_MACHINE, and
// with an error when the machine has no name.
#include <sys/utsname.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

extern "C" int uname(utsname* kernel) noexcept {
  *kernel = {};
  if (*std::getenv("OVXID_MACHINE") == '\0') {
    errno = EFAULT;
    return -1;
  }
  std::snprintf(kernel->release, sizeof kernel->release, "%s", std::getenv("OVXID_RELEASE"));
  std::snprintf(kernel->machine, sizeof kernel->machine, "%s", std::getenv("OVXID_MACHINE"));
  return 0;
}
