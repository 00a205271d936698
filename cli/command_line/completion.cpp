#include "command_line/completion.h"

#include <ovxid/environment.h>

#include "board/board.h"
#include "command_line/choices.h"
#include "command_line/command_table.h"
#include "encoding/visible.h"
#include "host/this_machine.h"

namespace ovxid::cli {

namespace {

std::string words(const Place& place, const std::string& candidates) {
  return "words " + place.prefix + "\n" + candidates;
}

std::string candidate(const std::string& word, const char* summary) {
  return word + "\t" + summary + "\n";
}

std::string words(const Place& place, const Choices& choices) {
  std::string candidates;
  for (const Choice& choice : choices.list) {
    candidates += candidate(choice.name, choice.summary);
  }
  return words(place, candidates);
}

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
  Board board(std::make_shared<ThisMachine>(), false);
  board.identify();
  board.collect();
  std::string candidates;
  for (const ovx_param& variable : environment(board.parameters())) {
    if (harmless(variable.name) == variable.name) {
      candidates += variable.name + "\n";
    }
  }
  return words(place, candidates);
}

std::string files(const Place& place) { return "files " + place.prefix + "\n"; }

std::string program(const Place& place) {
  return "program " + std::to_string(place.program) + "\n";
}

// The words behind a program, or those of the shell, which stand behind none.
std::string arguments(const Place& place) {
  return place.command->operandAt(0) == "ARG" ? files(place) : program(place);
}

// What may stand for a placeholder that is not one of a few choices.
struct Placeholder {
  const char* name;
  std::string (*complete)(const Place&);
};

constexpr Placeholder placeholders[] = {
    {"OPTION", options},  {"NAME", parameterNames}, {"FILE", files},
    {"PROGRAM", program}, {"ARG", arguments},
};

}  // namespace

std::string completion(const Place& place) {
  if (const std::optional<Choices> choices = choicesFor(place.placeholder)) {
    return words(place, *choices);
  }
  for (const Placeholder& each : placeholders) {
    if (each.name == place.placeholder) {
      return each.complete(place);
    }
  }
  return "";
}

}  // namespace ovxid::cli
