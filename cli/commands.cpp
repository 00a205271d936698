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

int printIdentity(const std::string& value, bool identified) {
  const int status = print(value + "\n");
  if (status == exit_status::done && !identified) {
    complain("board", "not identified");
    return exit_status::notIdentified;
  }
  return status;
}

// A query of an unidentified board would search once more, so what it would answer stands here.
int name(OvxIdentifier& board) {
  const bool identified = identify(board);
  return printIdentity(identified ? board.getHardwareName() : "Unknown", identified);
}

int number(OvxIdentifier& board) {
  const bool identified = identify(board);
  return printIdentity(identified ? std::to_string(board.getHardwareNumber()) : "-1", identified);
}

int cannotLaunch(const std::string& program) {
  const int reason = errno;
  complain(program.empty() ? "''" : program, std::strerror(reason));
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
