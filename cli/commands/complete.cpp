#include "command.h"
#include "completion.h"
#include "exit_status.h"
#include "output.h"

namespace ovxid::cli::command {

int complete(const Invocation& invocation) {
  print(completion(
      placeOfLast({invocation.operands, invocation.operands + invocation.operandCount})));
  return exit_status::done.value;
}

}  // namespace ovxid::cli::command
