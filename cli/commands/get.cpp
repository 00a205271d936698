#include <ovxid/environment.h>

#include <algorithm>
#include <iterator>

#include "board/board.h"
#include "board/board_file.h"
#include "command_line/command.h"
#include "command_line/suggestion.h"
#include "output/diagnostics.h"
#include "output/output.h"

namespace ovxid::cli::command {

namespace {

// The parameter that may be meant by a name that none has, also where its OVX_ is left out.
std::string meantBy(const std::string& name, const std::vector<ovx_param>& variables) {
  std::vector<std::string> known;
  std::transform(variables.begin(), variables.end(), std::back_inserter(known),
                 [](const ovx_param& each) { return each.name; });
  std::string meant = suggestion(name, known);
  if (meant.empty()) {
    meant = suggestion("OVX_" + name, known);
  }
  return meant;
}

}  // namespace

int get(const Invocation& invocation) {
  const std::string name = invocation.operands[0];
  Board board(hostOf(invocation), invocation.verbose);
  board.identify();
  board.collect();
  const auto variables = environment(board.parameters());
  const auto variable = std::find_if(variables.begin(), variables.end(),
                                     [&](const ovx_param& each) { return each.name == name; });
  if (variable == variables.end()) {
    throw Failure(exit_status::no, name,
                  "the board has no such parameter" + meantBy(name, variables));
  }
  print(variable->value + "\n");
  return exit_status::done.value;
}

}  // namespace ovxid::cli::command
