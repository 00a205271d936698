#ifndef OVXID_CLI_PLACE_H
#define OVXID_CLI_PLACE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "command.h"

namespace ovxid::cli {

// The place of the last word on a command line that is not finished yet.
struct Place {
  // Null before the command.
  const Command* command = nullptr;
  // What may stand there: COMMAND, OPTION, or what the table of commands calls the operand or the
  // argument of the option, as FORMAT. Empty if nothing may.
  std::string placeholder;
  // What stands there already and stays, such as "--format=".
  std::string prefix;
  // How many words stand before the first operand of the command.
  std::size_t firstOperand = 0;
};

// The words are those behind the front end's own name. Throws Failure when one before the last is
// wrong.
Place placeOfLast(const std::vector<std::string_view>& words);

}  // namespace ovxid::cli

#endif
