#include <ovxid/parameters.h>

#include <algorithm>

#include "board.h"
#include "command.h"
#include "diagnostics.h"
#include "output.h"

namespace ovxid::cli::command {

int get(const Invocation& invocation) {
  const std::string name = invocation.operands[0];
  Board board(invocation.verbose);
  board.identify();
  board.collect();
  const auto variables = environment(parameters(board.identifier()));
  const auto variable = std::find_if(variables.begin(), variables.end(),
                                     [&](const ovx_param& each) { return each.name == name; });
  if (variable == variables.end()) {
    throw Failure(exit_status::no, name, "the board has no such parameter");
  }
  print(variable->value + "\n");
  return exit_status::done.value;
}

}  // namespace ovxid::cli::command
