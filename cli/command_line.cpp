#include "command_line.h"

#include <string_view>

#include "command_table.h"
#include "options.h"

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
  if (invocation.operandCount < command.leastOperands) {
    options.refuse(command.name, command.operandAt(0) + " is missing");
  }
  if (invocation.operandCount > command.mostOperands) {
    options.refuse(invocation.operands[command.mostOperands],
                   std::string("too many arguments for '") + command.name + "'");
  }
}

// Reads the words from the command's own on.
Invocation readCommand(const Command& command, int argc, char** argv, bool verbose) {
  Options options = optionReader(command);
  Invocation invocation;
  invocation.command = &command;
  invocation.verbose = verbose;
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
Invocation readShell(const Command& command, int argc, char** argv, bool verbose) {
  const std::string_view first = argc > 1 ? argv[1] : "";
  if (first == "--help") {
    return helpInvocation(1, argv);
  }
  const int skipped = first == "--" ? 2 : 1;
  Invocation invocation;
  invocation.command = &command;
  invocation.verbose = verbose;
  invocation.operandCount = argc - skipped;
  invocation.operands = argv + skipped;
  return invocation;
}

}  // namespace

Invocation readCommandLine(int argc, char** argv) {
  Options options = generalOptionReader();
  bool verbose = false;
  while (const Option* const option = options.next(argc, argv)) {
    if (option->is(verboseOption)) {
      verbose = true;
      continue;
    }
    Invocation help = helpInvocation(0, nullptr);
    if (option->is(versionOption)) {
      help.options.emplace_back(option->name, nullptr);
    }
    return help;
  }
  if (optind >= argc) {
    Invocation invocation;
    invocation.command = commandTable.begin();
    invocation.verbose = verbose;
    return invocation;
  }
  const int position = optind;
  const Command& command = commandNamed(argv[position]);
  const auto read = command.launches == Launches::everyWord ? readShell : readCommand;
  return read(command, argc - position, argv + position, verbose);
}

}  // namespace ovxid::cli
