#include "commands.h"

#include <OvxIdentifier.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "cQlog.h"

using log4cpp::Priority;

namespace {

// A reader that went away is an error like a full disk, and not a signal that ends us in silence.
int written(std::ostream& out) {
  if (!out.flush()) {
    complain("standard output", std::strerror(errno));
    return exit_status::notWritten;
  }
  return exit_status::done;
}

int print(const std::string& text) {
  std::signal(SIGPIPE, SIG_IGN);
  return written(std::cout << text);
}

int list(OvxIdentifier& board) {
  std::signal(SIGPIPE, SIG_IGN);
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

int run(OvxIdentifier& board, const Arguments& arguments) {
  board.loadParams();
  board.execute(arguments.launchedCount, arguments.launched, false);
  return cannotLaunch(arguments.launched[0]);
}

int shell(OvxIdentifier& board, const Arguments& arguments) {
  board.loadParams();
  board.execute(arguments.launchedCount, arguments.launched, true);
  const char* const program = std::getenv("SHELL");
  return cannotLaunch(program == nullptr ? "/bin/bash" : program);
}

}  // namespace

void complain(const std::string& what, const std::string& why) {
  std::cerr << "ovxid: " + what + ": " + why + "\n";
}

int perform(const Arguments& arguments) {
  if (arguments.command == Command::help) {
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
      return run(board, arguments);
    case Command::shell:
      return shell(board, arguments);
    default:
      return list(board);
  }
}
