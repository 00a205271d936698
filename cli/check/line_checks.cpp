#include "check/line_checks.h"

#include <sys/utsname.h>

#include <algorithm>

#include "visible.h"

namespace ovxid::cli {

namespace {

constexpr std::string_view blanks = " \t\v\f";

bool isCapital(char byte) { return byte >= 'A' && byte <= 'Z'; }
bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

bool hasBlanksAround(std::string_view value) {
  return blanks.find(value.front()) != std::string_view::npos ||
         blanks.find(value.back()) != std::string_view::npos;
}

void checkBlanks(const Line& line, Findings& findings) {
  for (const std::string_view& value : line.values) {
    if (hasBlanksAround(value)) {
      findings.warn(warning::blanks, line.number,
                    "there are blanks around " + shown(value) +
                        (&value == &line.values[1] ? "" : ", which belong to it"));
    }
  }
}

// What the library reads is known, so only what follows it is looked for.
std::string_view behindDigits(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
    text.remove_prefix(1);
  }
  const auto* const end = std::find_if_not(text.begin(), text.end(), isDigit);
  return text.substr(static_cast<std::size_t>(end - text.begin()));
}

void checkNumber(const Line& line, Findings& findings) {
  const std::string_view rest = behindDigits(line.numberText());
  if (rest.find_first_not_of(blanks) != std::string_view::npos) {
    findings.warn(warning::numberText, line.number,
                  shown(line.numberText()) + " is read as " + std::to_string(line.boardNumber));
  }
  if (line.boardNumber == -1) {
    findings.warn(warning::reservedNumber, line.number,
                  "the number -1 means that a board is not identified");
  }
  if (line.boardNumber == 64 && line.name() != "x86_64 PC") {
    findings.warn(warning::reservedNumber, line.number, "the number 64 means a PC");
  }
}

void checkAliases(const Line& line, Findings& findings) {
  for (auto alias = line.values.begin() + 2; alias != line.values.end(); ++alias) {
    if (*alias == "x86_64") {
      findings.warn(warning::pcAlias, line.number,
                    "'x86_64' is the end of a kernel's release here, not the machine");
    } else if (!canEndRelease(*alias) && !isLikeHardware(*alias)) {
      findings.warn(warning::impossibleAlias, line.number,
                    shown(*alias) +
                        " cannot follow the last '-' of a release, and is like no "
                        "Hardware value");
    }
  }
}

}  // namespace

void checkText(std::string_view text, std::size_t number, Findings& findings) {
  constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
  if (number == 1 && text.substr(0, byteOrderMark.size()) == byteOrderMark) {
    findings.warn(warning::byteOrderMark, number, "a byte order mark belongs to the first name");
  }
  if (text.find('\0') != std::string_view::npos) {
    findings.warn(warning::nul, number, "the line has NUL bytes, which belong to its values");
  }
}

void checkValues(const Line& line, Findings& findings) {
  if (line.hasCarriageReturn) {
    findings.warn(warning::carriageReturn, line.number,
                  "the carriage return at the end belongs to the last value");
  }
  if (line.name().front() == '#') {
    findings.warn(warning::comment, line.number,
                  "there are no comments: this is the board " + shown(line.name()));
  }
  checkBlanks(line, findings);
  checkNumber(line, findings);
  checkAliases(line, findings);
}

bool canEndRelease(std::string_view alias) {
  // The '-' before the alias and the NUL byte behind it take a byte each.
  constexpr std::size_t longest = sizeof(utsname::release) - 2;
  return alias.size() <= longest &&
         alias.find_first_of(std::string_view("-\0", 2)) == std::string_view::npos;
}

bool isLikeHardware(std::string_view text) {
  return text.find('\0') == std::string_view::npos &&
         (text.find(' ') != std::string_view::npos ||
          std::any_of(text.begin(), text.end(), isCapital));
}

}  // namespace ovxid::cli
