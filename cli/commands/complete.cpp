#include "command_line/command.h"
#include "command_line/completion.h"
#include "output/exit_status.h"
#include "output/output.h"

namespace ovxid::cli::command {

int complete(const Invocation& invocation) {
  // The word before the operands is in the place of the front end's own name.
  print(completion(placeOfLast(invocation.operandCount + 1, invocation.operands - 1)));
  return exit_status::done.value;
}

}  // namespace ovxid::cli::command
