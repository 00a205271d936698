#ifndef OVXID_CLI_COMMAND_LINE_COMPLETION_H
#define OVXID_CLI_COMMAND_LINE_COMPLETION_H

#include <string>

#include "command_line/place.h"

namespace ovxid::cli {

// What a completion script needs to know about a place: nothing if nothing may stand there, or a
// line
//   words PREFIX   what may stand behind the prefix follows, one a line, its summary behind a tab
//   files PREFIX   a file may stand behind the prefix
//   program COUNT  behind so many words begins the command line of another program
// For a parameter, looks at the board. Throws Failure when that fails.
std::string completion(const Place& place);

}  // namespace ovxid::cli

#endif
