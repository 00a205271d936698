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

// Its text says which help it is.
void expectHelpOf(const std::string& command, const std::string& text) {
  const std::string usage = "Usage: ovxid " + (command.empty() ? command : command + " ");
  expectSame("whether it is the help of '" + command + "'",
             text.find(usage + "[OPTIONS]") != std::string::npos, true);
}

void expectSameRequest(const Arguments& arguments, const Request& reference) {
  switch (reference.kind) {
    case Request::Kind::usageError:
      expectSame("whether it is refused", false, true);
      break;
    case Request::Kind::version:
      expectSame<std::string>("version", arguments.help, "ovxid " OVXID_VERSION "\n");
      break;
    case Request::Kind::help:
      expectHelpOf(reference.command, arguments.help);
      break;
    case Request::Kind::command:
      expectSame<std::string>("text in place of a command", arguments.help, "");
      expectSameCommand(arguments, reference);
      break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Words words = wordsOf({data, data + size});
  const Request reference = reference::readCommandLine(words);
  words.insert(words.begin(), "ovxid");
  std::vector<char*> argv = pointers(words);
  try {
    expectSameRequest(readArguments(static_cast<int>(words.size()), argv.data()), reference);
  } catch (const UsageError& error) {
    expectSame(std::string("whether it is refused: ") + error.what(), true,
               reference.kind == Request::Kind::usageError);
  }
  return 0;
}
