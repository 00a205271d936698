#include <ovxid/environment.h>

#include "formats/format.h"

namespace ovxid::cli::format {

std::string null(const Board& board) {
  std::string text;
  for (const ovx_param& variable : environment(board.parameters())) {
    text.append(variable.name).append("=").append(variable.value).append(1, '\0');
  }
  return text;
}

}  // namespace ovxid::cli::format
