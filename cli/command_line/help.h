#ifndef OVXID_CLI_COMMAND_LINE_HELP_H
#define OVXID_CLI_COMMAND_LINE_HELP_H

#include <string>

#include "command_line/command.h"

namespace ovxid::cli {

std::string helpText();
std::string helpText(const Command& command);

}  // namespace ovxid::cli

#endif
