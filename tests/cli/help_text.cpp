#include "cli/help_text.h"

#include <regex>
#include <sstream>

HelpLists listsOf(const std::string& help) {
  const std::regex title("([A-Z][a-z ]+):");
  const std::regex entry("  (?:(-[^ ]), )?([^ ]+)(?: ([A-Z]+))?  +([^ ].*)");
  HelpLists lists;
  std::string list;
  std::istringstream lines(help);
  std::smatch match;
  for (std::string line; std::getline(lines, line);) {
    if (std::regex_match(line, match, title)) {
      list = match[1];
    } else if (std::regex_match(line, match, entry)) {
      lists[list].push_back({match[2], match[1], match[3], match[4]});
    }
  }
  return lists;
}
