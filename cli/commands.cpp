#include "commands.h"

#include <OvxIdentifier.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "cQlog.h"

using log4cpp::Priority;

namespace {

using SignalHandler = void (*)(int);

// In a diagnostic, a newline would make one line two.
bool isControl(unsigned char byte) { return std::iscntrl(byte) != 0; }

// A full disk and a reader that went away are errors, for the messages on standard error too.
int written(std::ostream& out) {
  if (!out.flush()) {
    complain("standard output", std::strerror(errno));
    return exit_status::notWritten;
  }
  return std::cerr ? exit_status::done : exit_status::notWritten;
}

int print(const std::string& text) { return written(std::cout << text); }

int list(OvxIdentifier& board) {
  board.loadParams();
  return written(board.listParams(std::cout));
}

// What the library's queries do, but keeping the outcome, which a query does not tell.
bool identify(OvxIdentifier& board) {
  const bool identified = board.determineIdentity();
  board.logFullId(identified ? Priority::DEBUG : Priority::ERROR);
  return identified;
}

// A query of an unidentified board would search once more, so its answer is given here.
int unidentified(const std::string& answer) {
  const int status = print(answer + "\n");
  if (status != exit_status::done) {
    return status;
  }
  complain("board", "not identified");
  return exit_status::notIdentified;
}

int name(OvxIdentifier& board) {
  if (!identify(board)) {
    return unidentified("Unknown");
  }
  return print(board.getHardwareName() + "\n");
}

int number(OvxIdentifier& board) {
  if (!identify(board)) {
    return unidentified("-1");
  }
  return print(std::to_string(board.getHardwareNumber()) + "\n");
}

int cannotLaunch(const char* program) {
  const int reason = errno;
  complain(*program == '\0' ? "''" : program, std::strerror(reason));
  return reason == ENOENT ? exit_status::notFound : exit_status::cannotRun;
}

int launch(OvxIdentifier& board, const Arguments& arguments, SignalHandler onClosedPipe) {
  const bool useShell = arguments.command == Command::shell;
  board.loadParams();
  std::signal(SIGPIPE, onClosedPipe);
  board.execute(arguments.launchedCount, arguments.launched, useShell);
  if (!useShell) {
    return cannotLaunch(arguments.launched[0]);
  }
  const char* const shell = std::getenv("SHELL");
  return cannotLaunch(shell == nullptr ? ovxDefaultShell : shell);
}

}  // namespace

void complain(const std::string& what, const std::string& why) {
  std::string line = "ovxid: " + what + ": " + why;
  std::replace_if(line.begin(), line.end(), isControl, '?');
  std::cerr << line + "\n";
}

int perform(const Arguments& arguments) {
  // What cannot be written is to be told, and not to end us in silence.
  const SignalHandler onClosedPipe = std::signal(SIGPIPE, SIG_IGN);
  if (!arguments.help.empty()) {
    return print(arguments.help);
  }
  cQlog log;
  OvxIdentifier board(arguments.verbose ? &log : nullptr);
  switch (arguments.command) {
    case Command::name:
      return name(board);
    case Command::number:
      return number(board);
    case Command::run:
    case Command::shell:
      return launch(board, arguments, onClosedPipe);
    case Command::list:
      break;
  }
  return list(board);
}
