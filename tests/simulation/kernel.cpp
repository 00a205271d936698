#include "simulation/kernel.h"

#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstring>

Kernel kernel;

extern "C" int uname(utsname* name) noexcept {
  // The real kernel is asked as well, so that a trace shows that it was.
  syscall(SYS_uname, name);
  *name = {};
  kernel.release.copy(name->release, sizeof name->release - 1);
  kernel.machine.copy(name->machine, sizeof name->machine - 1);
  if (kernel.unameFails) {
    errno = EFAULT;
    return -1;
  }
  return 0;
}

extern "C" int socket(int domain, int type, int protocol) noexcept {
  kernel.askedSocket = {domain, type, protocol};
  if (kernel.socketError) {
    errno = *kernel.socketError;
    return -1;
  }
  return static_cast<int>(syscall(SYS_socket, domain, type, protocol));
}

extern "C" ssize_t read(int descriptor, void* buffer, size_t size) {
  if (kernel.interruptions > 0) {
    --kernel.interruptions;
    errno = EINTR;
    return -1;
  }
  if (kernel.readsLeft && (*kernel.readsLeft)-- <= 0) {
    errno = EIO;
    return -1;
  }
  return syscall(SYS_read, descriptor, buffer, std::min(size, kernel.mostBytes));
}

extern "C" int close(int descriptor) {
  kernel.askedClose = descriptor;
  const int result = static_cast<int>(syscall(SYS_close, descriptor));
  if (kernel.closeChangesErrno) {
    errno = ENOTTY;
  }
  return result;
}

extern "C" int ioctl(int descriptor, unsigned long request, ...) noexcept {
  va_list arguments;
  va_start(arguments, request);
  void* const argument = va_arg(arguments, void*);
  va_end(arguments);
  if (request == SIOCGIFHWADDR) {
    kernel.askedInterface = static_cast<ifreq*>(argument)->ifr_name;
  }
  if (request == SIOCGIFCONF) {
    kernel.askedBytes = static_cast<ifconf*>(argument)->ifc_len;
  }
  if (request == kernel.failingRequest) {
    errno = EIO;
    return -1;
  }
  if (request == SIOCGIFHWADDR && kernel.mac) {
    std::memcpy(static_cast<ifreq*>(argument)->ifr_hwaddr.sa_data, kernel.mac->data(), 6);
    return 0;
  }
  return static_cast<int>(syscall(SYS_ioctl, descriptor, request, argument));
}
