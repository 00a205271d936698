#include "command_line/place.h"

#include <cstring>
#include <string_view>

#include "command_line/command_table.h"
#include "command_line/options.h"

namespace ovxid::cli {

namespace {

bool isOption(std::string_view word) { return word.substr(0, 1) == "-"; }

bool hasValue(std::string_view word) {
  return word.substr(0, 2) == "--" && word.find('=') != std::string_view::npos;
}

const char* endOf(const char* text) { return text + std::strlen(text); }

// Whether the options tell the place: it is that of an argument, or it is behind a request for a
// help text or the version, where nothing matters.
bool isToldBy(Options& options, int argc, char** argv, Place& place) {
  const char* const word = argv[argc - 1];
  while (const Option* const option = options.next(argc, argv)) {
    if (option->is(helpOption) || option->is(versionOption)) {
      return true;
    }
    const char* const argument = options.argument();
    if (argument != nullptr && endOf(argument) == endOf(word)) {
      place.placeholder = option->argument;
      place.prefix.assign(word, static_cast<std::size_t>(argument - word));
      return true;
    }
  }
  return false;
}

// The place of an operand is also that of an option, as long as nothing ended the options.
std::string placeholder(bool mayBeOption, const std::string& operand) {
  if (mayBeOption) {
    return "OPTION";
  }
  return operand;
}

// The first word of a program that stands behind this operand, maybe with a "--" between them.
int programBehind(int operand, int argc, char** argv) {
  const int next = operand + 1;
  return next < argc - 1 && std::string_view(argv[next]) == "--" ? next + 1 : next;
}

void readCommand(int argc, char** argv, bool isOption, Place& place) {
  const Command& command = *place.command;
  Options options = optionReader(command);
  if (isToldBy(options, argc, argv, place)) {
    return;
  }
  const int last = argc - 1;
  const bool isBehind = command.launches == Launches::secondOperand && last > optind;
  const int program = isBehind ? programBehind(optind, argc, argv) : optind;
  const int operand = last - program + (isBehind ? 1 : 0);
  const bool launches = command.launches != Launches::nothing && operand > 0;
  place.program += program;
  place.placeholder = placeholder(isOption && !launches && !options.wereEndedByDashes(argv),
                                  command.operandAt(operand));
}

// All words behind the command are operands, but for a "--" before the first one.
void readWords(int argc, char** argv, Place& place) {
  const int last = argc - 1;
  const bool isMarked = last > 1 && std::string_view(argv[1]) == "--";
  place.placeholder = place.command->operandAt(last - (isMarked ? 2 : 1));
}

}  // namespace

Place placeOfLast(int argc, char** argv) {
  const bool option = isOption(argv[argc - 1]);
  char unfinished[] = "-";
  if (option && !hasValue(argv[argc - 1])) {
    // It cannot be read before it is finished. This stands in for it, and is read as an operand.
    argv[argc - 1] = unfinished;
  }
  Place place;
  Options options = generalOptionReader();
  if (isToldBy(options, argc, argv, place)) {
    return place;
  }
  const int position = optind;
  if (position == argc - 1) {
    place.placeholder = placeholder(option && !options.wereEndedByDashes(argv), "COMMAND");
    return place;
  }
  place.command = &commandNamed(argv[position]);
  place.program = position - 1;
  if (place.command->launches == Launches::everyWord) {
    readWords(argc - position, argv + position, place);
    return place;
  }
  readCommand(argc - position, argv + position, option, place);
  return place;
}

}  // namespace ovxid::cli
