#ifndef OVXID_IDENTITY_ALIASES_H
#define OVXID_IDENTITY_ALIASES_H

#include <algorithm>

#include "OvxIdentifier.h"

inline bool hasAlias(const HardwareIdentity& identity, const std::string& candidate) {
  return std::find(identity.aliases.begin(), identity.aliases.end(), candidate) !=
         identity.aliases.end();
}

#endif
