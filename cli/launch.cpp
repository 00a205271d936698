#include "launch.h"

#include <cerrno>
#include <cstring>

#include "board.h"
#include "board_file.h"
#include "diagnostics.h"
#include "launch/launch.h"
#include "output.h"

namespace ovxid::cli {

int launch(const Invocation& invocation, Launched what) {
  Board board(hostOf(invocation), invocation.verbose);
  board.identify();
  board.collect();
  const InheritedHandlers inherited;
  ovxid::launch(board.parameters(), invocation.operandCount, invocation.operands,
                what == Launched::shell);
  return errno;
}

int failedLaunch(const std::string& program, int reason) {
  complain(program, std::strerror(reason));
  return (reason == ENOENT ? exit_status::notFound : exit_status::cannotRun).value;
}

}  // namespace ovxid::cli
