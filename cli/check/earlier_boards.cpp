#include "check/earlier_boards.h"

#include "check/line_checks.h"
#include "encoding/visible.h"

namespace ovxid::cli {

namespace {

namespace warning {
constexpr Warning sameName = warningNamed("same-name");
constexpr Warning sameNumber = warningNamed("same-number");
constexpr Warning sameAlias = warningNamed("same-alias");
constexpr Warning aliasIsName = warningNamed("alias-is-name");
constexpr Warning nameIsAlias = warningNamed("name-is-alias");
constexpr Warning unmatchable = warningNamed("unmatchable");
}  // namespace warning

constexpr std::size_t placesOfText = 4;

std::string inLine(std::size_t number) { return " in line " + std::to_string(number); }

// Gives the line what no earlier one has, and returns the earlier line that has it, or 0.
std::size_t take(std::size_t& taker, const Line& line) {
  if (taker == 0) {
    taker = line.number;
  }
  return taker == line.number ? 0 : taker;
}

}  // namespace

// Most texts are new, which an empty place in the table shows at once. The tables begin with their
// places: reserve() would need the library of mathematics.
EarlierBoards::EarlierBoards(std::size_t lines, std::size_t texts)
    : mTexts(texts * placesOfText, &mMemory), mNumbers(lines, &mMemory) {
  mTexts.max_load_factor(1.0F / placesOfText);
}

void EarlierBoards::checkAndAdd(const Line& line, Findings& findings) {
  takeNumber(line, findings);
  bool found = takeName(line, findings);
  for (auto alias = line.values.begin() + 2; alias != line.values.end(); ++alias) {
    found = takeAlias(*alias, line, findings) || found;
  }
  if (!found) {
    findings.warn(warning::unmatchable, line.number,
                  "nothing can match the board " + shown(line.name()));
  }
}

void EarlierBoards::takeNumber(const Line& line, Findings& findings) {
  if (const std::size_t earlier = take(mNumbers[line.boardNumber], line); earlier != 0) {
    findings.warn(warning::sameNumber, line.number,
                  "the board" + inLine(earlier) + " has the number " +
                      std::to_string(line.boardNumber) + ", too");
  }
}

bool EarlierBoards::takeName(const Line& line, Findings& findings) {
  Takers& takers = mTexts[line.name()];
  if (takers.byAlias != 0) {
    findings.warn(warning::nameIsAlias, line.number,
                  shown(line.name()) + " is an alias of the board" + inLine(takers.byAlias) +
                      (canEndRelease(line.name()) ? ", which a kernel's release finds"
                                                  : ", which a Hardware line finds no more"));
  }
  const std::size_t earlier = take(takers.byName, line);
  if (earlier != 0) {
    findings.warn(warning::sameName, line.number,
                  shown(line.name()) + " is the name of the board" + inLine(earlier) +
                      ", which is found instead");
  }
  return earlier == 0 && canBeHardware(line.name());
}

bool EarlierBoards::takeAlias(std::string_view alias, const Line& line, Findings& findings) {
  Takers& takers = mTexts[alias];
  const bool isName = takers.byName != 0 && takers.byName != line.number;
  if (isName) {
    findings.warn(warning::aliasIsName, line.number,
                  shown(alias) + " is the name of the board" + inLine(takers.byName) +
                      ", which a Hardware line finds");
  }
  const std::size_t earlier = take(takers.byAlias, line);
  if (earlier != 0) {
    findings.warn(
        warning::sameAlias, line.number,
        shown(alias) + " is an alias of the board" + inLine(earlier) + ", which is found instead");
  }
  return earlier == 0 && (canEndRelease(alias) || (!isName && isLikeHardware(alias)));
}

}  // namespace ovxid::cli
