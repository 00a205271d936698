#include <algorithm>

#include "explain/remarks.h"
#include "visible.h"

namespace ovxid::cli {

namespace {

bool hasAlias(const HardwareIdentity& identity, const std::string& alias) {
  return std::find(identity.aliases.begin(), identity.aliases.end(), alias) !=
         identity.aliases.end();
}

// The boards of the catalogue that this value matches, but for the one that was chosen.
void remarkOnOthers(const Evidence& evidence, const std::optional<std::string>& value,
                    const std::string& what, bool byName, Remarks& remarks) {
  const CatalogueEntry* const chosen = evidence.catalogue.chosen(evidence.board);
  for (const CatalogueEntry& entry : evidence.catalogue.entries()) {
    const bool matches =
        value && ((byName && entry.identity.name == *value) || hasAlias(entry.identity, *value));
    if (matches && &entry != chosen) {
      remarks.push_back(what + " " + shown(*value) + " also matches " + shown(entry.identity.name) +
                        " in " + placeOf(entry, evidence.catalogue) + ".");
    }
  }
}

}  // namespace

Remarks remarksOnHidden(const Evidence& evidence) {
  Remarks remarks;
  if (evidence.decidedBy) {
    remarkOnOthers(evidence, evidence.suffix, "The end of the release", false, remarks);
    remarkOnOthers(evidence, evidence.hardware, "The Hardware value", true, remarks);
  }
  return remarks;
}

}  // namespace ovxid::cli
