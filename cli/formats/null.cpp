#include <ovxid/parameters.h>

#include "format.h"

namespace ovxid::cli::format {

std::string null(Board& board) {
  std::string text;
  for (const ovx_param& variable : environment(parameters(board.identifier()))) {
    text.append(variable.name).append("=").append(variable.value).append(1, '\0');
  }
  return text;
}

}  // namespace ovxid::cli::format
