#include "answer.h"
#include "command.h"
#include "host/this_machine.h"

namespace ovxid::cli::command {

int name(const Invocation& invocation) {
  const ThisMachine machine;
  Board board(machine, invocation.verbose);
  board.identify();
  return answer(board, board.name());
}

}  // namespace ovxid::cli::command
