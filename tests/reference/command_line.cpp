#include "reference/command_line.h"

#include <cstdint>
#include <set>

namespace reference {

namespace {

using Words = std::vector<std::string>;
using Word = Words::const_iterator;

// What may stand behind a command.
struct Form {
  std::size_t leastOperands;
  std::size_t mostOperands;
  Options options;
};

struct UsageError {};

// The request is complete, whatever follows.
struct Complete {
  Request request;
};

Request helpFor(const Words& operands) { return {false, "help", false, {}, operands}; }

bool isOption(const std::string& word) { return word.size() > 1 && word[0] == '-'; }

// A long option may be shortened as long as only one begins so.
std::string fullName(const std::string& name, const Options& known) {
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

std::string nameOf(char letter, const Options& known) {
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
Word takeLongOption(Request& request, Word word, Word end, const Options& known) {
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

Word takeOption(Request& request, Word word, Word end, const Options& known) {
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
Words takeOptions(Request& request, Word word, Word end, const Options& known, bool everywhere) {
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

std::map<std::string, Form> formsOfCommands() {
  constexpr std::size_t any = SIZE_MAX;
  const Options asking{{"board", true}, {"catalogue", true}};
  const Options listing{{"format", true}, {"output", true}, {"board", true}, {"catalogue", true}};
  std::map<std::string, Form> forms{{"list", {0, 0, listing}},
                                    {"get", {1, 1, asking}},
                                    {"name", {0, 0, asking}},
                                    {"number", {0, 0, asking}},
                                    {"explain", {0, 0, asking}},
                                    {"check", {0, any, {{"ignore", true}}}},
                                    {"record", {0, 0, {{"no-mac", false}, {"output", true}}}},
                                    {"replay", {1, any, {{"catalogue", true}}}},
                                    {"run", {1, any, {}}},
                                    {"shell", {0, any, {}}},
                                    {"help", {0, 1, {}}},
                                    {"complete", {1, any, {}}}};
  for (auto& [command, form] : forms) {
    form.options.insert({{"verbose", false}, {"help", false}});
  }
  return forms;
}

Options optionsBeforeCommands() {
  return {{"verbose", false},
          {"help", false},
          {"version", false},
          {"board", true},
          {"catalogue", true}};
}

Request readWords(const Words& words) {
  static const std::map<std::string, Form> forms = formsOfCommands();
  Request request{false, "", false, {}, {}};
  const Words rest =
      takeOptions(request, words.begin(), words.end(), optionsBeforeCommands(), false);
  request.command = rest.empty() ? "list" : rest.front();
  const auto found = forms.find(request.command);
  if (found == forms.end()) {
    throw UsageError();
  }
  const auto& [least, most, known] = found->second;
  const Words own(rest.empty() ? rest.end() : rest.begin() + 1, rest.end());
  for (const auto& [name, value] : request.options) {
    if (known.count(name) == 0) {
      throw UsageError();
    }
  }
  const bool launches = request.command == "run" || request.command == "replay";
  request.operands = request.command == "shell"
                         ? takeEveryWord(request.command, own)
                         : takeOptions(request, own.begin(), own.end(), known, !launches);
  if (request.operands.size() < least || request.operands.size() > most) {
    throw UsageError();
  }
  return request;
}

}  // namespace

std::map<std::string, Options> optionsOfCommands() {
  std::map<std::string, Options> options{{"", optionsBeforeCommands()}};
  for (const auto& [command, form] : formsOfCommands()) {
    options[command] = form.options;
  }
  return options;
}

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
