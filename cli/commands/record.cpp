#include <string_view>

#include "command_line/command.h"
#include "output/diagnostics.h"
#include "output/output.h"
#include "output/output_file.h"
#include "record/board.h"
#include "recording/limits.h"
#include "recording/writer.h"

namespace ovxid::cli::command {

int record(const Invocation& invocation) {
  const std::string document = recording::documentOf(recordBoard(invocation.has("no-mac")));
  if (document.size() > recording::limit::document) {
    throw Failure(
        exit_status::notRead, "board",
        "a recording holds no more than " + std::to_string(recording::limit::document) + " bytes");
  }
  const char* const file = invocation.option("output", "-");
  if (std::string_view(file) == "-") {
    print(document);
  } else {
    replaceFile(file, document, 0600);
  }
  return exit_status::done.value;
}

}  // namespace ovxid::cli::command
