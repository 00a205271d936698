#ifndef OVXID_PLATFORM_H
#define OVXID_PLATFORM_H

#include <cstdint>
#include <string_view>

// Facts of the platform that more than one subsystem needs.
namespace ovxid {

constexpr std::string_view nodePath = "/proc/device-tree/orvanix";
constexpr const char* cpuinfoPath = "/proc/cpuinfo";

// The name and the number of a board that is not identified.
constexpr const char* unknownName = "Unknown";
constexpr std::int32_t unknownNumber = -1;

// The number of a standard PC. Only with this number the WAN interface is searched for.
constexpr std::int32_t pcNumber = 64;

}  // namespace ovxid

#endif
