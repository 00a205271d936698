#include "answer.h"
#include "command.h"
#include "host/this_machine.h"

namespace ovxid::cli::command {

int number(const Invocation& invocation) {
  const ThisMachine machine;
  Board board(machine, invocation.verbose);
  board.identify();
  return answer(board, std::to_string(board.number()));
}

}  // namespace ovxid::cli::command
