#include "replay/program.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <set>

#include "replay/failure.h"
#include "replay/processes.h"
#include "replay/seccomp.h"
#include "replay/uname.h"
#include "text/descriptor.h"

namespace ovxid::replay {

namespace {

pid_t forkProcess() {
  const pid_t child = fork();
  require(child >= 0, "fork");
  return child;
}

// A program that has lost the process which waits for it must not outlive it, as it would not if it
// were that process.
void dieWith(pid_t parent) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) {
    _exit(ownFailure);
  }
}

[[noreturn]] void becomeProgram(const Signals& signals, int socket,
                                const std::function<int()>& call) {
  _exit(statusOf([&] {
    loadUnameFilter(socket);
    close(socket);
    signals.restore();
    return call();
  }));
}

// Nothing of the program is held: no stream whose end somebody waits for, no folder.
void closeAllBut(const std::set<int>& descriptors) {
  unsigned next = 0;
  for (const int kept : descriptors) {
    // There is nothing between two neighbours, and no listener where the program ended early.
    if (kept > static_cast<int>(next)) {
      close_range(next, static_cast<unsigned>(kept) - 1, 0);
    }
    next = static_cast<unsigned>(kept + 1);
  }
  close_range(next, ~0U, 0);
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    open("/dev/null", O_RDWR);
  }
  [[maybe_unused]] const int result = chdir("/");
}

// The process that answers for uname is in no group that a terminal or a shell sends signals to.
[[noreturn]] void becomeSupervisor(const recording::Recording& recording, Processes& processes,
                                   const Signals& signals, const std::vector<int>& tunnels,
                                   int listener) {
  setsid();
  signals.restore();
  std::set<int> descriptors(tunnels.begin(), tunnels.end());
  descriptors.insert({listener, processes.directory(), processes.realDirectory()});
  closeAllBut(descriptors);
  superviseUname(recording, processes, listener);
  _exit(0);
}

// The process that waits for the program.
class Monitor {
 public:
  Monitor(pid_t program, pid_t supervisor, int listener, const Signals& signals)
      : mProgram(program), mSupervisor(supervisor), mListener(listener), mSignals(signals) {}

  [[noreturn]] void run();

 private:
  void waitForChildren();
  void childChanged(pid_t child, int status);
  void stopWithProgram(int signal) const;
  void waitForSupervisor() const;

  pid_t mProgram;
  pid_t mSupervisor;
  int mListener;
  const Signals& mSignals;
};

void Monitor::run() {
  pollfd events{mSignals.descriptor(), POLLIN, 0};
  for (;;) {
    poll(&events, 1, -1);
    mSignals.forwardTo(mProgram);
    waitForChildren();
  }
}

void Monitor::waitForChildren() {
  int status = 0;
  for (pid_t child = 0; (child = waitpid(-1, &status, WNOHANG | WUNTRACED)) > 0;) {
    childChanged(child, status);
  }
}

// The first process of a container has children that it does not know.
void Monitor::childChanged(pid_t child, int status) {
  if (child == mSupervisor && !WIFSTOPPED(status)) {
    // Without it, calls fail, where they would wait for ever.
    close(mListener);
    mSupervisor = 0;
  } else if (child == mProgram && WIFSTOPPED(status)) {
    stopWithProgram(WSTOPSIG(status));
  } else if (child == mProgram) {
    waitForSupervisor();
    endAs(status);
  }
}

// For the shell of a terminal alone. Elsewhere nobody would let this process go on.
void Monitor::stopWithProgram(int signal) const {
  const Descriptor terminal(open("/dev/tty", O_RDONLY | O_NOCTTY | O_CLOEXEC));
  if (terminal.get() >= 0) {
    takeDefaultAction(signal);
    kill(mProgram, SIGCONT);
  }
}

// Unless the program has left processes behind, for which it answers on.
void Monitor::waitForSupervisor() const {
  pollfd events{mListener, 0, 0};
  if (mSupervisor != 0 && poll(&events, 1, 0) == 1) {
    waitpid(mSupervisor, nullptr, 0);
  }
}

}  // namespace

void runOnBoard(const recording::Recording& recording, const std::vector<int>& tunnels,
                Signals& signals, const std::function<int()>& call) {
  int sockets[2];
  require(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, sockets) == 0, "socketpair");
  Processes processes;
  const pid_t self = getpid();
  signals.block();
  const pid_t program = forkProcess();
  if (program == 0) {
    dieWith(self);
    becomeProgram(signals, sockets[0], call);
  }
  close(sockets[0]);
  const int listener = receiveListener(sockets[1]);
  const pid_t supervisor = listener < 0 ? 0 : forkProcess();
  if (listener >= 0 && supervisor == 0) {
    becomeSupervisor(recording, processes, signals, tunnels, listener);
  }
  closeAllBut({listener, signals.descriptor()});
  Monitor(program, supervisor, listener, signals).run();
}

}  // namespace ovxid::replay
