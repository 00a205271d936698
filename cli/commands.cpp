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

// The handler of SIGPIPE for as long as this lives.
class ClosedPipe {
 public:
  explicit ClosedPipe(SignalHandler handler) : mBefore(std::signal(SIGPIPE, handler)) {}
  ~ClosedPipe() { std::signal(SIGPIPE, mBefore); }
  ClosedPipe(const ClosedPipe&) = delete;
  ClosedPipe& operator=(const ClosedPipe&) = delete;

 private:
  SignalHandler mBefore;
};

// A newline in a diagnostic would make one line two.
bool isControl(unsigned char byte) { return std::iscntrl(byte) != 0; }

// A full disk and a closed pipe are errors, also when only messages on standard error are lost.
int written(std::ostream& out) {
  if (!out.flush()) {
    complain("standard output", std::strerror(errno));
    return exit_status::notWritten;
  }
  return std::cerr ? exit_status::done : exit_status::notWritten;
}

int print(const std::string& text) { return written(std::cout << text); }

bool determineIdentity(OvxIdentifier& board) try {
  return board.determineIdentity();
} catch (const std::out_of_range&) {  // GCOVR_EXCL_BR_LINE: only std::bad_alloc passes by
  throw IdentificationError("the Hardware line ends at its colon");
}

// The same as a query of the library, which does not tell whether the board was identified.
bool identify(OvxIdentifier& board) {
  const bool identified = determineIdentity(board);
  board.logFullId(identified ? Priority::DEBUG : Priority::ERROR);
  return identified;
}

int list(OvxIdentifier& board) {
  identify(board);
  board.parse_params();
  return written(board.listParams(std::cout));
}

// The answer for an unidentified board is given here, since a query would search once more.
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

int cannotLaunch(const char* program, int reason) {
  complain(*program == '\0' ? "''" : program, std::strerror(reason));
  return reason == ENOENT ? exit_status::notFound : exit_status::cannotRun;
}

// Returns why the program or shell could not be launched.
int execute(OvxIdentifier& board, const Arguments& arguments, SignalHandler inherited) {
  const ClosedPipe closedPipe(inherited);
  board.execute(arguments.launchedCount, arguments.launched, arguments.command == Command::shell);
  return errno;
}

int launch(OvxIdentifier& board, const Arguments& arguments, SignalHandler inherited) {
  identify(board);
  board.parse_params();
  const int reason = execute(board, arguments, inherited);
  if (arguments.command == Command::run) {
    return cannotLaunch(arguments.launched[0], reason);
  }
  const char* const shell = std::getenv("SHELL");
  return cannotLaunch(shell == nullptr ? ovxDefaultShell : shell, reason);
}

}  // namespace

void complain(const std::string& what, const std::string& why) {
  std::string line = "ovxid: " + what + ": " + why;
  std::replace_if(line.begin(), line.end(), isControl, '?');
  std::cerr << line + "\n";
}

int perform(const Arguments& arguments, SignalHandler inherited) {
  if (!arguments.help.empty()) {
    return print(arguments.help);
  }
  cQlog log;
  OvxIdentifier board(arguments.verbose ? &log : nullptr);
  switch (arguments.command) {  // GCOVR_EXCL_BR_LINE: every command has its case
    case Command::name:
      return name(board);
    case Command::number:
      return number(board);
    case Command::run:
    case Command::shell:
      return launch(board, arguments, inherited);
    case Command::list:
      break;
  }
  return list(board);
}
