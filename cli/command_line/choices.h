#ifndef OVXID_CLI_COMMAND_LINE_CHOICES_H
#define OVXID_CLI_COMMAND_LINE_CHOICES_H

#include <optional>
#include <string_view>
#include <vector>

namespace ovxid::cli {

struct Choice {
  const char* name;
  const char* summary;
};

// What may stand for an operand or for the argument of an option.
struct Choices {
  const char* title;
  std::vector<Choice> list;
};

// By what the table of commands calls it, as FORMAT. None if it may be anything, as FILE.
std::optional<Choices> choicesFor(std::string_view placeholder);

}  // namespace ovxid::cli

#endif
