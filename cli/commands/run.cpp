#include "launch.h"

namespace ovxid::cli::command {

int run(const Invocation& invocation) {
  const int reason = launch(invocation, Launched::program);
  return failedLaunch(invocation.operands[0], reason);
}

}  // namespace ovxid::cli::command
