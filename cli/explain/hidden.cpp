#include <algorithm>

#include "ascii.h"
#include "explain/remarks.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

// Other boards of the catalogue that this value would match.
void remarkOnOthers(const Evidence& evidence, const std::string& value, const std::string& what,
                    bool byName, Remarks& remarks) {
  const std::string name = evidence.board.identifier().getHardwareName();
  const std::int32_t number = evidence.board.number();
  for (const CatalogueEntry& entry : evidence.catalogue.entries()) {
    const HardwareIdentity& identity = entry.identity;
    const bool isThisBoard = identity.name == name && identity.number == number;
    const bool matches = (byName && identity.name == value) || hasAlias(identity, value);
    if (matches && !isThisBoard) {
      remarks.push_back(what + " " + shown(value) + " would match " + shown(identity.name) +
                        " in " + placeOf(entry, evidence.catalogue) + ".");
    }
  }
}

// Of some releases, what follows the last '-' tells little.
void remarkOnOtherReleases(const Evidence& evidence, Remarks& remarks) {
  const std::string& suffix = *evidence.suffix;
  const std::string_view release = evidence.kernel.release;
  const bool isNumber = std::all_of(suffix.begin(), suffix.end(), isDigit);
  if (isNumber || release.find('-') != release.rfind('-')) {
    const std::string end = "-" + suffix;
    remarks.push_back(
        "Of the release, only what follows the last '-' counts: any kernel that ends in " +
        shown(end) + " matches the alias " + shown(suffix) + ".");
  }
}

}  // namespace

Remarks remarksOnHidden(const Evidence& evidence) {
  Remarks remarks;
  const bool mayDecide = !evidence.decidedBy || evidence.decidedBy == Source::kernelRelease;
  if (mayDecide && evidence.suffix && !evidence.suffix->empty()) {
    remarkOnOtherReleases(evidence, remarks);
  }
  if (evidence.decidedBy) {
    remarkOnOthers(evidence, evidence.suffix.value_or(""), "The end of the release", false,
                   remarks);
    remarkOnOthers(evidence, evidence.hardware.value_or(""), "The Hardware value", true, remarks);
  }
  return remarks;
}

}  // namespace ovxid::cli
