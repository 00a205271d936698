#include "arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <sstream>
#include <string_view>
#include <utility>

namespace {

constexpr std::pair<std::string_view, Command> commands[] = {{"list", Command::list},
                                                             {"name", Command::name},
                                                             {"number", Command::number},
                                                             {"run", Command::run},
                                                             {"shell", Command::shell}};

constexpr const char* exitStatuses =
    "Exit status:\n"
    "  0    done\n"
    "  1    the board is not identified\n"
    "  2    the command line is wrong\n"
    "  3    the output could not be written\n"
    "  125  ovxid itself failed: memory ran out, or an error that should not happen\n"
    "  126  the program of run or shell cannot be run\n"
    "  127  the program of run or shell was not found";

// The command line in two parts: the front end's own words, and the words of the program that it
// launches, which the parser of options never sees.
struct CommandLine {
  Command command;
  int ownCount;
  char** launched;
};

bool isOption(std::string_view word) { return word.size() > 1 && word[0] == '-' && word != "--"; }

const Command* findCommand(std::string_view word) {
  for (const auto& [name, command] : commands) {
    if (name == word) {
      return &command;
    }
  }
  return nullptr;
}

bool launches(Command command) { return command == Command::run || command == Command::shell; }

// Words that CLI11 accepts although they are no options of ours: with a value, as in
// "--verbose=true", or with a second option behind a second '-', as in "-v-help".
bool isMisread(std::string_view word) {
  const bool hasSecondDash = word.find('-', 1) != std::string_view::npos;
  return isOption(word) &&
         (word.find('=') != std::string_view::npos || (word[1] != '-' && hasSecondDash));
}

[[noreturn]] void refuse(const char* word) {
  throw UsageError(std::string("The following argument was not expected: ") + word);
}

void refuseMisread(char** word, char** end) {
  char** const misread = std::find_if(word, end, isMisread);
  if (misread != end) {
    refuse(*misread);
  }
}

bool asksForHelp(char** word, char** end) {
  return word != end && std::string_view(*word) == "--help";
}

// All words after `shell` belong to the shell, options included. Only a --help that comes first is
// ours.
char** firstOperand(char** command, char** end) {
  if (std::string_view(*command) == "shell" && !asksForHelp(command + 1, end)) {
    return command + 1;
  }
  return std::find_if_not(command + 1, end, isOption);
}

CommandLine divide(int argc, char** argv) {
  char** const end = argv + argc;
  char** const word = std::find_if_not(std::min(argv + 1, end), end, isOption);
  if (word == end) {
    return {Command::list, argc, end};
  }
  const Command* const command = findCommand(*word);
  if (command == nullptr) {
    refuse(*word);
  }
  char** const operand = firstOperand(word, end);
  if (operand == end) {
    return {*command, argc, end};
  }
  if (!launches(*command)) {
    refuse(*operand);
  }
  const bool mark = std::string_view(*operand) == "--";
  return {*command, static_cast<int>(operand - argv), mark ? operand + 1 : operand};
}

// Adds the words of the launched program to the usage line, since CLI11 does not know of them.
class LaunchFormatter : public CLI::Formatter {
 public:
  explicit LaunchFormatter(std::string operands) : mOperands(std::move(operands)) {}

  std::string make_usage(const CLI::App* app, std::string name) const override {
    std::string usage = CLI::Formatter::make_usage(app, std::move(name));
    return usage.insert(usage.find_last_not_of('\n') + 1, " " + mOperands);
  }

 private:
  std::string mOperands;
};

CLI::App* addCommand(CLI::App& app, const std::string& name, const std::string& description,
                     const std::string& example) {
  CLI::App* command = app.add_subcommand(name, description);
  command->fallthrough();
  command->group("Commands");
  command->footer("Example:\n  " + example);
  return command;
}

void describe(CLI::App& app, bool& verbose) {
  app.require_subcommand(0, 1);
  app.get_formatter()->label("SUBCOMMAND", "COMMAND");
  app.footer("Without a command: list.\n\n" + std::string(exitStatuses));
  app.set_version_flag("--version", "ovxid " OVXID_VERSION, "Print the version and exit");
  app.add_flag("-v,--verbose", verbose, "Print the library's messages on standard error");

  addCommand(app, "list", "Print the board parameters, one NAME=VALUE a line",
             "ovxid list | grep -a '^OVX_WAN='");
  addCommand(app, "name", "Print the board's name; fail if the board is not identified",
             "board=$(ovxid name | tr -d '\\0')");
  addCommand(app, "number", "Print the board's number; fail if the board is not identified",
             "test \"$(ovxid number)\" = 64 && echo this is a PC");
  addCommand(app, "run", "Run a program with the board parameters set in its environment",
             "ovxid run -- printenv OVX_ID")
      ->formatter(std::make_shared<LaunchFormatter>("[--] PROGRAM [ARG...]"));
  addCommand(app, "shell", "Run the user's shell with the board parameters set in its environment",
             "ovxid shell -c 'echo $OVX_DESC'")
      ->formatter(std::make_shared<LaunchFormatter>("[--] [ARG...]"));
}

// Only for a command line that has options: the start of the front end takes 5 % longer with them.
void readOptions(int argc, char** argv, Arguments& arguments) {
  CLI::App app("Tells which board this is.", "ovxid");
  describe(app, arguments.verbose);
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& request) {  // GCOVR_EXCL_BR_LINE: no other type is thrown
    std::ostringstream help;
    app.exit(request, help);
    arguments.help = help.str();
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
}

}  // namespace

Arguments readArguments(int argc, char** argv) {
  const CommandLine line = divide(argc, argv);
  refuseMisread(std::min(argv + 1, argv + line.ownCount), argv + line.ownCount);
  Arguments arguments;
  arguments.command = line.command;
  arguments.launched = line.launched;
  arguments.launchedCount = static_cast<int>(argv + argc - line.launched);

  char** const ownEnd = argv + line.ownCount;
  if (std::any_of(std::min(argv + 1, ownEnd), ownEnd, isOption)) {
    readOptions(line.ownCount, argv, arguments);
  }
  if (arguments.help.empty() && arguments.command == Command::run && arguments.launchedCount == 0) {
    throw UsageError("PROGRAM is required");
  }
  return arguments;
}
