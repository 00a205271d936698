#include "command_table.h"

#include <climits>
#include <iterator>

#include "named.h"

namespace ovxid::cli {

// Each is defined in the file of its name in commands/.
namespace command {
using Perform = int(const Invocation&);
Perform check, complete, explain, get, help, list, name, number, record, replay, run, shell;
}  // namespace command

namespace {

constexpr int any = INT_MAX;

constexpr Option formatOption = {"format", '\0', "FORMAT", "Choose the format, plain if not given"};
constexpr Option outputOption = {"output", '\0', "FILE",
                                 "Write FILE instead of standard output, as a whole or not at all"};

constexpr Option ignoreOption = {"ignore", '\0', "WARNING",
                                 "Leave out the warnings of this name; may be given again"};

constexpr Option noMacOption = {"no-mac", '\0', nullptr,
                                "Write made-up MAC addresses in the place of the real ones"};

constexpr Command table[] = {
    {"list",
     "",
     0,
     0,
     Launches::nothing,  //
     "Print the board parameters",
     "ovxid list --format json",  //
     {formatOption, outputOption, boardOption, catalogueOption},
     command::list},
    {"get",
     "NAME",
     1,
     1,
     Launches::nothing,
     "Print the value of one parameter; fail if there is none",
     "wan=$(ovxid get OVX_WAN)",
     {boardOption, catalogueOption},
     command::get},
    {"name",
     "",
     0,
     0,
     Launches::nothing,
     "Print the board's name; fail if the board is not identified",
     "board=$(ovxid name)",
     {boardOption, catalogueOption},
     command::name},
    {"number",
     "",
     0,
     0,
     Launches::nothing,
     "Print the board's number; fail if the board is not identified",
     "test \"$(ovxid number)\" = 64 && echo this is a PC",
     {boardOption, catalogueOption},
     command::number},
    {"explain",
     "",
     0,
     0,
     Launches::nothing,
     "Tell what each source said, and why the board is identified or not",
     "ovxid explain",
     {boardOption, catalogueOption},
     command::explain},
    {"check",
     "[FILE...]",
     0,
     any,
     Launches::nothing,
     "Say what is wrong with catalogues, /etc/known_ovx_ids if none is given",
     "ovxid check --ignore same-number known_ovx_ids",
     {ignoreOption},
     command::check},
    {"record",
     "",
     0,
     0,
     Launches::nothing,
     "Write down this board as one document, to send it to somebody",
     "ovxid record --no-mac --output board-12.json",
     {noMacOption, outputOption},
     command::record},
    {"replay",
     "FILE [[--] PROGRAM [ARG...]]",
     1,
     any,
     Launches::secondOperand,
     "Run a program as on a recorded board; without one, look if ovxid says the same",
     "ovxid replay board-12.json ovxid explain",
     {catalogueOption},
     command::replay},
    {"run",
     "[--] PROGRAM [ARG...]",
     1,
     any,
     Launches::firstOperand,
     "Run a program with the board parameters set in its environment",
     "ovxid run -- printenv OVX_ID",
     {},
     command::run},
    {"shell",
     "[--] [ARG...]",
     0,
     any,
     Launches::everyWord,
     "Run the user's shell with the board parameters set in its environment",
     "ovxid shell -c 'echo $OVX_DESC'",
     {},
     command::shell},
    {"help",
     "[COMMAND]",
     0,
     1,
     Launches::nothing,
     "Print the help text of a command, or this one",
     "ovxid help run",
     {},
     command::help},
};

// For the completion scripts of the shells.
constexpr Command completeCommand = {"complete",
                                     "[--] WORD [WORD...]",
                                     1,
                                     any,
                                     Launches::nothing,
                                     "Print what may stand in the place of the last WORD",
                                     "ovxid complete -- list --format=",
                                     {},
                                     command::complete};

}  // namespace

const Command* CommandTable::begin() const { return std::begin(table); }
const Command* CommandTable::end() const { return std::end(table); }

const Command& commandNamed(std::string_view name) {
  if (name == completeCommand.name) {
    return completeCommand;
  }
  return named(commandTable, name, "command", "ovxid --help");
}

std::vector<Option> generalOptions() {
  return {verboseOption, boardOption, catalogueOption, helpOption, versionOption};
}

std::vector<Option> optionsOf(const Command& command) {
  std::vector<Option> options;
  std::copy_if(std::begin(command.options), std::end(command.options), std::back_inserter(options),
               [](const Option& option) { return option.name != nullptr; });
  options.insert(options.end(), {verboseOption, helpOption});
  return options;
}

}  // namespace ovxid::cli
