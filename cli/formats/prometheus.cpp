#include <ovxid/environment.h>

#include "encoding/utf8.h"
#include "encoding/visible.h"
#include "formats/format.h"

namespace ovxid::cli::format {

namespace {

std::string quotedLabel(const std::string& value) {
  std::string text = "\"";
  for (const char byte : value) {
    if (byte == '"' || byte == '\\' || byte == '\n') {
      text += '\\';
    }
    text += byte == '\n' ? 'n' : byte;
  }
  return text + "\"";
}

std::string metric(const std::string& name, const std::string& help) {
  return "# HELP " + name + " " + help + "\n# TYPE " + name + " gauge\n";
}

std::string boardInfo(const Board& board) {
  const Source* const source = board.decidedBy();
  std::string name = board.name();
  if (!isUtf8(name)) {
    name = visible(name);
  }
  return "ovxid_board_info{name=" + quotedLabel(name) + ",number=\"" +
         std::to_string(board.number()) + "\",source=\"" + (source == nullptr ? "" : source->name) +
         "\"} 1\n";
}

}  // namespace

std::string prometheus(const Board& board) {
  std::string text = metric("ovxid_identified", "Whether the board is identified.") +
                     "ovxid_identified " + (board.isIdentified() ? "1" : "0") + "\n" +
                     metric("ovxid_board_info", "The identity of the board.") + boardInfo(board) +
                     metric("ovxid_parameter_info", "The board parameters that are text.");
  for (const ovx_param& variable : environment(board.parameters())) {
    if (isUtf8(variable.name) && isUtf8(variable.value)) {
      text += "ovxid_parameter_info{name=" + quotedLabel(variable.name) +
              ",value=" + quotedLabel(variable.value) + "} 1\n";
    }
  }
  return text;
}

}  // namespace ovxid::cli::format
