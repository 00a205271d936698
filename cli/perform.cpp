#include "perform.h"

#include "command_line.h"
#include "diagnostics.h"

namespace ovxid::cli {

int perform(int argc, char** argv) {
  try {
    const Invocation invocation = readCommandLine(argc, argv);
    return invocation.command->perform(invocation);
  } catch (const Failure& failure) {
    complain(failure.subject(), failure.what());
    return failure.status();
  }
}

}  // namespace ovxid::cli
