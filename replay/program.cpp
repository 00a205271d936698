#include "replay/program.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "replay/channel.h"
#include "replay/failure.h"
#include "replay/processes.h"
#include "replay/seccomp.h"
#include "replay/uname.h"

namespace ovxid::replay {

namespace {

pid_t forkProcess() {
  const pid_t child = fork();
  require(child >= 0, "fork");
  return child;
}

// A program that has lost the process which waits for it must not outlive it, as it would not if it
// were that process.
void endWith(pid_t parent) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) {
    _exit(ownFailure);
  }
}

[[noreturn]] void becomeProgram(const Signals& signals, Channel& channel,
                                const std::function<int()>& call) {
  _exit(statusOf([&] {
    const int listener = handOverUname();
    channel.send(listener);
    close(listener);
    signals.giveBack();
    return call();
  }));
}

// Nothing of the program is held: no stream whose end somebody waits for, no folder.
void closeAllBut(std::vector<int> descriptors) {
  std::sort(descriptors.begin(), descriptors.end());
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

// The process that answers is in no group that a terminal or a shell sends signals to.
[[noreturn]] void becomeAnswerer(const recording::Recording& recording, Processes& processes,
                                 const Signals& signals, std::vector<int> descriptors,
                                 int listener) {
  setsid();
  signals.giveBack();
  descriptors.insert(descriptors.end(),
                     {listener, processes.directory(), processes.realDirectory()});
  closeAllBut(std::move(descriptors));
  answerForUname(recording, processes, listener);
  _exit(0);
}

// The process that waits for the program.
class Waiting {
 public:
  Waiting(pid_t program, pid_t answerer, int listener, const Signals& signals)
      : mProgram(program), mAnswerer(answerer), mListener(listener), mSignals(signals) {}

  [[noreturn]] void untilTheEnd();

 private:
  void lookAtChildren();
  void takeNote(pid_t child, int waited);
  void stopWithProgram(int signal) const;
  void endAnswers() const;

  pid_t mProgram;
  pid_t mAnswerer;
  int mListener;
  const Signals& mSignals;
};

void Waiting::untilTheEnd() {
  pollfd events{mSignals.descriptor(), POLLIN, 0};
  for (;;) {
    poll(&events, 1, -1);
    mSignals.passOnTo(mProgram);
    lookAtChildren();
  }
}

void Waiting::lookAtChildren() {
  int waited = 0;
  for (pid_t child = 0; (child = waitpid(-1, &waited, WNOHANG | WUNTRACED)) > 0;) {
    takeNote(child, waited);
  }
}

// The first process of a container has children that it does not know.
void Waiting::takeNote(pid_t child, int waited) {
  if (child == mAnswerer && !WIFSTOPPED(waited)) {
    // Without it, calls fail, where they would wait for ever.
    close(mListener);
    mAnswerer = 0;
  } else if (child == mProgram && WIFSTOPPED(waited)) {
    stopWithProgram(WSTOPSIG(waited));
  } else if (child == mProgram) {
    endAnswers();
    endAs(waited);
  }
}

// For the shell of a terminal alone. Elsewhere nobody would let this process go on.
void Waiting::stopWithProgram(int signal) const {
  const int terminal = open("/dev/tty", O_RDONLY | O_NOCTTY | O_CLOEXEC);
  if (terminal >= 0) {
    close(terminal);
    stopBy(signal);
    kill(mProgram, SIGCONT);
  }
}

// Unless the program has left processes behind, to which the answers belong now.
void Waiting::endAnswers() const {
  pollfd events{mListener, 0, 0};
  if (mAnswerer != 0 && poll(&events, 1, 0) == 1) {
    waitpid(mAnswerer, nullptr, 0);
  }
}

}  // namespace

void runOnBoard(const recording::Recording& recording, const std::vector<int>& descriptors,
                Signals& signals, const std::function<int()>& call) {
  Channel channel;
  Processes processes;
  const pid_t self = getpid();
  signals.hold();
  const pid_t program = forkProcess();
  if (program == 0) {
    endWith(self);
    becomeProgram(signals, channel, call);
  }
  const int listener = channel.receive();
  const pid_t answerer = listener < 0 ? 0 : forkProcess();
  if (listener >= 0 && answerer == 0) {
    becomeAnswerer(recording, processes, signals, descriptors, listener);
  }
  closeAllBut({listener, signals.descriptor()});
  Waiting(program, answerer, listener, signals).untilTheEnd();
}

}  // namespace ovxid::replay
