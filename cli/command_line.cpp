#include "command_line.h"

#include <getopt.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "command_table.h"
#include "diagnostics.h"
#include "suggestion.h"

namespace ovxid::cli {

namespace {

// Of the words that getopt_long(3) reads, how far its options may stand.
enum class Reach { beforeOperands, everywhere };

// A list of options as getopt_long(3) wants it.
class Options {
 public:
  Options(std::vector<Option> options, Reach reach, std::string help);

  // The next option and its argument, or null behind the last one. Throws Failure.
  const Option* next(int argc, char** argv) const;

  // Throws Failure for the word, which is why.
  [[noreturn]] void refuse(const std::string& word, const std::string& why) const;

 private:
  int code(const Option& option) const;
  const Option* find(int code) const;
  [[noreturn]] void refuseUnknown(const std::string& word) const;

  std::vector<Option> mOptions;
  std::vector<::option> mLong;
  std::string mShort;
  std::string mHelp;
};

Options::Options(std::vector<Option> options, Reach reach, std::string help)
    : mOptions(std::move(options)),
      mShort(reach == Reach::beforeOperands ? "+:" : ":"),
      mHelp(std::move(help)) {
  for (const Option& each : mOptions) {
    const int hasArgument = each.argument == nullptr ? no_argument : required_argument;
    mLong.push_back({each.name, hasArgument, nullptr, code(each)});
    if (each.letter != '\0') {
      mShort += each.letter;
    }
  }
  mLong.push_back({});
  if (reach == Reach::everywhere) {
    // It would end the options at the first operand. Nothing is launched that could miss it.
    unsetenv("POSIXLY_CORRECT");
  }
  // Makes getopt_long(3) begin anew.
  optind = 0;
  opterr = 0;
}

const Option* Options::next(int argc, char** argv) const {
  const int read = getopt_long(argc, argv, mShort.c_str(), mLong.data(), nullptr);
  if (read == -1) {
    return nullptr;
  }
  const char* const word = argv[optind - 1];
  if (read == ':') {
    refuse(word, std::string("needs a ") + find(optopt)->argument);
  }
  if (read == '?' && find(optopt) != nullptr) {
    refuse(word, "takes no value");
  }
  if (read == '?') {
    refuseUnknown(word);
  }
  return find(read);
}

void Options::refuse(const std::string& word, const std::string& why) const {
  throw Failure(exit_status::usage, word, why + " (see '" + mHelp + "')");
}

void Options::refuseUnknown(const std::string& word) const {
  if (optopt != 0) {
    refuse({'-', static_cast<char>(optopt)}, "no such option");
  }
  const std::string name = word.substr(0, word.find('='));
  std::vector<std::string> known;
  std::string meant;
  for (const Option& each : mOptions) {
    known.push_back(std::string("--") + each.name);
    if (known.back().compare(0, name.size(), name) == 0) {
      meant += (meant.empty() ? "" : " or ") + known.back();
    }
  }
  refuse(name, meant.empty() ? "no such option" + suggestion(name, known) : "may be " + meant);
}

// Above all letters for options that have none.
int Options::code(const Option& option) const {
  return option.letter == '\0' ? 256 + static_cast<int>(&option - mOptions.data()) : option.letter;
}

const Option* Options::find(int wanted) const {
  const auto found = std::find_if(mOptions.begin(), mOptions.end(),
                                  [&](const Option& each) { return code(each) == wanted; });
  return found == mOptions.end() ? nullptr : &*found;
}

bool isNamed(const Option& option, std::string_view name) { return option.name == name; }

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
    const std::string_view operands = command.operands;
    const auto first = operands.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    const std::string_view missing = operands.substr(first, operands.find(' ', first) - first);
    options.refuse(command.name, std::string(missing) + " is missing");
  }
  if (invocation.operandCount > command.mostOperands) {
    options.refuse(invocation.operands[command.mostOperands],
                   std::string("too many arguments for '") + command.name + "'");
  }
}

// Reads the words from the command's own on.
Invocation readCommand(const Command& command, int argc, char** argv, bool verbose) {
  const Options options(
      optionsOf(command),
      command.launches == Launches::nothing ? Reach::everywhere : Reach::beforeOperands,
      std::string("ovxid help ") + command.name);
  Invocation invocation;
  invocation.command = &command;
  invocation.verbose = verbose;
  while (const Option* const option = options.next(argc, argv)) {
    if (isNamed(*option, helpOption.name)) {
      return helpInvocation(1, argv);
    }
    if (isNamed(*option, verboseOption.name)) {
      invocation.verbose = true;
    } else {
      invocation.options.emplace_back(option->name, optarg);
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
  const Options options(generalOptions(), Reach::beforeOperands, "ovxid --help");
  bool verbose = false;
  while (const Option* const option = options.next(argc, argv)) {
    if (isNamed(*option, verboseOption.name)) {
      verbose = true;
      continue;
    }
    Invocation help = helpInvocation(0, nullptr);
    if (isNamed(*option, versionOption.name)) {
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
