#ifndef OVXID_CLI_COMMANDS_H
#define OVXID_CLI_COMMANDS_H

#include "arguments.h"

namespace exit_status {
constexpr int done = 0;
constexpr int notIdentified = 1;
constexpr int usage = 2;
constexpr int notWritten = 3;
constexpr int cannotRun = 126;
constexpr int notFound = 127;
}  // namespace exit_status

// One line on standard error: what failed, and why.
void complain(const std::string& what, const std::string& why);

// Carries the command out and returns the exit status.
int perform(const Arguments& arguments);

#endif
