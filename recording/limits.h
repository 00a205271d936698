#ifndef OVXID_RECORDING_LIMITS_H
#define OVXID_RECORDING_LIMITS_H

#include <cstddef>

// What a recording may have, so that one from a stranger takes no more than these. No board comes
// near to them.
namespace ovxid::recording::limit {

constexpr std::size_t document = 16U << 20;
constexpr std::size_t value = 1U << 20;
constexpr std::size_t properties = 100000;
constexpr std::size_t interfaces = 3000;
constexpr std::size_t nameLength = 4095;
constexpr std::size_t depth = 64;
// Of all values of the document: a property takes three of them.
constexpr std::size_t jsonValues = 500000;

}  // namespace ovxid::recording::limit

#endif
