#ifndef OVXID_TESTS_CLI_HELP_TEXT_H
#define OVXID_TESTS_CLI_HELP_TEXT_H

#include <map>
#include <string>
#include <vector>

// An entry of a list in a help text: "--output FILE", say, and what that is.
struct HelpEntry {
  std::string word;
  // Empty if there is none, such as "-v" of "--verbose".
  std::string shortWord;
  // Empty if the word takes none.
  std::string argument;
  std::string summary;
};

// The lists of a help text by their titles, such as "Options".
using HelpLists = std::map<std::string, std::vector<HelpEntry>>;
HelpLists listsOf(const std::string& help);

#endif
