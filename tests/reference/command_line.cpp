#include "reference/command_line.h"

#include <map>
#include <set>

namespace reference {

namespace {

using Words = std::vector<std::string>;
using Word = Words::const_iterator;

// Whether each of the options has a value.
using Known = std::map<std::string, bool>;

struct UsageError {};

// The request is complete, whatever follows.
struct Complete {
  Request request;
};

Request helpFor(const Words& operands) { return {false, "help", false, {}, operands}; }

bool isOption(const std::string& word) { return word.size() > 1 && word[0] == '-'; }

// A long option may be shortened as long as only one begins so.
std::string fullName(const std::string& name, const Known& known) {
  if (known.count(name) != 0) {
    return name;
  }
  std::set<std::string> meant;
  for (const auto& [full, hasValue] : known) {
    if (full.rfind(name, 0) == 0) {
      meant.insert(full);
    }
  }
  return meant.size() == 1 ? *meant.begin() : throw UsageError();
}

std::string nameOf(char letter, const Known& known) {
  const std::map<char, std::string> letters{{'v', "verbose"}, {'h', "help"}, {'V', "version"}};
  const auto name = letters.find(letter);
  return name != letters.end() && known.count(name->second) != 0 ? name->second
                                                                 : throw UsageError();
}

void take(Request& request, const std::string& name, const std::string& value) {
  if (name == "verbose") {
    request.verbose = true;
  } else if (name == "help") {
    throw Complete{helpFor(request.command.empty() ? Words() : Words{request.command})};
  } else if (name == "version") {
    throw Complete{{false, "help", false, {{"version", ""}}, {}}};
  } else {
    request.options.emplace_back(name, value);
  }
}

// Returns the last word that it took.
Word takeLongOption(Request& request, Word word, Word end, const Known& known) {
  const auto equals = word->find('=');
  const bool hasOwnValue = equals != std::string::npos;
  const std::string name = fullName(word->substr(2, hasOwnValue ? equals - 2 : equals), known);
  if (!known.at(name)) {
    if (hasOwnValue) {
      throw UsageError();
    }
    take(request, name, "");
  } else if (hasOwnValue) {
    take(request, name, word->substr(equals + 1));
  } else if (word + 1 == end) {
    throw UsageError();
  } else {
    take(request, name, *++word);
  }
  return word;
}

Word takeOption(Request& request, Word word, Word end, const Known& known) {
  if (word->rfind("--", 0) == 0) {
    return takeLongOption(request, word, end, known);
  }
  for (const char letter : word->substr(1)) {
    take(request, nameOf(letter, known), "");
  }
  return word;
}

// Takes the options up to the first operand, or all of them if they may stand behind operands.
// Returns what follows the options, without the mark that ends them.
Words takeOptions(Request& request, Word word, Word end, const Known& known, bool everywhere) {
  Words operands;
  for (; word != end && *word != "--"; ++word) {
    if (isOption(*word)) {
      word = takeOption(request, word, end, known);
    } else if (everywhere) {
      operands.push_back(*word);
    } else {
      break;
    }
  }
  operands.insert(operands.end(), word != end && *word == "--" ? word + 1 : word, end);
  return operands;
}

// To some commands belongs every word behind them, unless the first asks for help or ends the
// options.
Words takeEveryWord(const std::string& command, Words words) {
  if (!words.empty() && words.front() == "--help") {
    throw Complete{helpFor({command})};
  }
  if (!words.empty() && words.front() == "--") {
    words.erase(words.begin());
  }
  return words;
}

Request readWords(const Words& words) {
  const Known general{{"verbose", false}, {"help", false}};
  const Known asking{{"verbose", false}, {"help", false}, {"board", true}, {"catalogue", true}};
  const Known version{{"verbose", false},
                      {"help", false},
                      {"version", false},
                      {"board", true},
                      {"catalogue", true}};
  const Known checking{{"verbose", false}, {"help", false}, {"ignore", true}};
  const Known replaying{{"verbose", false}, {"help", false}, {"catalogue", true}};
  const Known recording{{"verbose", false}, {"help", false}, {"no-mac", false}, {"output", true}};
  const Known listing{{"verbose", false}, {"help", false}, {"format", true},
                      {"output", true},   {"board", true}, {"catalogue", true}};
  const std::set<std::string> asks{"get", "name", "number", "explain"};
  // How many operands each takes, at least and at most.
  const std::size_t any = words.size();
  const std::map<std::string, std::pair<std::size_t, std::size_t>> commands{
      {"list", {0, 0}},    {"get", {1, 1}},        {"name", {0, 0}},   {"number", {0, 0}},
      {"explain", {0, 0}}, {"check", {0, any}},    {"run", {1, any}},  {"shell", {0, any}},
      {"help", {0, 1}},    {"complete", {1, any}}, {"record", {0, 0}}, {"replay", {1, any}}};
  Request request{false, "", false, {}, {}};
  const Words rest = takeOptions(request, words.begin(), words.end(), version, false);
  request.command = rest.empty() ? "list" : rest.front();
  const auto command = commands.find(request.command);
  if (command == commands.end()) {
    throw UsageError();
  }
  const Words own(rest.empty() ? rest.end() : rest.begin() + 1, rest.end());
  const Known& known = request.command == "list"          ? listing
                       : request.command == "check"       ? checking
                       : request.command == "record"      ? recording
                       : request.command == "replay"      ? replaying
                       : asks.count(request.command) != 0 ? asking
                                                          : general;
  for (const auto& [name, value] : request.options) {
    if (known.count(name) == 0) {
      throw UsageError();
    }
  }
  const bool launches = request.command == "run" || request.command == "replay";
  request.operands = request.command == "shell"
                         ? takeEveryWord(request.command, own)
                         : takeOptions(request, own.begin(), own.end(), known, !launches);
  const auto [least, most] = command->second;
  if (request.operands.size() < least || request.operands.size() > most) {
    throw UsageError();
  }
  return request;
}

}  // namespace

Request readCommandLine(const Words& words) {
  try {
    return readWords(words);
  } catch (const Complete& complete) {
    return complete.request;
  } catch (const UsageError&) {
    return {};
  }
}

}  // namespace reference
