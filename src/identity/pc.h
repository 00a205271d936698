#ifndef OVXID_IDENTITY_PC_H
#define OVXID_IDENTITY_PC_H

#include <cstdint>

// The number of a standard PC, by which its WAN interface is searched later.
constexpr std::int32_t pcNumber = 64;

#endif
