#ifndef OVXID_REPLAY_SIGNALS_H
#define OVXID_REPLAY_SIGNALS_H

#include <sys/types.h>

#include <csignal>

namespace ovxid::replay {

// The signals of a process that stands between a program and who started it.
class Signals {
 public:
  // Waits for children, even where the caller left this process with the end of them ignored.
  Signals();

  // From now on, no signal does anything but wait on the descriptor.
  void hold();
  int descriptor() const { return mDescriptor; }

  // For the program, which finds the signals as it would without this process.
  void giveBack() const;

  // Hands the signals that were sent to this process on to the program.
  void passOnTo(pid_t program) const;

 private:
  struct sigaction mChildEnds = {};
  sigset_t mBlocked = {};
  int mDescriptor = -1;
};

// Stops as the program was stopped, so that a shell sees it, and returns when it goes on.
void stopBy(int signal);

// Ends as the program did: by its exit status, or by the same signal.
[[noreturn]] void endAs(int waited);

}  // namespace ovxid::replay

#endif
