#include "command_line/help.h"

#include <algorithm>

#include "command_line/choices.h"
#include "command_line/command_table.h"
#include "output/exit_status.h"

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
  if (option.argument != nullptr) {
    words.append(" ").append(option.argument);
  }
  return words;
}

std::string entryOf(const Option& option) { return entry(wordsOf(option), option.summary); }

std::string entriesOf(const std::vector<Option>& options) {
  std::string text;
  for (const Option& option : options) {
    text += entryOf(option);
  }
  return text;
}

std::string entriesOf(const Choices& choices) {
  std::string text = std::string("\n") + choices.title + ":\n";
  for (const Choice& choice : choices.list) {
    text += entry(choice.name, choice.summary);
  }
  return text;
}

// What the arguments of its options may be.
std::string choicesOf(const Command& command) {
  std::string text;
  for (const Option& option : optionsOf(command)) {
    if (const auto choices = choicesFor(option.argument == nullptr ? "" : option.argument)) {
      text += entriesOf(*choices);
    }
  }
  return text;
}

}  // namespace

std::string helpText() {
  std::string text = "Usage: ovxid [OPTIONS] [COMMAND]\n\nTells which board this is.\n" +
                     entriesOf(*choicesFor("COMMAND"));
  text += "\nOptions:\n" + entriesOf(generalOptions());
  text += std::string("\nWithout a command: ") + commandTable.begin()->name + ".\n\nExit status:\n";
  for (const ExitStatus& status : exitStatuses) {
    text += entry(std::to_string(status.value), status.meaning);
  }
  return text;
}

std::string helpText(const Command& command) {
  std::string text = std::string("Usage: ovxid ") + command.name + " [OPTIONS]";
  text.append(*command.operands == '\0' ? "" : " ").append(command.operands).append("\n\n");
  text.append(command.summary).append(".\n\nOptions:\n").append(entriesOf(optionsOf(command)));
  text += choicesOf(command);
  return text.append("\nExample:\n  ").append(command.example).append("\n");
}

}  // namespace ovxid::cli
