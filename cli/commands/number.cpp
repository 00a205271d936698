#include "answer.h"
#include "command.h"

namespace ovxid::cli::command {

int number(const Invocation& invocation) {
  Board board(invocation.verbose);
  board.identify();
  return answer(board, std::to_string(board.number()));
}

}  // namespace ovxid::cli::command
