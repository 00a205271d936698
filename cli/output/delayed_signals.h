#ifndef OVXID_CLI_OUTPUT_DELAYED_SIGNALS_H
#define OVXID_CLI_OUTPUT_DELAYED_SIGNALS_H

#include <csignal>

namespace ovxid::cli {

// While it lives, the signals by which a user ends a process wait.
class DelayedSignals {
 public:
  DelayedSignals() {
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
  ~DelayedSignals() { sigprocmask(SIG_SETMASK, &mBefore, nullptr); }
  DelayedSignals(const DelayedSignals&) = delete;
  DelayedSignals& operator=(const DelayedSignals&) = delete;

 private:
  static constexpr int signals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

  sigset_t mBefore{};
};

}  // namespace ovxid::cli

#endif
