#include "replay/seccomp.h"

#include <seccomp.h>
#include <unistd.h>

#include <memory>

#include "replay/failure.h"

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

}  // namespace

int handOverUname() {
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
  return seccomp_notify_fd(filter.get());
}

}  // namespace ovxid::replay
