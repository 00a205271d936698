#include "answer.h"
#include "board_file.h"
#include "command.h"

namespace ovxid::cli::command {

int name(const Invocation& invocation) {
  Board board(hostOf(invocation), invocation.verbose);
  board.identify();
  return answer(board, board.name());
}

}  // namespace ovxid::cli::command
