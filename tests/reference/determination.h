#ifndef OVXID_TESTS_REFERENCE_DETERMINATION_H
#define OVXID_TESTS_REFERENCE_DETERMINATION_H

#include <OvxIdentifier.h>

#include <optional>
#include <string>
#include <vector>

#include "simulation/logger.h"

namespace reference {

// What an identifier knows of its board.
struct Identity {
  bool determined = false;
  std::string name = "Unknown";
  std::vector<std::string> aliases;
  std::int32_t number = -1;
};

// What the report of an identity says, each message at DEBUG.
Messages report(const Identity& identity);

struct Determination {
  Identity identity;
  Messages messages;
  // What the exception says that ends it.
  std::optional<std::string> thrown;
};

// Determines which board this is, by an identifier that has this catalogue and held this identity.
Determination determine(const std::vector<HardwareIdentity>& catalogue, const Identity& before);

}  // namespace reference

#endif
