#ifndef OVXID_TESTS_CLI_CODE_POINTS_H
#define OVXID_TESTS_CLI_CODE_POINTS_H

#include <cstdint>
#include <string>

// Beyond the last code point of Unicode, and the bits of four bytes.
constexpr std::uint32_t codePoints = 0x110000;
constexpr std::uint32_t allCodes = 0x200000;

constexpr bool isSurrogate(std::uint32_t code) { return code >= 0xd800 && code <= 0xdfff; }

// Each code where something begins or ends, and one in fifteen of the others.
constexpr std::uint32_t nextCode(std::uint32_t code) {
  const bool isEdge = code < 0x11000 || (code & 0xfff0) == 0xfff0 || code >> 12 == 0xe0 ||
                      (code >= codePoints - 16 && code < codePoints + 16);
  return code + (isEdge ? 1 : 15);
}

// As UTF-8 has it, in so many bytes, be they too many, or be it none of Unicode.
inline std::string encoded(std::uint32_t code, unsigned size) {
  if (size == 1) {
    return {static_cast<char>(code)};
  }
  std::string bytes;
  for (unsigned left = size - 1; left > 0; --left) {
    bytes.insert(bytes.begin(), static_cast<char>(0x80 | (code & 0x3f)));
    code >>= 6;
  }
  const std::uint32_t mark = 0xff00U >> size & 0xffU;
  return static_cast<char>(mark | code) + bytes;
}

// In as few bytes as possible.
inline std::string encoded(std::uint32_t code) {
  return encoded(code, code < 0x80 ? 1 : code < 0x800 ? 2 : code < 0x10000 ? 3 : 4);
}

#endif
