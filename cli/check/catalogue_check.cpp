#include "check/catalogue_check.h"

#include <algorithm>
#include <optional>
#include <string>

#include "catalogue/line.h"
#include "check/earlier_boards.h"
#include "check/line_checks.h"

namespace ovxid::cli {

namespace {

namespace warning {
constexpr Warning noNewline = warningNamed("no-newline");
constexpr Warning emptyCatalogue = warningNamed("empty-catalogue");
constexpr Warning emptyLine = warningNamed("empty-line");
}  // namespace warning

// Takes the next line off the text, without its newline. None when nothing is left: what follows
// the last newline is a line unless it is empty.
std::optional<std::string_view> takeLine(std::string_view& text) {
  if (text.empty()) {
    return std::nullopt;
  }
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line;
}

Line lineOf(std::size_t number, std::string_view text, std::int32_t boardNumber) {
  Line line{number, {}, boardNumber};
  for (auto value = takeValue(text); !value.empty(); value = takeValue(text)) {
    line.values.push_back(value);
  }
  return line;
}

// A line that is empty or meant as a comment loses nothing, so it is no error.
void reportPassedOver(std::string_view text, const std::string& why, std::size_t number,
                      Findings& findings) {
  constexpr Warning comment = warningNamed("comment");
  if (text.empty() || text == "\r") {
    findings.warn(warning::emptyLine, number, "the library reports an empty line as not valid");
  } else if (text.front() == '#') {
    findings.warn(comment, number,
                  "there are no comments: the library reports the line as not valid");
  } else {
    findings.error(number, "the line is passed over: " + why);
  }
}

}  // namespace

void checkCatalogue(std::string_view content, const Log& log, Findings& findings) {
  const auto lines = static_cast<std::size_t>(std::count(content.begin(), content.end(), '\n'));
  const auto separators =
      static_cast<std::size_t>(std::count(content.begin(), content.end(), separator));
  EarlierBoards earlier(lines + 1, separators + 1);
  if (content.empty()) {
    findings.warn(warning::emptyCatalogue, 1, "the catalogue is empty: it knows no board");
  }
  const bool endsInNewline = content.empty() || content.back() == '\n';
  std::size_t number = 0;
  while (const std::optional<std::string_view> text = takeLine(content)) {
    ++number;
    checkText(*text, number, findings);
    HardwareIdentity identity{};
    if (const char* const why = parseLine(identity, *text, log)) {
      reportPassedOver(*text, why, number, findings);
    } else {
      const Line line = lineOf(number, *text, identity.number);
      checkValues(line, findings);
      earlier.checkAndAdd(line, findings);
    }
  }
  if (!endsInNewline) {
    findings.warn(warning::noNewline, number, "no newline ends the last line");
  }
}

}  // namespace ovxid::cli
