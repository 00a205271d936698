#ifndef OVXID_CLI_COMMAND_LINE_COMMAND_TABLE_H
#define OVXID_CLI_COMMAND_LINE_COMMAND_TABLE_H

#include <string_view>
#include <vector>

#include "command_line/command.h"

namespace ovxid::cli {

// The commands in the order in which the help shows them; the first is the one that needs no name.
// `complete` is found by its name, but is not among them: only completion scripts call it.
struct CommandTable {
  const Command* begin() const;
  const Command* end() const;
};

constexpr CommandTable commandTable;

// Throws Failure if there is no command of this name.
const Command& commandNamed(std::string_view name);

constexpr Option verboseOption = {"verbose", 'v', nullptr,
                                  "Print the library's messages on standard error"};
constexpr Option helpOption = {"help", 'h', nullptr, "Print a help text and exit"};
constexpr Option versionOption = {"version", 'V', nullptr, "Print the version and exit"};

constexpr Option boardOption = {"board", '\0', "FILE",
                                "Ask a recorded board, or standard input, instead of this one"};
constexpr Option catalogueOption = {"catalogue", '\0', "FILE",
                                    "Read this catalogue instead of the board's own"};

// The options that stand before the command, and those that stand behind this one.
std::vector<Option> generalOptions();
std::vector<Option> optionsOf(const Command& command);

}  // namespace ovxid::cli

#endif
