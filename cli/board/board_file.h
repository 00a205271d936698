#ifndef OVXID_CLI_BOARD_BOARD_FILE_H
#define OVXID_CLI_BOARD_BOARD_FILE_H

#include <memory>

#include "command_line/command.h"
#include "host/host.h"

namespace ovxid::cli {

// The board that the command line names, with the catalogue that it names: else this machine, and
// its own. Throws Failure if it cannot be read.
std::shared_ptr<const Host> hostOf(const Invocation& invocation);

}  // namespace ovxid::cli

#endif
