#ifndef OVXID_IDENTITY_MATCH_H
#define OVXID_IDENTITY_MATCH_H

#include <algorithm>
#include <string_view>

#include "identity/sources.h"

namespace ovxid {

inline bool hasAlias(const HardwareIdentity& identity, std::string_view candidate) {
  return std::find(identity.aliases.begin(), identity.aliases.end(), candidate) !=
         identity.aliases.end();
}

inline Finding found(const HardwareIdentity& identity) {
  return {true, identity.name, identity.aliases, identity.number};
}

}  // namespace ovxid

#endif
