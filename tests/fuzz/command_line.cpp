// The input is the command line of the front end, a word a line, without the front end's name.

#include "reference/command_line.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <sstream>

#include "../../cli/arguments.h"
#include "fuzz/compare.h"
#include "simulation/child.h"

using Words = std::vector<std::string>;
using reference::Request;

namespace {

Words wordsOf(const std::string& text) {
  Words words;
  std::istringstream lines(text);
  for (std::string word; std::getline(lines, word);) {
    // As a program receives it, a word ends at its first NUL byte.
    words.emplace_back(word.c_str());
  }
  return words;
}

Arguments read(const Words& words, std::vector<char*>& argv, Words& kept) {
  kept = words;
  kept.insert(kept.begin(), "ovxid");
  argv = pointers(kept);
  return readArguments(static_cast<int>(kept.size()), argv.data());
}

std::string helpOf(const std::string& command) {
  std::vector<char*> argv;
  Words kept;
  return read(command.empty() ? Words{"--help"} : Words{command, "--help"}, argv, kept).help;
}

std::string nameOf(Command command) {
  const std::map<Command, std::string> names{{Command::list, "list"},
                                             {Command::name, "name"},
                                             {Command::number, "number"},
                                             {Command::run, "run"},
                                             {Command::shell, "shell"}};
  return names.at(command);
}

void expectSameCommand(const Arguments& arguments, const Request& reference) {
  expectSame("command", nameOf(arguments.command),
             reference.command.empty() ? "list" : reference.command);
  expectSame("whether it is verbose", arguments.verbose, reference.verbose);
  const Words launched(arguments.launched, arguments.launched + arguments.launchedCount);
  expectSame("launched words", launched, reference.launched);
  expectSame("whether they end in a null pointer",
             arguments.launched[arguments.launchedCount] == nullptr, true);
}

std::string textFor(const Request& request) {
  switch (request.kind) {
    case Request::Kind::help:
      return helpOf(request.command);
    case Request::Kind::version:
      return "ovxid " OVXID_VERSION "\n";
    default:
      return "";
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Words words = wordsOf({data, data + size});
  const Request reference = reference::readCommandLine(words);
  const bool isRefused = reference.kind == Request::Kind::usageError;
  std::vector<char*> argv;
  Words kept;
  try {
    const Arguments arguments = read(words, argv, kept);
    expectSame("whether it is refused", false, isRefused);
    expectSame("text to print", arguments.help, textFor(reference));
    if (reference.kind == Request::Kind::command) {
      expectSameCommand(arguments, reference);
    }
  } catch (const UsageError& error) {
    expectSame(std::string("whether it is refused (") + error.what() + ")", true, isRefused);
  }
  return 0;
}
