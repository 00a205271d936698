#ifndef OVXID_CLI_COMMAND_LINE_COMMAND_H
#define OVXID_CLI_COMMAND_LINE_COMMAND_H

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ovxid::cli {

// An option: its words on the command line, the name of its argument if it has one, and its help.
struct Option {
  const char* name = nullptr;
  char letter = '\0';
  const char* argument = nullptr;
  const char* summary = nullptr;

  bool is(const Option& other) const { return std::string_view(name) == other.name; }
};

struct Invocation;

// Where the words of the launched program begin.
enum class Launches { nothing, firstOperand, secondOperand, everyWord };

// A command: its row in the table tells all that the parser, the help and the completion need.
struct Command {
  const char* name;
  const char* operands;
  const char* summary;
  const char* example;
  int (*perform)(const Invocation&);
  std::initializer_list<Option> options = {};
  Launches launches = Launches::nothing;

  // How many there may be: those outside of brackets have to be, and behind "..." there may be any.
  int leastOperands() const;
  int mostOperands() const;
  // What the operand is called, counted from 0: of "[--] PROGRAM [ARG...]", the first is PROGRAM
  // and any other is ARG. Empty if the command takes no more.
  std::string operandAt(int position) const;
};

// What the command line asks for.
struct Invocation {
  const Command* command = nullptr;
  bool verbose = false;
  // Each option of the command that was given, with its argument.
  std::vector<std::pair<std::string_view, const char*>> options;
  // Ended by a null pointer.
  int operandCount = 0;
  char** operands = nullptr;

  bool has(std::string_view option) const;
  // The argument of the last option of this name, or the other one if there is none.
  const char* option(std::string_view name, const char* otherwise) const;
};

}  // namespace ovxid::cli

#endif
