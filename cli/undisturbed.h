#ifndef OVXID_CLI_UNDISTURBED_H
#define OVXID_CLI_UNDISTURBED_H

#include <algorithm>
#include <csignal>
#include <iterator>

namespace ovxid::cli {

// While it lives, the signals by which a user ends a process wait.
class Undisturbed {
 public:
  Undisturbed() {
    sigset_t waiting;
    sigemptyset(&waiting);
    for (const int signal : signals) {
      struct sigaction action {};
      sigaction(signal, nullptr, &action);
      // One that is ignored would wait, too.
      if (action.sa_handler != SIG_IGN) {
        sigaddset(&waiting, signal);
      }
    }
    sigprocmask(SIG_BLOCK, &waiting, &mBefore);
  }
  ~Undisturbed() { sigprocmask(SIG_SETMASK, &mBefore, nullptr); }
  Undisturbed(const Undisturbed&) = delete;
  Undisturbed& operator=(const Undisturbed&) = delete;

  // Whether one of them is waiting, and will end the process when it need not wait any more.
  bool isCalledOff() const {
    sigset_t waiting;
    sigpending(&waiting);
    return std::any_of(std::begin(signals), std::end(signals), [&](int signal) {
      const bool isWaiting = sigismember(&waiting, signal) != 0;
      // GCOVR_EXCL_BR_LINE: gcc does not write its counts when a signal ends a process
      return isWaiting && sigismember(&mBefore, signal) == 0;  // GCOVR_EXCL_BR_LINE
    });
  }

 private:
  static constexpr int signals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

  sigset_t mBefore{};
};

}  // namespace ovxid::cli

#endif
