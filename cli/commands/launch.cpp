#include "launch/launch.h"

#include <ovxid/records.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "board/board.h"
#include "board/board_file.h"
#include "command_line/command.h"
#include "output/diagnostics.h"
#include "output/output.h"

namespace ovxid::cli::command {

namespace {

enum class Launched { program, shell };

// Replaces the process by what the operands name. Returns the reason, as in errno, when it cannot.
int launch(const Invocation& invocation, Launched what) {
  Board board(hostOf(invocation), invocation.verbose);
  board.identify();
  board.collect();
  const InheritedHandlers inherited;
  ovxid::launch(board.parameters(), invocation.operandCount, invocation.operands,
                what == Launched::shell);
  return errno;
}

int fail(const std::string& program, int reason) {
  complain(program, std::strerror(reason));
  return (reason == ENOENT ? exit_status::notFound : exit_status::cannotRun).value;
}

}  // namespace

int run(const Invocation& invocation) {
  const int reason = launch(invocation, Launched::program);
  return fail(invocation.operands[0], reason);
}

int shell(const Invocation& invocation) {
  const int reason = launch(invocation, Launched::shell);
  const char* const shell = std::getenv("SHELL");
  return fail(shell == nullptr ? ovxDefaultShell : shell, reason);
}

}  // namespace ovxid::cli::command
