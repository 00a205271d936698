#include <algorithm>
#include <cctype>

#include "explain/remarks.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

bool isBlank(char byte) { return std::isspace(static_cast<unsigned char>(byte)) != 0; }
bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

// The bytes before the NUL byte that ends a string property.
std::string_view textOf(std::string_view value) {
  return !value.empty() && value.back() == '\0' ? value.substr(0, value.size() - 1) : value;
}

// A number that the device tree has as cells, 32 bits each, the highest byte first.
bool isCells(std::string_view value) {
  return !value.empty() && value.size() % 4 == 0 && value.front() == '\0';
}

std::uint32_t firstCell(std::string_view value) {
  std::uint32_t cell = 0;
  for (const char byte : value.substr(0, 4)) {
    cell = cell * 256 + static_cast<unsigned char>(byte);
  }
  return cell;
}

std::string withoutSign(std::string_view text) {
  const auto* const begin = std::find_if_not(text.begin(), text.end(), isBlank);
  std::string number(begin, text.end());
  if (!number.empty() && (number.front() == '-' || number.front() == '+')) {
    number.erase(0, 1);
  }
  return number;
}

// Why the number is not the one that stands there. Empty if it is.
std::string whyNotTheNumber(std::string_view value, std::int32_t number) {
  const std::string_view text = textOf(value);
  if (isCells(value)) {
    return "is of cells, but is read as text: write boardid = \"" +
           std::to_string(firstCell(value)) + "\" in the device tree";
  }
  if (std::all_of(text.begin(), text.end(), isBlank)) {
    return text.empty() ? "is empty" : "is white space";
  }
  const std::string digits = withoutSign(text);
  const auto end = std::find_if_not(digits.begin(), digits.end(), isDigit);
  if (end == digits.begin()) {
    return "is no decimal number";
  }
  if (number == INT32_MAX || number == INT32_MIN) {
    return "may be out of range";
  }
  if (!std::all_of(end, digits.end(), isBlank)) {
    return "goes on behind its digits";
  }
  return "";
}

}  // namespace

Remarks remarksOnNode(const Evidence& evidence) {
  if (!evidence.boardid.content) {
    return evidence.description.content
               ? Remarks{"The description does not identify a board without a boardid."}
               : Remarks{};
  }
  Remarks remarks;
  const std::string why = whyNotTheNumber(*evidence.boardid.content, evidence.board.number());
  if (!why.empty()) {
    remarks.push_back("The boardid " + why + ". The number is " +
                      std::to_string(evidence.board.number()) + ".");
  }
  if (!evidence.description.content) {
    remarks.push_back("There is no description, so the name stays " + shown(evidence.board.name()) +
                      ".");
  } else if (textOf(*evidence.description.content).find('\n') != std::string_view::npos) {
    remarks.emplace_back("Only the first line of the description is the name.");
  }
  return remarks;
}

}  // namespace ovxid::cli
