#include "arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <string_view>

namespace {

const std::map<std::string, Command> commands{{"list", Command::list},
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
    "  126  the program of run or shell cannot be run\n"
    "  127  the program of run or shell was not found";

// The command line in two: the front end's own words, and those of the program it launches, which
// are not its business to interpret.
struct CommandLine {
  int ownCount;
  char** launched;
};

bool isOption(std::string_view word) { return word.size() > 1 && word[0] == '-' && word != "--"; }

bool asksForHelp(std::string_view word) { return word == "-h" || word == "--help"; }

char** skipMark(char** word, char** end) {
  return word != end && std::string_view(*word) == "--" ? word + 1 : word;
}

CommandLine divide(int argc, char** argv) {
  char** const end = argv + argc;
  char** const command = std::find_if_not(argv + 1, end, isOption);
  if (command != end && std::string_view(*command) == "--") {
    throw UsageError("The following argument was not expected: --");
  }
  char** own = end;
  char** launched = end;
  if (command != end && std::string_view(*command) == "run") {
    launched = skipMark(std::find_if_not(command + 1, end, isOption), end);
    own = std::min(launched + 1, end);
  } else if (command != end && std::string_view(*command) == "shell" &&
             !(command + 1 != end && asksForHelp(command[1]))) {
    launched = skipMark(command + 1, end);
    own = command + 1;
  }
  return {static_cast<int>(own - argv), launched};
}

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
             "board=$(ovxid name) || exit 1");
  addCommand(app, "number", "Print the board's number; fail if the board is not identified",
             "test \"$(ovxid number)\" = 64 && echo this is a PC");
  CLI::App* run =
      addCommand(app, "run", "Run a program with the board parameters set in its environment",
                 "ovxid run -- printenv OVX_ID");
  run->add_option("PROGRAM", "The program, looked up in PATH")->required()->type_name("");
  run->add_option("ARG", "Its arguments, options included")->expected(0, -1)->type_name("");
  CLI::App* shell = addCommand(
      app, "shell", "Run the user's shell with the board parameters set in its environment",
      "ovxid shell -c 'echo $OVX_DESC'");
  shell->add_option("ARG", "The shell's arguments, options included")
      ->expected(0, -1)
      ->type_name("");
}

}  // namespace

Arguments readArguments(int argc, char** argv) {
  const CommandLine line = divide(argc, argv);
  Arguments arguments;
  arguments.launched = line.launched;
  arguments.launchedCount = static_cast<int>(argv + argc - line.launched);

  CLI::App app("Tells which board this is.", "ovxid");
  describe(app, arguments.verbose);
  try {
    app.parse(line.ownCount, argv);
  } catch (const CLI::Success& request) {
    std::ostringstream help;
    app.exit(request, help);
    arguments.command = Command::help;
    arguments.help = help.str();
    return arguments;
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
  for (const CLI::App* command : app.get_subcommands()) {
    arguments.command = commands.at(command->get_name());
  }
  return arguments;
}
