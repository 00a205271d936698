#ifndef OVXID_CLI_HELP_H
#define OVXID_CLI_HELP_H

#include <string>

#include "command.h"

namespace ovxid::cli {

std::string helpText();
std::string helpText(const Command& command);

}  // namespace ovxid::cli

#endif
