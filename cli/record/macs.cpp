#include "record/macs.h"

#include <algorithm>
#include <random>

namespace ovxid::cli {

namespace {

std::uint8_t madeUp(std::uint8_t real, std::random_device& random) {
  if (real < 0x10) {
    return static_cast<std::uint8_t>(random() % 0x10);
  }
  if (real < 0x80) {
    return static_cast<std::uint8_t>(0x10 + random() % 0x70);
  }
  return static_cast<std::uint8_t>(0x80 + random() % 0x80);
}

// That of an interface which has none stays.
MacAddress madeUp(const MacAddress& real) {
  MacAddress mac = real;
  std::random_device random;
  if (real != MacAddress{}) {
    std::transform(real.begin(), real.end(), mac.begin(),
                   [&](std::uint8_t byte) { return madeUp(byte, random); });
    // The lowest bit of the first byte would make it the address of a group.
    mac[0] &= 0xfe;
  }
  return mac;
}

}  // namespace

const MacAddress& Macs::written(const MacAddress& real) {
  const auto found = mWritten.find(real);
  if (found != mWritten.end()) {
    return found->second;
  }
  return mWritten.emplace(real, mMadeUp ? madeUp(real) : real).first->second;
}

}  // namespace ovxid::cli
