#include "explain/remarks.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

bool isThisBoard(const CatalogueEntry& entry, Board& board) {
  return entry.identity.name == board.identifier().getHardwareName() &&
         entry.identity.number == board.number();
}

// Other boards of the catalogue that this value would match.
void remarkOnOthers(const Evidence& evidence, const std::string& value, const std::string& what,
                    bool byName, Remarks& remarks) {
  for (const CatalogueEntry& entry : evidence.catalogue.entries()) {
    const bool matches =
        (byName && entry.identity.name == value) || hasAlias(entry.identity, value);
    if (matches && !isThisBoard(entry, evidence.board)) {
      remarks.push_back(what + " " + shown(value) + " would match " + shown(entry.identity.name) +
                        " in " + placeOf(entry, evidence.catalogue) + ".");
    }
  }
}

}  // namespace

Remarks remarksOnHidden(const Evidence& evidence) {
  Remarks remarks;
  if (evidence.decidedBy) {
    remarkOnOthers(evidence, evidence.suffix.value_or(""), "The end of the release", false,
                   remarks);
    remarkOnOthers(evidence, evidence.hardware.value_or(""), "The Hardware value", true, remarks);
  }
  return remarks;
}

}  // namespace ovxid::cli
