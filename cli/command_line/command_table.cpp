#include "command_line/command_table.h"

#include <iterator>

#include "command_line/named.h"

namespace ovxid::cli {

// Each is defined in commands/, in the file of its name if not with others of its kind.
namespace command {
using Perform = int(const Invocation&);
Perform check, complete, explain, get, help, list, name, number, record, replay, run, shell;
}  // namespace command

namespace {

constexpr Option formatOption = {"format", '\0', "FORMAT", "Choose the format, plain if not given"};
constexpr Option outputOption = {"output", '\0', "FILE",
                                 "Write FILE instead of standard output, as a whole or not at all"};

constexpr Option ignoreOption = {"ignore", '\0', "WARNING",
                                 "Leave out the warnings of this name; may be given again"};

constexpr Option noMacOption = {"no-mac", '\0', nullptr,
                                "Write made-up MAC addresses in the place of the real ones"};

using OptionList = std::initializer_list<Option>;
constexpr OptionList none = {};
constexpr OptionList ofBoards = {boardOption, catalogueOption};
constexpr OptionList ofList = {formatOption, outputOption, boardOption, catalogueOption};
constexpr OptionList ofCheck = {ignoreOption};
constexpr OptionList ofRecord = {noMacOption, outputOption};
constexpr OptionList ofReplay = {catalogueOption};

constexpr Command table[] = {
    {"list", "", "Print the board parameters", "ovxid list --format json", command::list, ofList},
    {"get", "NAME", "Print the value of one parameter; fail if there is none",
     "wan=$(ovxid get OVX_WAN)", command::get, ofBoards},
    {"name", "", "Print the board's name; fail if the board is not identified",
     "board=$(ovxid name)", command::name, ofBoards},
    {"number", "", "Print the board's number; fail if the board is not identified",
     "test \"$(ovxid number)\" = 64 && echo this is a PC", command::number, ofBoards},
    {"explain", "", "Tell what each source said, and why the board is identified or not",
     "ovxid explain", command::explain, ofBoards},
    {"check", "[FILE...]", "Say what is wrong with catalogues, /etc/known_ovx_ids if none is given",
     "ovxid check --ignore same-number known_ovx_ids", command::check, ofCheck},
    {"record", "", "Write down this board as one document, to send it to somebody",
     "ovxid record --no-mac --output board-12.json", command::record, ofRecord},
    {"replay", "FILE [[--] PROGRAM [ARG...]]",
     "Run a program as on a recorded board; without one, look if ovxid says the same",
     "ovxid replay board-12.json ovxid explain", command::replay, ofReplay,
     Launches::secondOperand},
    {"run", "[--] PROGRAM [ARG...]",
     "Run a program with the board parameters set in its environment",
     "ovxid run -- printenv OVX_ID", command::run, none, Launches::firstOperand},
    {"shell", "[--] [ARG...]",
     "Run the user's shell with the board parameters set in its environment",
     "ovxid shell -c 'echo $OVX_DESC'", command::shell, none, Launches::everyWord},
    {"help", "[COMMAND]", "Print the help text of a command, or this one", "ovxid help run",
     command::help},
};

// For the completion scripts of the shells.
constexpr Command completeCommand = {"complete", "[--] WORD [WORD...]",
                                     "Print what may stand in the place of the last WORD",
                                     "ovxid complete -- list --format=", command::complete};

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
  std::vector<Option> options = command.options;
  options.insert(options.end(), {verboseOption, helpOption});
  return options;
}

}  // namespace ovxid::cli
