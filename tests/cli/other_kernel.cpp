// Loaded before the front end. It answers for uname(2) with OVXID_RELEASE and OVXID_MACHINE, and
// with an error when the machine has no name; and for fstat(2) of all but
// directories with the owner OVXID_OWNER: without root, a test can give no file to another user.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

extern "C" int uname(utsname* kernel) noexcept {
  const char* const machine = std::getenv("OVXID_MACHINE");
  if (machine == nullptr) {
    return static_cast<int>(syscall(SYS_uname, kernel));
  }
  *kernel = {};
  if (*machine == '\0') {
    errno = EFAULT;
    return -1;
  }
  std::snprintf(kernel->release, sizeof kernel->release, "%s", std::getenv("OVXID_RELEASE"));
  std::snprintf(kernel->machine, sizeof kernel->machine, "%s", machine);
  return 0;
}

extern "C" int fstat(int descriptor, struct stat* status) noexcept {
  const int result = fstatat(descriptor, "", status, AT_EMPTY_PATH);
  const char* const owner = std::getenv("OVXID_OWNER");
  if (result == 0 && owner != nullptr && !S_ISDIR(status->st_mode)) {
    status->st_uid = static_cast<uid_t>(std::strtoul(owner, nullptr, 10));
  }
  return result;
}
