#include <fstream>

#include "catalogue/builtin.h"
#include "identity/log.h"

void OvxIdentifier::findKnownIdentities() {
  log(Priority::DEBUG, "Finding list of known identities...");
  if (std::ifstream file("/etc/known_ovx_ids"); file) {
    log(Priority::DEBUG, "Opened file /etc/known_ovx_ids, now reading known hardware identites");
    readCatalogue(file);
  } else {
    log(Priority::WARN, "No /etc/known_ovx_ids, using default known hardware identities");
    useBuiltinCatalogue();
  }
}

void OvxIdentifier::readCatalogue(std::istream& file) {
  std::string line;
  while (std::getline(file, line)) {
    HardwareIdentity identity{};
    if (parseIdentityLine(identity, line)) {
      mKnownIdentities.push_back(std::move(identity));
    }
  }
}

void OvxIdentifier::useBuiltinCatalogue() {
  for (const BuiltinIdentity& known : builtinIdentities()) {
    mKnownIdentities.push_back(known.identity);
    log(Priority::DEBUG, known.message);
  }
}
