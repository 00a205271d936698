#include "replay/signals.h"

#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "replay/failure.h"

namespace ovxid::replay {

namespace {

// What a terminal sends to a whole group.
bool isOfTerminal(const signalfd_siginfo& signal) {
  constexpr std::array ofTerminal = {SIGINT, SIGQUIT, SIGTSTP, SIGTTIN, SIGTTOU, SIGWINCH};
  return signal.ssi_code == SI_KERNEL &&
         std::find(ofTerminal.begin(), ofTerminal.end(), static_cast<int>(signal.ssi_signo)) !=
             ofTerminal.end();
}

// A program that is in this group still has what the terminal sent, and none gets back what it
// sends to its group.
bool isForTheProgram(const signalfd_siginfo& signal, pid_t program) {
  const bool isThereAlready = isOfTerminal(signal) && getpgid(program) == getpgrp();
  return signal.ssi_signo != SIGCHLD && !isThereAlready &&
         signal.ssi_pid != static_cast<std::uint32_t>(program);
}

}  // namespace

Signals::Signals() {
  struct sigaction usual = {};
  usual.sa_handler = SIG_DFL;
  require(sigaction(SIGCHLD, &usual, &mChildAction) == 0, "sigaction");
}

void Signals::block() {
  sigset_t all;
  sigfillset(&all);
  require(sigprocmask(SIG_SETMASK, &all, &mMask) == 0, "sigprocmask");
  mDescriptor = signalfd(-1, &all, SFD_CLOEXEC | SFD_NONBLOCK);
  require(mDescriptor >= 0, "signalfd");
}

void Signals::restore() const {
  require(sigaction(SIGCHLD, &mChildAction, nullptr) == 0, "sigaction");
  require(sigprocmask(SIG_SETMASK, &mMask, nullptr) == 0, "sigprocmask");
}

void Signals::forwardTo(pid_t program) const {
  for (signalfd_siginfo signal{}; read(mDescriptor, &signal, sizeof signal) > 0;) {
    if (isForTheProgram(signal, program)) {
      kill(program, static_cast<int>(signal.ssi_signo));
    }
  }
}

void takeDefaultAction(int signal) {
  struct sigaction usual = {};
  usual.sa_handler = SIG_DFL;
  sigaction(signal, &usual, nullptr);
  // To the process, where the terminal's own one may wait already: two of them would stop it twice.
  kill(getpid(), signal);
  sigset_t one;
  sigemptyset(&one);
  sigaddset(&one, signal);
  sigprocmask(SIG_UNBLOCK, &one, nullptr);
  sigprocmask(SIG_BLOCK, &one, nullptr);
}

void endAs(int status) {
  if (WIFEXITED(status)) {
    _exit(WEXITSTATUS(status));
  }
  // The program has left its core already.
  prctl(PR_SET_DUMPABLE, 0);
  takeDefaultAction(WTERMSIG(status));
  // The first process of a container outlives signals.
  constexpr int bySignal = 128;
  _exit(bySignal + WTERMSIG(status));
}

}  // namespace ovxid::replay
