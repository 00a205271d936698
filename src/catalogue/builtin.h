#ifndef OVXID_CATALOGUE_BUILTIN_H
#define OVXID_CATALOGUE_BUILTIN_H

#include <vector>

#include "OvxIdentifier.h"

struct BuiltinIdentity {
  HardwareIdentity identity;
  const char* message;
};

// The boards that are known without a catalogue file.
std::vector<BuiltinIdentity> builtinIdentities();

#endif
