#include "command_line/command.h"

#include <algorithm>
#include <climits>

#include "encoding/ascii.h"

namespace ovxid::cli {

namespace {

struct Operand {
  std::string name;
  bool isOptional;
};

// A name is of capital letters.
std::vector<Operand> operandsIn(std::string_view text) {
  std::vector<Operand> operands;
  int brackets = 0;
  bool isInName = false;
  for (const char each : text) {
    brackets += each == '[' ? 1 : 0;
    brackets -= each == ']' ? 1 : 0;
    if (isCapital(each) && !isInName) {
      operands.push_back({"", brackets > 0});
    }
    isInName = isCapital(each);
    if (isInName) {
      operands.back().name += each;
    }
  }
  return operands;
}

}  // namespace

int Command::leastOperands() const {
  const std::vector<Operand> known = operandsIn(operands);
  return static_cast<int>(std::count_if(known.begin(), known.end(),
                                        [](const Operand& each) { return !each.isOptional; }));
}

int Command::mostOperands() const {
  if (std::string_view(operands).find("...") != std::string_view::npos) {
    return INT_MAX;
  }
  return static_cast<int>(operandsIn(operands).size());
}

std::string Command::operandAt(int position) const {
  if (position >= mostOperands()) {
    return "";
  }
  const std::vector<Operand> known = operandsIn(operands);
  const auto place = static_cast<std::size_t>(position);
  return place < known.size() ? known[place].name : known.back().name;
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
