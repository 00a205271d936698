#ifndef OVXID_CLI_UNDISTURBED_H
#define OVXID_CLI_UNDISTURBED_H

#include <csignal>

namespace ovxid::cli {

// While it lives, the signals by which a user ends a process wait.
class Undisturbed {
 public:
  Undisturbed() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) {
      sigaddset(&signals, signal);
    }
    sigprocmask(SIG_BLOCK, &signals, &mBefore);
  }
  ~Undisturbed() { sigprocmask(SIG_SETMASK, &mBefore, nullptr); }
  Undisturbed(const Undisturbed&) = delete;
  Undisturbed& operator=(const Undisturbed&) = delete;

 private:
  sigset_t mBefore{};
};

}  // namespace ovxid::cli

#endif
