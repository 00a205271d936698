#ifndef OVXID_PLATFORM_H
#define OVXID_PLATFORM_H

#include <cstdint>
#include <string_view>

// What the platform fixes, and more than one subsystem needs to know.
namespace ovxid {

constexpr std::string_view nodePath = "/proc/device-tree/orvanix";
constexpr const char* cpuinfoPath = "/proc/cpuinfo";

// What an identifier holds as long as its board is not identified.
constexpr const char* unknownName = "Unknown";
constexpr std::int32_t unknownNumber = -1;

// The number of a standard PC, by which its WAN interface is searched later.
constexpr std::int32_t pcNumber = 64;

}  // namespace ovxid

#endif
