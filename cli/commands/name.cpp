#include "answer.h"
#include "command.h"

namespace ovxid::cli::command {

int name(const Invocation& invocation) {
  Board board(invocation.verbose);
  board.identify();
  return answer(board, board.name());
}

}  // namespace ovxid::cli::command
