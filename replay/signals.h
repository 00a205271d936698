#ifndef OVXID_REPLAY_SIGNALS_H
#define OVXID_REPLAY_SIGNALS_H

#include <sys/types.h>

#include <csignal>

namespace ovxid::replay {

// The signals of a process that stands between a program and who started it.
class Signals {
 public:
  // Waits for children, even where the caller left this process with SIGCHLD ignored.
  Signals();

  // From now on, no signal does anything but wait on the descriptor, as signalfd(2) tells.
  void block();
  int descriptor() const { return mDescriptor; }

  // For the program, which finds the signals as it would without this process.
  void restore() const;

  // Sends the signals that were sent to this process on to the program.
  void forwardTo(pid_t program) const;

 private:
  struct sigaction mChildAction = {};
  sigset_t mMask = {};
  int mDescriptor = -1;
};

// Has the signal do what it does to a process that does not handle it. Returns when a stopped
// process goes on.
void takeDefaultAction(int signal);

// Ends as the program did, of which waitpid(2) gave this status: with it, or by the same signal.
[[noreturn]] void endAs(int status);

}  // namespace ovxid::replay

#endif
