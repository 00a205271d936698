#include "command_line/choices.h"

#include <algorithm>
#include <iterator>

#include "check/warnings.h"
#include "command_line/command_table.h"
#include "formats/format.h"

namespace ovxid::cli {

namespace {

template <typename Table>
Choices choices(const char* title, const Table& table) {
  Choices choices{title, {}};
  std::transform(std::begin(table), std::end(table), std::back_inserter(choices.list),
                 [](const auto& row) {
                   return Choice{row.name, row.summary};
                 });
  return choices;
}

}  // namespace

std::optional<Choices> choicesFor(std::string_view placeholder) {
  if (placeholder == "COMMAND") {
    return choices("Commands", commandTable);
  }
  if (placeholder == "FORMAT") {
    return choices("Formats", formatTable);
  }
  if (placeholder == "WARNING") {
    return choices("Warnings", warnings);
  }
  return std::nullopt;
}

}  // namespace ovxid::cli
