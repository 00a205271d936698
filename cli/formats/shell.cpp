#include <ovxid/environment.h>

#include "formats/format.h"

namespace ovxid::cli::format {

namespace {

// Between single quotes a shell changes nothing, but a single quote ends them.
std::string quotedWord(const std::string& value) {
  std::string text = "'";
  for (const char byte : value) {
    if (byte == '\'') {
      text += "'\\''";
    } else {
      text += byte;
    }
  }
  return text + "'";
}

}  // namespace

std::string shell(const Board& board) {
  std::string text;
  for (const ovx_param& variable : environment(board.parameters())) {
    if (isShellName(variable.name)) {
      text += "export " + variable.name + "=" + quotedWord(variable.value) + "\n";
    } else {
      text += leftOut(variable.name, "no shell has a variable of this name");
    }
  }
  return text;
}

}  // namespace ovxid::cli::format
