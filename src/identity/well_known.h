#ifndef OVXID_IDENTITY_WELL_KNOWN_H
#define OVXID_IDENTITY_WELL_KNOWN_H

#include <cstdint>

// Identities that no catalogue has.
namespace ovxid {

// A board that is not identified.
constexpr const char* unknownName = "Unknown";
constexpr std::int32_t unknownNumber = -1;

// A standard PC. Only with this number the WAN interface is searched for.
constexpr const char* pcName = "x86_64 PC";
constexpr std::int32_t pcNumber = 64;

}  // namespace ovxid

#endif
