#include "command.h"

#include <algorithm>
#include <sstream>

#include "ascii.h"

namespace ovxid::cli {

namespace {

std::string capitalsOf(std::string word) {
  word.erase(
      std::remove_if(word.begin(), word.end(), [](char letter) { return !isCapital(letter); }),
      word.end());
  return word;
}

}  // namespace

std::string Command::operandAt(int position) const {
  std::string found;
  std::istringstream words(position < mostOperands ? operands : "");
  for (std::string word; position >= 0 && words >> word;) {
    const std::string capitals = capitalsOf(word);
    if (!capitals.empty()) {
      found = capitals;
      --position;
    }
  }
  return found;
}

bool Invocation::has(std::string_view name) const {
  return std::any_of(options.begin(), options.end(),
                     [&](const auto& option) { return option.first == name; });
}

const char* Invocation::option(std::string_view name, const char* otherwise) const {
  const auto last = std::find_if(options.rbegin(), options.rend(),
                                 [&](const auto& option) { return option.first == name; });
  return last == options.rend() ? otherwise : last->second;
}

}  // namespace ovxid::cli
