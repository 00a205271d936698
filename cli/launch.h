#ifndef OVXID_CLI_LAUNCH_H
#define OVXID_CLI_LAUNCH_H

#include <string>

#include "command.h"

namespace ovxid::cli {

enum class Launched { program, shell };

// Replaces the process by what the operands name. Returns the reason, as in errno, when it cannot.
int launch(const Invocation& invocation, Launched what);

// Complains that it could not be launched and returns the exit status.
int failedLaunch(const std::string& program, int reason);

}  // namespace ovxid::cli

#endif
