#include "help.h"

#include <algorithm>

#include "command_table.h"
#include "exit_status.h"
#include "format.h"

namespace ovxid::cli {

namespace {

// An entry of a list: its words, padded, and its text.
std::string entry(std::string words, const std::string& text) {
  constexpr std::size_t width = 20;
  words.resize(std::max(words.size(), width), ' ');
  return "  " + words + "  " + text + "\n";
}

std::string wordsOf(const Option& option) {
  std::string words;
  if (option.letter != '\0') {
    words = {'-', option.letter, ',', ' '};
  }
  words.append("--").append(option.name);
  return option.argument == nullptr ? words : words + " " + option.argument;
}

std::string entryOf(const Option& option) { return entry(wordsOf(option), option.summary); }

std::string optionsOf(const Command& command) {
  std::string text;
  for (const Option& option : command.options) {
    text += option.name == nullptr ? "" : entryOf(option);
  }
  return text + entryOf(verboseOption) + entryOf(helpOption);
}

bool takesFormat(const Command& command) {
  return std::any_of(
      std::begin(command.options), std::end(command.options), [](const Option& option) {
        return option.argument != nullptr && std::string(option.argument) == "FORMAT";
      });
}

std::string formats() {
  std::string text = "\nFormats:\n";
  for (const Format& format : formatTable) {
    text += entry(format.name, format.summary);
  }
  return text;
}

}  // namespace

std::string helpText() {
  std::string text =
      "Usage: ovxid [OPTIONS] [COMMAND]\n\nTells which board this is.\n\nCommands:\n";
  for (const Command& command : commandTable) {
    text += entry(command.name, command.summary);
  }
  text += "\nOptions:\n" + entryOf(verboseOption) + entryOf(helpOption) + entryOf(versionOption);
  text += std::string("\nWithout a command: ") + commandTable.begin()->name + ".\n\nExit status:\n";
  for (const ExitStatus& status : exitStatuses) {
    text += entry(std::to_string(status.value), status.meaning);
  }
  return text;
}

std::string helpText(const Command& command) {
  std::string text = std::string("Usage: ovxid ") + command.name + " [OPTIONS]";
  text.append(*command.operands == '\0' ? "" : " ").append(command.operands).append("\n\n");
  text.append(command.summary).append(".\n\nOptions:\n").append(optionsOf(command));
  text += takesFormat(command) ? formats() : "";
  return text.append("\nExample:\n  ").append(command.example).append("\n");
}

}  // namespace ovxid::cli
