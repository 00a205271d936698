#include "command_line/help.h"

#include "command_line/command_table.h"
#include "output/exit_status.h"
#include "output/output.h"

namespace ovxid::cli::command {

int help(const Invocation& invocation) {
  if (invocation.has("version")) {
    print("ovxid " OVXID_VERSION "\n");
  } else if (invocation.operandCount == 0) {
    print(helpText());
  } else {
    print(helpText(commandNamed(invocation.operands[0])));
  }
  return exit_status::done.value;
}

}  // namespace ovxid::cli::command
