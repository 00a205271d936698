#include "encoding/utf8.h"

#include <gtest/gtest.h>

#include <array>

#include "encoding/code_points.h"

using ovxid::characterLength;
using ovxid::hasNoncharacter;
using ovxid::isUtf8;

namespace {

std::string hexadecimal(std::uint32_t code) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "U+%04X", code);
  return text.data();
}

TEST(Utf8, HasEachCodePointInItsFewestBytesOnly) {
  constexpr std::array<std::uint32_t, 5> behindSize = {0, 0x80, 0x800, 0x10000, allCodes};
  for (unsigned size = 1; size <= 4; ++size) {
    for (std::uint32_t code = 0; code < behindSize[size]; code = nextCode(code)) {
      const bool isCharacter =
          code >= behindSize[size - 1] && code < codePoints && !isSurrogate(code);
      const std::string text = encoded(code, size);
      ASSERT_EQ(characterLength(text), isCharacter ? size : 0)
          << hexadecimal(code) << " of " << size;
      ASSERT_EQ(isUtf8("a" + text + "b"), isCharacter) << hexadecimal(code) << " of " << size;
    }
  }
}

// Behind the first byte, only these can belong to a character.
TEST(Utf8, HasNoCharacterWithAByteThatContinuesNone) {
  for (const std::uint32_t code : {0xa2U, 0x20acU, 0x5f4a1U}) {
    const std::string character = encoded(code);
    for (std::size_t position = 1; position < character.size(); ++position) {
      for (unsigned byte = 0; byte < 256; ++byte) {
        std::string text = character;
        text[position] = static_cast<char>(byte);
        ASSERT_EQ(isUtf8(text), byte >= 0x80 && byte <= 0xbf) << position << ": " << byte;
      }
    }
  }
}

TEST(Utf8, HasNoPartOfACharacter) {
  for (const std::uint32_t code : {0xa2U, 0x20acU, 0x1f4a1U}) {
    const std::string character = encoded(code);
    for (std::size_t size = 1; size < character.size(); ++size) {
      EXPECT_EQ(characterLength(character.substr(0, size)), 0) << hexadecimal(code);
      EXPECT_EQ(characterLength(character.substr(size)), 0) << hexadecimal(code);
    }
  }
}

TEST(Utf8, HasNoByteAboveTheFirstOfFour) {
  for (unsigned byte = 0xf8; byte < 256; ++byte) {
    EXPECT_FALSE(isUtf8(static_cast<char>(byte) + std::string("\x80\x80\x80\x80\x80"))) << byte;
  }
}

TEST(Utf8, HasTwoNoncharactersInEachPlaneAndARowOfThem) {
  for (std::uint32_t code = 0; code < codePoints; code = nextCode(code)) {
    if (!isSurrogate(code)) {
      const bool isNone = (code & 0xfffe) == 0xfffe || (code >= 0xfdd0 && code <= 0xfdef);
      ASSERT_EQ(hasNoncharacter("a" + encoded(code)), isNone) << hexadecimal(code);
    }
  }
}

}  // namespace
