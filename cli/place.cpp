#include "place.h"

#include <algorithm>
#include <iterator>
#include <sstream>

#include "command_table.h"
#include "diagnostics.h"

namespace ovxid::cli {

namespace {

bool isLong(std::string_view word) { return word.substr(0, 2) == "--"; }

std::string capitalsOf(std::string word) {
  word.erase(std::remove_if(word.begin(), word.end(),
                            [](char letter) { return letter < 'A' || letter > 'Z'; }),
             word.end());
  return word;
}

// Of "[--] PROGRAM [ARG...]", the first is PROGRAM, and any other is ARG.
std::string operandAt(const Command& command, int position) {
  std::string name;
  std::istringstream words(position < command.mostOperands ? command.operands : "");
  for (std::string word; position >= 0 && words >> word;) {
    const std::string capitals = capitalsOf(word);
    if (!capitals.empty()) {
      name = capitals;
      --position;
    }
  }
  return name;
}

// What was read of a command line.
class Beginning {
 public:
  // Throws Failure when the word is wrong.
  void take(std::string_view word);

  Place placeOf(std::string_view next) const;

 private:
  void takeOptions(std::string_view word);
  void takeOption(const Option& option);
  void takeCommand(std::string_view word);
  void takeOperand();
  Place placeOfOption(std::string_view word, Place place) const;
  const Option& longOption(std::string_view word) const;
  const Option& shortOption(char letter) const;

  const Command* mCommand = nullptr;
  std::vector<Option> mOptions = generalOptions();
  bool mOptionsEnded = false;
  // After a request for a help text or the version nothing matters.
  bool mEnded = false;
  // The argument that the last option still needs.
  const char* mArgument = nullptr;
  int mOperands = 0;
  std::size_t mWords = 0;
  std::size_t mFirstOperand = 0;
};

void Beginning::take(std::string_view word) {
  if (mArgument != nullptr) {
    mArgument = nullptr;
  } else if (!mOptionsEnded && word == "--") {
    mOptionsEnded = true;
  } else if (!mOptionsEnded && word.size() > 1 && word.front() == '-') {
    takeOptions(word);
  } else if (mCommand == nullptr) {
    takeCommand(word);
  } else {
    takeOperand();
  }
  ++mWords;
  if (mOperands == 0) {
    mFirstOperand = mWords;
  }
}

void Beginning::takeOptions(std::string_view word) {
  if (!isLong(word)) {
    for (const char letter : word.substr(1)) {
      takeOption(shortOption(letter));
    }
    return;
  }
  takeOption(longOption(word));
  if (word.find('=') != std::string_view::npos) {
    mArgument = nullptr;
  }
}

void Beginning::takeOption(const Option& option) {
  const std::string_view name = option.name;
  mEnded = mEnded || name == helpOption.name || name == versionOption.name;
  mArgument = option.argument;
}

void Beginning::takeCommand(std::string_view word) {
  mCommand = &commandNamed(word);
  mOptions = optionsOf(*mCommand);
  mOptionsEnded = mCommand->launches == Launches::everyWord;
}

void Beginning::takeOperand() {
  ++mOperands;
  mOptionsEnded = mOptionsEnded || mCommand->launches == Launches::firstOperand;
}

// An option may be shortened as long as only one begins so.
const Option& Beginning::longOption(std::string_view word) const {
  const std::string_view name = word.substr(2, word.find('=') - 2);
  const auto isNamed = [&](const Option& each) { return each.name == name; };
  const auto beginsSo = [&](const Option& each) {
    return std::string_view(each.name).substr(0, name.size()) == name;
  };
  const auto named = std::find_if(mOptions.begin(), mOptions.end(), isNamed);
  if (named != mOptions.end()) {
    return *named;
  }
  if (std::count_if(mOptions.begin(), mOptions.end(), beginsSo) != 1) {
    throw Failure(exit_status::usage, std::string(word), "no such option");
  }
  return *std::find_if(mOptions.begin(), mOptions.end(), beginsSo);
}

const Option& Beginning::shortOption(char letter) const {
  const auto found = std::find_if(mOptions.begin(), mOptions.end(),
                                  [&](const Option& each) { return each.letter == letter; });
  if (found == mOptions.end()) {
    throw Failure(exit_status::usage, {'-', letter}, "no such option");
  }
  return *found;
}

Place Beginning::placeOf(std::string_view next) const {
  Place place;
  place.command = mCommand;
  place.firstOperand = mFirstOperand;
  if (mEnded) {
    return place;
  }
  if (mArgument != nullptr) {
    place.placeholder = mArgument;
  } else if (!mOptionsEnded && next.substr(0, 1) == "-") {
    return placeOfOption(next, place);
  } else if (mCommand == nullptr) {
    place.placeholder = "COMMAND";
  } else {
    place.placeholder = operandAt(*mCommand, mOperands);
  }
  return place;
}

Place Beginning::placeOfOption(std::string_view word, Place place) const {
  const auto equals = word.find('=');
  if (!isLong(word) || equals == std::string_view::npos) {
    place.placeholder = "OPTION";
    return place;
  }
  const Option& option = longOption(word);
  if (option.argument != nullptr) {
    place.placeholder = option.argument;
    place.prefix = word.substr(0, equals + 1);
  }
  return place;
}

}  // namespace

Place placeOfLast(const std::vector<std::string_view>& words) {
  Beginning beginning;
  std::for_each(words.begin(), std::prev(words.end()),
                [&](std::string_view word) { beginning.take(word); });
  return beginning.placeOf(words.back());
}

}  // namespace ovxid::cli
