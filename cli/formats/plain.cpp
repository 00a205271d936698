#include "formats/format.h"
#include "params/list.h"

namespace ovxid::cli::format {

std::string plain(const Board& board) {
  std::string text;
  for (const ovx_param& parameter : board.parameters()) {
    appendLine(text, parameter);
  }
  return text;
}

}  // namespace ovxid::cli::format
