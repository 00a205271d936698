#include "answer.h"

#include "diagnostics.h"
#include "output.h"

namespace ovxid::cli {

int answer(const Board& board, const std::string& text) {
  print(text + "\n");
  if (!board.isIdentified()) {
    complain("board", "not identified");
    return exit_status::no.value;
  }
  return exit_status::done.value;
}

}  // namespace ovxid::cli
