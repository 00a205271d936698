#ifndef OVXID_CLI_COMMANDS_H
#define OVXID_CLI_COMMANDS_H

#include <stdexcept>
#include <string>

#include "arguments.h"

namespace exit_status {
constexpr int done = 0;
constexpr int notIdentified = 1;
constexpr int usage = 2;
constexpr int notWritten = 3;
// The status that env(1) and timeout(1) have for a failure of their own.
constexpr int ownFailure = 125;
constexpr int cannotRun = 126;
constexpr int notFound = 127;
}  // namespace exit_status

// One line on standard error: what failed, and why.
void complain(const std::string& what, const std::string& why);

using SignalHandler = void (*)(int);

// The search for the identity ended, because a file of the board is malformed.
struct IdentificationError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Carries out the command and returns the exit status. A launched program gets the `inherited`
// handler of SIGPIPE.
int perform(const Arguments& arguments, SignalHandler inherited);

#endif
