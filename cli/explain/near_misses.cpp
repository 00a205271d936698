#include <algorithm>

#include "encoding/ascii.h"
#include "encoding/utf8.h"
#include "encoding/visible.h"
#include "explain/report.h"

namespace ovxid::cli {

namespace {

// A way in which texts may differ that look the same, and the text without it.
struct Difference {
  const char* what;
  std::string (*leaveOut)(std::string_view text);
};

std::string without(std::string_view text, std::string_view part) {
  std::string result(text);
  for (auto at = result.find(part); at != std::string::npos; at = result.find(part, at)) {
    result.erase(at, part.size());
  }
  return result;
}

std::string withoutBlanks(std::string_view text) {
  return without(without(without(text, " "), "\t"), noBreakSpace);
}

// A kernel that is built from changed sources may have one at its end.
std::string withoutPluses(std::string_view text) { return without(text, "+"); }
std::string withoutReturns(std::string_view text) { return without(text, "\r"); }
std::string withoutNuls(std::string_view text) { return without(text, std::string_view("\0", 1)); }

constexpr Difference differences[] = {
    {"case", toSmallLetters},    {"blanks", withoutBlanks},
    {"a '+'", withoutPluses},    {"a carriage return", withoutReturns},
    {"a NUL byte", withoutNuls},
};

std::string withoutAllBut(const Difference* kept, std::string_view text) {
  std::string result(text);
  for (const Difference& difference : differences) {
    result = &difference == kept ? result : difference.leaveOut(result);
  }
  return result;
}

// What alone makes the two texts differ. Empty if they are equal or differ in more.
std::string onlyDifferences(std::string_view one, std::string_view other) {
  std::string names;
  if (withoutAllBut(nullptr, one) == withoutAllBut(nullptr, other)) {
    for (const Difference& difference : differences) {
      if (withoutAllBut(&difference, one) != withoutAllBut(&difference, other)) {
        names += (names.empty() ? "" : " and ") + std::string(difference.what);
      }
    }
  }
  return names;
}

// Compares a value that was looked up with texts of the catalogue.
class Comparison {
 public:
  Comparison(const Board& board, const std::string& value, Remarks& remarks)
      : mBoard(board), mValue(value), mRemarks(remarks) {}

  void withName(const HardwareIdentity& identity) {
    compare(identity.name, "the name of the board in", identity);
  }

  void withAliases(const HardwareIdentity& identity) {
    for (const std::string& alias : identity.aliases) {
      compare(alias, "the alias " + shown(alias) + " in", identity);
    }
  }

 private:
  void compare(const std::string& text, const std::string& what, const HardwareIdentity& identity) {
    const std::string difference = onlyDifferences(mValue, text);
    if (!difference.empty()) {
      add(shown(mValue) + " differs from " + what + " " + placeOf(identity, mBoard) + " only in " +
          difference + ".");
    }
  }

  // An alias may stand in a line twice.
  void add(const std::string& remark) {
    if (std::find(mRemarks.begin(), mRemarks.end(), remark) == mRemarks.end()) {
      mRemarks.push_back(remark);
    }
  }

  const Board& mBoard;
  const std::string& mValue;
  Remarks& mRemarks;
};

void remarkOnName(const Board& board, const std::string& value, Remarks& remarks) {
  const Catalogue& catalogue = board.catalogue();
  const auto named = std::find_if(catalogue.begin(), catalogue.end(),
                                  [&](const auto& each) { return each.name == value; });
  if (named != catalogue.end()) {
    remarks.push_back(shown(value) + " is the name of the board in " + placeOf(*named, board) +
                      ", but is compared with aliases only.");
  }
}

void remarkOn(const LookUp& lookUp, const Board& board, Remarks& remarks) {
  Comparison comparison(board, lookUp.value, remarks);
  for (const HardwareIdentity& identity : board.catalogue()) {
    if (lookUp.amongNames) {
      comparison.withName(identity);
    }
    comparison.withAliases(identity);
  }
  if (!lookUp.amongNames) {
    remarkOnName(board, lookUp.value, remarks);
  }
}

}  // namespace

// Where a source decided, near misses of the later ones do not matter.
Remarks remarksOnNearMisses(const Diagnosis& diagnosis) {
  Remarks remarks;
  for (const Trial& trial : diagnosis.trials) {
    if (trial.lookUp && diagnosis.isTried(trial) && !diagnosis.decides(trial)) {
      remarkOn(*trial.lookUp, diagnosis.board, remarks);
    }
  }
  return remarks;
}

}  // namespace ovxid::cli
