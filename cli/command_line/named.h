#ifndef OVXID_CLI_COMMAND_LINE_NAMED_H
#define OVXID_CLI_COMMAND_LINE_NAMED_H

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "command_line/suggestion.h"
#include "output/diagnostics.h"

namespace ovxid::cli {

// The row of a table that has this name. If there is none, throws a Failure that says what is meant
// by such a name, which known one is near, and what command tells more.
template <typename Table>
const auto& named(const Table& table, std::string_view name, const char* what, const char* help) {
  const auto found = std::find_if(std::begin(table), std::end(table),
                                  [&](const auto& row) { return row.name == name; });
  if (found == std::end(table)) {
    std::vector<std::string> known;
    for (const auto& row : table) {
      known.emplace_back(row.name);
    }
    throw Failure(
        exit_status::usage, std::string(name),
        std::string("no such ") + what + suggestion(name, known) + " (see '" + help + "')");
  }
  return *found;
}

}  // namespace ovxid::cli

#endif
