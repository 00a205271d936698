#include "answer.h"
#include "board_file.h"
#include "command.h"

namespace ovxid::cli::command {

int number(const Invocation& invocation) {
  Board board(hostOf(invocation), invocation.verbose);
  board.identify();
  return answer(board, std::to_string(board.number()));
}

}  // namespace ovxid::cli::command
