#ifndef OVXID_TESTS_REFERENCE_COMMAND_LINE_H
#define OVXID_TESTS_REFERENCE_COMMAND_LINE_H

#include <string>
#include <vector>

namespace reference {

// What a command line asks for, as the manual page of the front end has it.
struct Request {
  enum class Kind { usageError, version, help, command } kind;
  // The empty name stands for none.
  std::string command;
  bool verbose;
  std::vector<std::string> launched;
};

// The words do not have the name of the front end among them.
Request readCommandLine(const std::vector<std::string>& words);

}  // namespace reference

#endif
