#include "replay/seccomp.h"

#include <seccomp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>
#include <memory>

#include "replay/failure.h"
#include "text/descriptor.h"

namespace ovxid::replay {

namespace {

// What the library returns does not tell why.
void requireFilter(int result) {
  if (result != 0) {
    throw Failure(
        "seccomp",
        "the kernel does not hand over the call uname (that takes CONFIG_SECCOMP_FILTER and "
        "Linux 5.9, and a program that is not being replayed already)");
  }
}

// Programs of the machine's other word lengths make the same calls by other numbers.
void addArchitectures(scmp_filter_ctx filter) {
#if defined(__x86_64__)
  requireFilter(seccomp_arch_add(filter, SCMP_ARCH_X86));
  requireFilter(seccomp_arch_add(filter, SCMP_ARCH_X32));
#elif defined(__aarch64__)
  requireFilter(seccomp_arch_add(filter, SCMP_ARCH_ARM));
#else
  (void)filter;
#endif
}

// Architectures that do not have a call are passed over.
void addCalls(scmp_filter_ctx filter) {
  for (const int call : {SCMP_SYS(uname), SCMP_SYS(olduname), SCMP_SYS(oldolduname)}) {
    requireFilter(seccomp_rule_add(filter, SCMP_ACT_NOTIFY, call, 0));
  }
}

// A message of one byte and a descriptor, as unix(7) has it.
struct RightsMessage {
  char byte = 0;
  iovec data{&byte, 1};
  alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int))] = {};
  msghdr header{};

  RightsMessage() {
    header.msg_iov = &data;
    header.msg_iovlen = 1;
    header.msg_control = control;
    header.msg_controllen = sizeof control;
  }
};

void send(int descriptor, int socket) {
  RightsMessage message;
  cmsghdr* const rights = CMSG_FIRSTHDR(&message.header);
  require(rights != nullptr, "send a descriptor");
  rights->cmsg_level = SOL_SOCKET;
  rights->cmsg_type = SCM_RIGHTS;
  rights->cmsg_len = CMSG_LEN(sizeof descriptor);
  std::memcpy(CMSG_DATA(rights), &descriptor, sizeof descriptor);
  require(sendmsg(socket, &message.header, 0) == 1, "send a descriptor");
}

}  // namespace

void loadUnameFilter(int socket) {
  const std::unique_ptr<void, decltype(&seccomp_release)> filter(seccomp_init(SCMP_ACT_ALLOW),
                                                                 seccomp_release);
  require(filter != nullptr, "seccomp");
  addArchitectures(filter.get());
  // Calls of an architecture that is not known here are the kernel's business.
  requireFilter(seccomp_attr_set(filter.get(), SCMP_FLTATR_ACT_BADARCH, SCMP_ACT_ALLOW));
  addCalls(filter.get());
  if (geteuid() == 0) {
    // Without it, programs may still gain rights by their files.
    requireFilter(seccomp_attr_set(filter.get(), SCMP_FLTATR_CTL_NNP, 0));
  }
  requireFilter(seccomp_load(filter.get()));
  const Descriptor listener(seccomp_notify_fd(filter.get()));
  send(listener.get(), socket);
}

int receiveListener(int socket) {
  RightsMessage message;
  int listener = -1;
  const bool received = recvmsg(socket, &message.header, MSG_CMSG_CLOEXEC) == 1;
  const cmsghdr* const rights = CMSG_FIRSTHDR(&message.header);
  if (received && rights != nullptr) {
    std::memcpy(&listener, CMSG_DATA(rights), sizeof listener);
  }
  return listener;
}

}  // namespace ovxid::replay
