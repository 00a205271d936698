#include <string_view>

#include "board/board.h"
#include "board/board_file.h"
#include "command_line/command.h"
#include "formats/format.h"
#include "output/exit_status.h"
#include "output/output.h"
#include "output/output_file.h"

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
