#include "record/macs.h"

#include <algorithm>
#include <charconv>
#include <random>

#include "hexadecimal.h"

namespace ovxid::cli {

namespace {

unsigned char madeUp(unsigned char real, std::random_device& random) {
  if (real < 0x10) {
    return static_cast<unsigned char>(random() % 0x10);
  }
  if (real < 0x80) {
    return static_cast<unsigned char>(0x10 + random() % 0x70);
  }
  return static_cast<unsigned char>(0x80 + random() % 0x80);
}

// That of an interface which has none stays.
Mac madeUp(const Mac& real) {
  Mac mac = real;
  std::random_device random;
  if (real != Mac{}) {
    std::transform(real.begin(), real.end(), mac.begin(),
                   [&](unsigned char byte) { return madeUp(byte, random); });
    // The lowest bit of the first byte would make it the address of a group.
    mac[0] &= 0xfe;
  }
  return mac;
}

}  // namespace

const Mac& Macs::written(const Mac& real) {
  const auto found = mWritten.find(real);
  if (found != mWritten.end()) {
    return found->second;
  }
  return mWritten.emplace(real, mMadeUp ? madeUp(real) : real).first->second;
}

std::string colonText(const Mac& mac) {
  std::string text;
  for (const unsigned char byte : mac) {
    const auto part = static_cast<char>(byte);
    text += (text.empty() ? "" : ":") + hexadecimal({&part, 1});
  }
  return text;
}

// The library takes bytes above 0x7f for negative numbers, of which it shows 16 bits.
std::string listingText(const Mac& mac) {
  std::string text;
  for (const unsigned char byte : mac) {
    std::array<char, 4> digits{};
    const unsigned value = byte < 0x80 ? byte : 0xff00U + byte;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16);
    text.append(digits.data(), end.ptr);
  }
  return text;
}

}  // namespace ovxid::cli
