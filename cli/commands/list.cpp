#include <string_view>

#include "board.h"
#include "board_file.h"
#include "command.h"
#include "exit_status.h"
#include "format.h"
#include "output.h"
#include "output_file.h"

namespace ovxid::cli::command {

int list(const Invocation& invocation) {
  const Format& format = formatNamed(invocation.option("format", defaultFormat));
  const char* const file = invocation.option("output", nullptr);
  Board board(hostOf(invocation), invocation.verbose);
  board.identify();
  board.collect();
  const std::string text = format.write(board);
  if (file == nullptr || std::string_view(file) == "-") {
    print(text);
  } else {
    replaceFile(file, text);
  }
  return exit_status::done.value;
}

}  // namespace ovxid::cli::command
