// Loaded before the front end. It answers for uname(2) with OVXID_RELEASE and OVXID_MACHINE.
#include <sys/utsname.h>

#include <cstdio>
#include <cstdlib>

extern "C" int uname(utsname* kernel) noexcept {
  *kernel = {};
  std::snprintf(kernel->release, sizeof kernel->release, "%s", std::getenv("OVXID_RELEASE"));
  std::snprintf(kernel->machine, sizeof kernel->machine, "%s", std::getenv("OVXID_MACHINE"));
  return 0;
}
