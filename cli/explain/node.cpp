#include <algorithm>
#include <cctype>
#include <cerrno>
#include <charconv>

#include "encoding/ascii.h"
#include "encoding/visible.h"
#include "explain/report.h"
#include "identity/sources.h"
#include "identity/well_known.h"

namespace ovxid::cli {

namespace {

bool isBlank(char byte) { return std::isspace(static_cast<unsigned char>(byte)) != 0; }

// A number that the device tree has as cells, 32 bits each, the highest byte first.
bool isCells(std::string_view value) {
  return !value.empty() && value.size() % 4 == 0 && value.front() == '\0';
}

std::string adviceFor(std::string_view cells) {
  if (cells.size() != 4) {
    return "";
  }
  std::uint32_t number = 0;
  for (const char byte : cells) {
    number = number * 256 + static_cast<unsigned char>(byte);
  }
  return ": write boardid = \"" + std::to_string(number) + "\" in the device tree";
}

std::string_view withoutSign(std::string_view text) {
  const auto* const begin = std::find_if_not(text.begin(), text.end(), isBlank);
  text.remove_prefix(static_cast<std::size_t>(begin - text.begin()));
  if (text.front() == '-' || text.front() == '+') {
    text.remove_prefix(1);
  }
  return text;
}

// Why the number is not the one that stands there. Empty if it is.
std::string whyNotTheNumber(std::string_view value, std::int32_t number) {
  const std::string_view text = withoutLastNul(value);
  if (isCells(value)) {
    return "is of cells, but is read as text" + adviceFor(value);
  }
  if (std::all_of(text.begin(), text.end(), isBlank)) {
    return text.empty() ? "is empty" : "is white space";
  }
  const std::string_view digits = withoutSign(text);
  const auto* const end = std::find_if_not(digits.begin(), digits.end(), isDigit);
  if (end == digits.begin()) {
    return "is no decimal number";
  }
  std::uint64_t written = 0;
  const bool fits = std::from_chars(digits.begin(), end, written).ec == std::errc();
  const std::int64_t read = number;
  if (!fits || written != static_cast<std::uint64_t>(read < 0 ? -read : read)) {
    return "is out of range";
  }
  return std::all_of(end, digits.end(), isBlank) ? ""
                                                 : "is read only as far as its decimal digits go";
}

void remarkOnBoardid(const std::string& boardid, std::int32_t number, Remarks& remarks) {
  const std::string why = whyNotTheNumber(boardid, number);
  if (!why.empty()) {
    remarks.push_back("The boardid " + why + ". The number is " + std::to_string(number) + ".");
  } else if (number == pcNumber) {
    remarks.emplace_back("The boardid is 64, the number that means a PC.");
  }
}

void remarkOnDescription(const Reading& description, const std::string& name, Remarks& remarks) {
  if (description.error != 0) {
    if (description.error == ENOENT) {
      remarks.push_back("There is no description, so the name stays " + shown(name) + ".");
    }
    return;
  }
  const std::string_view text = withoutLastNul(description.bytes);
  if (isCells(description.bytes)) {
    remarks.emplace_back("The description is of cells, but is read as text: the name is empty.");
  } else if (text.find_first_not_of('\0') == std::string_view::npos) {
    remarks.emplace_back("The description is empty, and so is the name.");
  } else if (text.find('\n') < text.size() - 1) {
    remarks.emplace_back("Only the first line of the description is the name.");
  } else if (text.find_first_not_of('\0', text.find('\0')) != std::string_view::npos) {
    remarks.emplace_back(
        "Programs see the name only as far as the first NUL byte of the description.");
  }
}

void remarkOnMissingBoardid(const Diagnosis& diagnosis, Remarks& remarks) {
  if (diagnosis.readingOf(File::description)->error == 0) {
    remarks.emplace_back("The description does not identify a board without a boardid.");
  } else if (!diagnosis.board.isIdentified() && diagnosis.parameters.hasNode) {
    remarks.emplace_back("The node /orvanix has no boardid.");
  }
}

}  // namespace

Remarks remarksOnNode(const Diagnosis& diagnosis) {
  Remarks remarks;
  const Board& board = diagnosis.board;
  const Reading& boardid = *diagnosis.readingOf(File::boardid);
  if (boardid.error == 0) {
    remarkOnBoardid(boardid.bytes, board.number(), remarks);
    remarkOnDescription(*diagnosis.readingOf(File::description), board.name(), remarks);
  } else if (diagnosis.decides(diagnosis.trialOf(identifyByDeviceTree))) {
    remarks.emplace_back("That there is a boardid identifies the board, whatever it is.");
  } else if (boardid.error == ENOENT) {
    remarkOnMissingBoardid(diagnosis, remarks);
  }
  return remarks;
}

}  // namespace ovxid::cli
