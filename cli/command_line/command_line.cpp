#include "command_line/command_line.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "command_line/command_table.h"
#include "command_line/options.h"

namespace ovxid::cli {

namespace {

Invocation helpInvocation(int operandCount, char** operands) {
  Invocation help;
  help.command = &commandNamed("help");
  help.operandCount = operandCount;
  help.operands = operands;
  return help;
}

void checkOperands(const Invocation& invocation, const Options& options) {
  const Command& command = *invocation.command;
  const int most = command.mostOperands();
  if (invocation.operandCount < command.leastOperands()) {
    options.refuse(command.name, command.operandAt(0) + " is missing");
  }
  if (invocation.operandCount > most) {
    options.refuse(invocation.operands[most],
                   std::string("too many arguments for '") + command.name + "'");
  }
}

// Options before the command are those of the command, if it has them.
void checkOptions(const Invocation& invocation, const Options& options) {
  const std::vector<Option> known = optionsOf(*invocation.command);
  for (const auto& [name, argument] : invocation.options) {
    const auto isThis = [name = name](const Option& each) { return name == each.name; };
    if (std::none_of(known.begin(), known.end(), isThis)) {
      options.refuse("--" + std::string(name),
                     std::string("is no option of '") + invocation.command->name + "'");
    }
  }
}

// Reads the words from the command's own on. The options before it are read already.
Invocation readCommand(Invocation invocation, int argc, char** argv) {
  Options options = optionReader(*invocation.command);
  checkOptions(invocation, options);
  while (const Option* const option = options.next(argc, argv)) {
    if (option->is(helpOption)) {
      return helpInvocation(1, argv);
    }
    if (option->is(verboseOption)) {
      invocation.verbose = true;
    } else {
      invocation.options.emplace_back(option->name, options.argument());
    }
  }
  invocation.operandCount = argc - optind;
  invocation.operands = argv + optind;
  checkOperands(invocation, options);
  return invocation;
}

// All words behind the command belong to the shell, options included. Only a --help or a -- that
// comes first is ours.
Invocation readShell(Invocation invocation, int argc, char** argv) {
  checkOptions(invocation, optionReader(*invocation.command));
  const std::string_view first = argc > 1 ? argv[1] : "";
  if (first == "--help") {
    return helpInvocation(1, argv);
  }
  const int skipped = first == "--" ? 2 : 1;
  invocation.operandCount = argc - skipped;
  invocation.operands = argv + skipped;
  return invocation;
}

}  // namespace

Invocation readCommandLine(int argc, char** argv) {
  Options options = generalOptionReader();
  Invocation invocation;
  while (const Option* const option = options.next(argc, argv)) {
    if (option->is(verboseOption)) {
      invocation.verbose = true;
      continue;
    }
    if (option->argument != nullptr) {
      invocation.options.emplace_back(option->name, options.argument());
      continue;
    }
    Invocation help = helpInvocation(0, nullptr);
    if (option->is(versionOption)) {
      help.options.emplace_back(option->name, nullptr);
    }
    return help;
  }
  if (optind >= argc) {
    invocation.command = commandTable.begin();
    return invocation;
  }
  const int position = optind;
  invocation.command = &commandNamed(argv[position]);
  const auto read = invocation.command->launches == Launches::everyWord ? readShell : readCommand;
  return read(std::move(invocation), argc - position, argv + position);
}

}  // namespace ovxid::cli
