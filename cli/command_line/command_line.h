#ifndef OVXID_CLI_COMMAND_LINE_COMMAND_LINE_H
#define OVXID_CLI_COMMAND_LINE_COMMAND_LINE_H

#include "command_line/command.h"

namespace ovxid::cli {

// Reads the command line by the table of commands. A request for a help text or the version becomes
// an invocation of `help`. Throws Failure when the command line is wrong.
Invocation readCommandLine(int argc, char** argv);

}  // namespace ovxid::cli

#endif
