#include <ovxid/environment.h>

#include <string_view>

#include "encoding/utf8.h"
#include "formats/format.h"

namespace ovxid::cli::format {

namespace {

// Of a file that is no UTF-8, or has a code point that is none of a character, systemd takes
// nothing. Control characters are allowed there, other than in Environment=.
bool isTaken(const std::string& value) { return isUtf8(value) && !hasNoncharacter(value); }

// Between double quotes, a backslash makes these stand for themselves.
std::string quotedAssignment(const std::string& value) {
  std::string text = "\"";
  for (const char byte : value) {
    if (std::string_view("\"\\`$").find(byte) != std::string_view::npos) {
      text += '\\';
    }
    text += byte;
  }
  return text + "\"";
}

}  // namespace

std::string systemd(const Board& board) {
  std::string text;
  for (const ovx_param& variable : environment(board.parameters())) {
    if (!isShellName(variable.name)) {
      text += leftOut(variable.name, "systemd takes no variable of this name");
    } else if (!isTaken(variable.value)) {
      text += leftOut(variable.name, "systemd takes no value with these bytes");
    } else {
      text += variable.name + "=" + quotedAssignment(variable.value) + "\n";
    }
  }
  return text;
}

}  // namespace ovxid::cli::format
