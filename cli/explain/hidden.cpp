#include <algorithm>

#include "encoding/ascii.h"
#include "encoding/visible.h"
#include "explain/report.h"
#include "identity/lookup.h"

namespace ovxid::cli {

namespace {

// Other boards of the catalogue that this value would match.
void remarkOnOthers(const LookUp& lookUp, const Board& board, Remarks& remarks) {
  for (const HardwareIdentity& identity : board.catalogue()) {
    const bool isThisBoard =
        identity.name == board.wholeName() && identity.number == board.number();
    const bool matches =
        (lookUp.amongNames && identity.name == lookUp.value) || hasAlias(identity, lookUp.value);
    if (matches && !isThisBoard) {
      remarks.push_back(std::string(lookUp.what) + " " + shown(lookUp.value) + " would match " +
                        shown(identity.name) + " in " + placeOf(identity, board) + ".");
    }
  }
}

// Of some releases, what follows the last '-' tells little.
void remarkOnOtherReleases(const Trial& trial, Remarks& remarks) {
  const std::string& suffix = trial.lookUp->value;
  const std::string& release = trial.readings.front().bytes;
  const bool isNumber = std::all_of(suffix.begin(), suffix.end(), isDigit);
  if (isNumber || release.find('-') != release.rfind('-')) {
    const std::string end = "-" + suffix;
    remarks.push_back(
        "Of the release, only what follows the last '-' counts: any kernel that ends in " +
        shown(end) + " matches the alias " + shown(suffix) + ".");
  }
}

}  // namespace

Remarks remarksOnHidden(const Diagnosis& diagnosis) {
  Remarks remarks;
  const Board& board = diagnosis.board;
  const Trial& release = diagnosis.trialOf(identifyByKernelRelease);
  const bool mayDecide = !board.isIdentified() || diagnosis.decides(release);
  if (mayDecide && release.lookUp && !release.lookUp->value.empty()) {
    remarkOnOtherReleases(release, remarks);
  }
  for (const Trial& trial : diagnosis.trials) {
    if (board.isIdentified() && trial.lookUp) {
      remarkOnOthers(*trial.lookUp, board, remarks);
    }
  }
  return remarks;
}

}  // namespace ovxid::cli
