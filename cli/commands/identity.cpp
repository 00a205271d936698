#include "board/board.h"
#include "board/board_file.h"
#include "command_line/command.h"
#include "output/diagnostics.h"
#include "output/output.h"

namespace ovxid::cli::command {

namespace {

template <typename Answer>
int answer(const Invocation& invocation, Answer answerOf) {
  Board board(hostOf(invocation), invocation.verbose);
  board.identify();
  print(answerOf(board) + "\n");
  if (!board.isIdentified()) {
    complain("board", "not identified");
    return exit_status::no.value;
  }
  return exit_status::done.value;
}

}  // namespace

int name(const Invocation& invocation) {
  return answer(invocation, [](const Board& board) { return board.name(); });
}

int number(const Invocation& invocation) {
  return answer(invocation, [](const Board& board) { return std::to_string(board.number()); });
}

}  // namespace ovxid::cli::command
