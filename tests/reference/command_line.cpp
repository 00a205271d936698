#include "reference/command_line.h"

#include <set>

namespace reference {

namespace {

using Words = std::vector<std::string>;
using Word = Words::const_iterator;
using Kind = Request::Kind;

// The options among the words, all in one.
struct Options {
  bool verbose = false;
  bool help = false;
  bool version = false;
  bool unknown = false;
  // Such as "-v-help" and "--help=", which are refused even beside a request for help.
  bool malformed = false;

  void read(const std::string& word);
  void readLetters(const std::string& letters);
};

void Options::read(const std::string& word) {
  malformed = malformed || word.find('=') != std::string::npos;
  if (word == "--verbose") {
    verbose = true;
  } else if (word == "--help") {
    help = true;
  } else if (word == "--version") {
    version = true;
  } else if (word.rfind("--", 0) == 0) {
    unknown = true;
  } else {
    readLetters(word.substr(1));
  }
}

// An unknown letter takes the rest of the word with it.
void Options::readLetters(const std::string& letters) {
  for (const char letter : letters.substr(0, letters.find_first_not_of("vh"))) {
    (letter == 'v' ? verbose : help) = true;
  }
  unknown = unknown || letters.find_first_not_of("vh") != std::string::npos;
  malformed = malformed || letters.find('-') != std::string::npos;
}

bool isOption(const std::string& word) { return word.size() > 1 && word[0] == '-' && word != "--"; }

Word readOptions(Word word, Word end, Options& options) {
  for (; word != end && isOption(*word); ++word) {
    options.read(*word);
  }
  return word;
}

// To the shell belongs every word behind it, unless the first asks for help.
Word readOptionsBehind(const std::string& command, Word word, Word end, Options& options) {
  if (command == "shell" && (word == end || *word != "--help")) {
    return word;
  }
  return readOptions(word, end, options);
}

Kind kindOf(const std::string& command, const Options& options, const Words& launched) {
  if (options.malformed) {
    return Kind::usageError;
  }
  if (options.version) {
    return Kind::version;
  }
  if (options.help) {
    return Kind::help;
  }
  if (options.unknown || (command == "run" && launched.empty())) {
    return Kind::usageError;
  }
  return Kind::command;
}

}  // namespace

Request readCommandLine(const Words& words) {
  const std::set<std::string> printing{"list", "name", "number"};
  const std::set<std::string> launching{"run", "shell"};
  Request usageError{Kind::usageError, "", false, {}};
  Options options;
  Word word = readOptions(words.begin(), words.end(), options);
  if (word == words.end()) {
    return {kindOf("", options, {}), "", options.verbose, {}};
  }
  const std::string command = *word;
  word = readOptionsBehind(command, word + 1, words.end(), options);
  const bool isLast = word == words.end();
  if (launching.count(command) == 0 && (printing.count(command) == 0 || !isLast)) {
    return usageError;
  }
  const Words launched(!isLast && *word == "--" ? word + 1 : word, words.end());
  return {kindOf(command, options, launched), command, options.verbose, launched};
}

}  // namespace reference
