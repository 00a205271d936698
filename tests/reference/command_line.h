#ifndef OVXID_TESTS_REFERENCE_COMMAND_LINE_H
#define OVXID_TESTS_REFERENCE_COMMAND_LINE_H

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace reference {

// What a command line asks for, as the manual page of the front end has it. A request for a help
// text is one for the command help, and one for the version has an option of this name.
struct Request {
  bool isUsageError = true;
  std::string command;
  bool verbose = false;
  // Names and values.
  std::vector<std::pair<std::string, std::string>> options;
  std::vector<std::string> operands;
};

// Options by their names, and whether they have a value.
using Options = std::map<std::string, bool>;

// The options of each command. Those that may stand before a command are those of the name "".
std::map<std::string, Options> optionsOfCommands();

// The words do not have the name of the front end among them.
Request readCommandLine(const std::vector<std::string>& words);

}  // namespace reference

#endif
