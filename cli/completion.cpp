#include "completion.h"

#include <ovxid/parameters.h>

#include "board.h"
#include "check/warnings.h"
#include "command_table.h"
#include "format.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

std::string words(const Place& place, const std::string& candidates) {
  return "words " + place.prefix + "\n" + candidates;
}

std::string candidate(const std::string& word, const char* summary) {
  return word + "\t" + summary + "\n";
}

template <typename Table>
std::string rows(const Place& place, const Table& table) {
  std::string candidates;
  for (const auto& row : table) {
    candidates += candidate(row.name, row.summary);
  }
  return words(place, candidates);
}

std::string commands(const Place& place) { return rows(place, commandTable); }
std::string formats(const Place& place) { return rows(place, formatTable); }
std::string warningNames(const Place& place) { return rows(place, warnings); }

std::string options(const Place& place) {
  std::string candidates;
  for (const Option& option :
       place.command == nullptr ? generalOptions() : optionsOf(*place.command)) {
    candidates += candidate(std::string("--") + option.name, option.summary);
    if (option.letter != '\0') {
      candidates += candidate({'-', option.letter}, option.summary);
    }
  }
  return words(place, candidates);
}

// Without those that a terminal obeys instead of showing them, or that are no UTF-8.
std::string parameterNames(const Place& place) {
  Board board(false);
  board.identify();
  board.collect();
  std::string candidates;
  for (const ovx_param& variable : environment(parameters(board.identifier()))) {
    if (harmless(variable.name) == variable.name) {
      candidates += variable.name + "\n";
    }
  }
  return words(place, candidates);
}

std::string files(const Place& place) { return "files " + place.prefix + "\n"; }

std::string program(const Place& place) {
  return "program " + std::to_string(place.firstOperand) + "\n";
}

// The words behind a program, or behind the shell.
std::string arguments(const Place& place) {
  return place.command->launches == Launches::firstOperand ? program(place) : files(place);
}

// What may stand for each placeholder of the table of commands.
struct Placeholder {
  const char* name;
  std::string (*complete)(const Place&);
};

constexpr Placeholder placeholders[] = {
    {"COMMAND", commands}, {"OPTION", options},  {"FORMAT", formats}, {"NAME", parameterNames},
    {"FILE", files},       {"PROGRAM", program}, {"ARG", arguments},  {"WARNING", warningNames},
};

}  // namespace

std::string completion(const Place& place) {
  for (const Placeholder& each : placeholders) {
    if (each.name == place.placeholder) {
      return each.complete(place);
    }
  }
  return "";
}

}  // namespace ovxid::cli
