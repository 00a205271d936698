#ifndef OVXID_TESTS_CATALOGUE_BUILTIN_MESSAGES_H
#define OVXID_TESTS_CATALOGUE_BUILTIN_MESSAGES_H

#include "simulation/logger.h"

// The messages of the constructor on a board without a catalogue file.
inline Messages builtinCatalogueMessages() {
  return {debug("Creating OvxIdentifier..."),
          debug("Finding list of known identities..."),
          warn("No /etc/known_ovx_ids, using default known hardware identities"),
          debug("Known Hardware description: Tessaryn TQBLITE = 1"),
          debug("Known Hardware description: Tessaryn TQB = 2"),
          debug("Known Hardware description: Orvanix Starter Kit = 3")};
}

#endif
