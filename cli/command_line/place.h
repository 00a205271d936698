#ifndef OVXID_CLI_COMMAND_LINE_PLACE_H
#define OVXID_CLI_COMMAND_LINE_PLACE_H

#include <string>

#include "command_line/command.h"

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
  // How many words stand before the program that the command launches, the front end's own name
  // aside. Known where the program or its arguments stand.
  int program = 0;
};

// Reads the words behind the first, which is the front end's own name. There is at least one.
// Throws Failure when one before the last is wrong.
Place placeOfLast(int argc, char** argv);

}  // namespace ovxid::cli

#endif
