#include "check/line_checks.h"

#include <sys/utsname.h>

#include <algorithm>

#include "encoding/ascii.h"
#include "encoding/utf8.h"
#include "encoding/visible.h"
#include "identity/well_known.h"

namespace ovxid::cli {

namespace {

namespace warning {
constexpr Warning byteOrderMark = warningNamed("byte-order-mark");
constexpr Warning carriageReturn = warningNamed("carriage-return");
constexpr Warning nul = warningNamed("nul");
constexpr Warning comment = warningNamed("comment");
constexpr Warning blanks = warningNamed("blanks");
constexpr Warning quotes = warningNamed("quotes");
constexpr Warning numberText = warningNamed("number-text");
constexpr Warning reservedNumber = warningNamed("reserved-number");
constexpr Warning pcAlias = warningNamed("pc-alias");
constexpr Warning impossibleAlias = warningNamed("impossible-alias");
constexpr Warning numericAlias = warningNamed("numeric-alias");
}  // namespace warning

constexpr std::string_view blanks = " \t\v\f";

// The value without the carriage return that ends it, which has a warning of its own.
std::string_view withoutReturn(std::string_view value) {
  return value.back() == '\r' ? value.substr(0, value.size() - 1) : value;
}

bool beginsOrEnds(std::string_view value, std::string_view part) {
  return beginsWith(value, part) || endsWith(value, part);
}

bool hasBlanksAround(std::string_view value) {
  return beginsOrEnds(value, noBreakSpace) ||
         std::any_of(blanks.begin(), blanks.end(), [&](const char& blank) {
           return beginsOrEnds(value, {&blank, 1});
         });
}

void checkBlanks(const Line& line, Findings& findings) {
  for (const std::string_view& value : line.values) {
    if (hasBlanksAround(withoutReturn(value))) {
      findings.warn(warning::blanks, line.number,
                    "there are blanks around " + shown(withoutReturn(value)) +
                        (&value == &line.values[1] ? "" : ", which belong to it"));
    }
  }
}

void checkQuotes(const Line& line, Findings& findings) {
  for (const std::string_view whole : line.values) {
    const std::string_view value = withoutReturn(whole);
    if (value.size() > 1 && value.front() == value.back() &&
        (value.front() == '"' || value.front() == '\'')) {
      findings.warn(warning::quotes, line.number,
                    "the quotes of " + visible(value) + " belong to the value");
    }
  }
}

// What the library reads is known, so only what follows it is looked for.
std::string_view behindDigits(std::string_view text) {
  text.remove_prefix(text.find_first_not_of(" \t\n\v\f\r"));
  if (text.front() == '+' || text.front() == '-') {
    text.remove_prefix(1);
  }
  const auto* const end = std::find_if_not(text.begin(), text.end(), isDigit);
  return text.substr(static_cast<std::size_t>(end - text.begin()));
}

void checkNumber(const Line& line, Findings& findings) {
  const std::string_view rest = behindDigits(line.numberText());
  if (rest.find_first_not_of(" \t\v\f\r") != std::string_view::npos) {
    findings.warn(warning::numberText, line.number,
                  shown(line.numberText()) + " is read as " + std::to_string(line.boardNumber));
  }
  if (line.boardNumber == unknownNumber) {
    findings.warn(warning::reservedNumber, line.number,
                  "the number -1 means that a board is not identified");
  }
  if (line.boardNumber < unknownNumber) {
    findings.warn(warning::reservedNumber, line.number,
                  "a board with a number below 0 gets no OVX_ID and no OVX_DESC");
  }
  if (line.boardNumber == pcNumber && line.name() != pcName) {
    findings.warn(warning::reservedNumber, line.number, "the number 64 means a PC");
  }
}

void checkAliases(const Line& line, Findings& findings) {
  for (auto value = line.values.begin() + 2; value != line.values.end(); ++value) {
    const std::string_view alias = withoutReturn(*value);
    if (alias == "x86_64") {
      findings.warn(
          warning::pcAlias, line.number,
          "'x86_64' is compared with the end of a kernel's release, not with the machine");
    } else if (!canEndRelease(alias) && !isLikeHardware(alias)) {
      findings.warn(warning::impossibleAlias, line.number,
                    shown(alias) +
                        " cannot follow the last '-' of a release, and does not look like a "
                        "Hardware value");
    } else if (std::all_of(alias.begin(), alias.end(), isDigit)) {
      findings.warn(warning::numericAlias, line.number,
                    shown(alias) + " matches any kernel whose release ends in " +
                        shown("-" + std::string(alias)));
    }
  }
}

}  // namespace

void checkText(std::string_view text, std::size_t number, Findings& findings) {
  if (number == 1 && beginsWith(text, byteOrderMark)) {
    findings.warn(warning::byteOrderMark, number, "a byte order mark belongs to the first name");
  }
  if (text.find('\0') != std::string_view::npos) {
    findings.warn(warning::nul, number, "the line has NUL bytes, which belong to its values");
  }
}

void checkValues(const Line& line, Findings& findings) {
  if (line.hasCarriageReturn()) {
    findings.warn(warning::carriageReturn, line.number,
                  "the carriage return at the end belongs to the last value");
  }
  if (line.name().front() == '#') {
    findings.warn(warning::comment, line.number,
                  "there are no comments: this is the board " + shown(line.name()));
  }
  if (line.values.back().find(" # ") != std::string_view::npos) {
    findings.warn(warning::comment, line.number,
                  "there are no comments: this is the value " + shown(line.values.back()));
  }
  checkBlanks(line, findings);
  checkQuotes(line, findings);
  checkNumber(line, findings);
  checkAliases(line, findings);
}

bool canEndRelease(std::string_view alias) {
  // The '-' before the alias and the NUL byte behind it take a byte each.
  constexpr std::size_t longest = sizeof(utsname::release) - 2;
  return alias.size() <= longest &&
         alias.find_first_of(std::string_view("-\0", 2)) == std::string_view::npos;
}

bool canBeHardware(std::string_view text) {
  return text.find('\0') == std::string_view::npos && !beginsWith(text, byteOrderMark);
}

bool isLikeHardware(std::string_view text) {
  const bool isLikeRelease = isDigit(text.front()) && text.find('-') != std::string_view::npos;
  return !isLikeRelease && canBeHardware(text) &&
         (text.find(' ') != std::string_view::npos ||
          std::any_of(text.begin(), text.end(), isCapital));
}

}  // namespace ovxid::cli
