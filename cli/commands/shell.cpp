#include <ovxid/records.h>

#include <cstdlib>

#include "launch.h"

namespace ovxid::cli::command {

int shell(const Invocation& invocation) {
  const int reason = launch(invocation, Launched::shell);
  const char* const shell = std::getenv("SHELL");
  return failedLaunch(shell == nullptr ? ovxDefaultShell : shell, reason);
}

}  // namespace ovxid::cli::command
