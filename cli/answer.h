#ifndef OVXID_CLI_ANSWER_H
#define OVXID_CLI_ANSWER_H

#include "board.h"

namespace ovxid::cli {

// Prints what was asked about the board's identity, and complains when it has none. Returns the
// exit status.
int answer(const Board& board, const std::string& text);

}  // namespace ovxid::cli

#endif
