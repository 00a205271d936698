#include "encoding/visible.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <utility>

#include "encoding/code_points.h"

using ovxid::harmless;
using ovxid::isPrintable;
using ovxid::visible;

namespace {

using Range = std::pair<std::uint32_t, std::uint32_t>;

constexpr Range controls[] = {{0, 0x1f}, {0x7f, 0x9f}};

constexpr Range unseen[] = {{0xa0, 0xa0},     {0xad, 0xad},     {0x61c, 0x61c},    {0x180e, 0x180e},
                            {0x2000, 0x200f}, {0x2028, 0x202f}, {0x205f, 0x206f},  {0x3000, 0x3000},
                            {0xfeff, 0xfeff}, {0xfff9, 0xfffb}, {0xe0000, 0xe007f}};

template <std::size_t size>
bool isIn(const Range (&ranges)[size], std::uint32_t code) {
  return std::any_of(std::begin(ranges), std::end(ranges), [&](const Range& range) {
    return code >= range.first && code <= range.second;
  });
}

// The bytes as two digits each.
std::string escapes(const std::string& text) {
  std::string result;
  for (const char byte : text) {
    std::array<char, 8> escape{};
    std::snprintf(escape.data(), escape.size(), "\\x%02x", static_cast<unsigned char>(byte));
    result += escape.data();
  }
  return result;
}

// What has an escape of its own, as the compiler has it.
std::string shownAs(std::uint32_t code) {
  switch (code) {
    case 0:
      return R"(\0)";
    case '\t':
      return R"(\t)";
    case '\n':
      return R"(\n)";
    case '\r':
      return R"(\r)";
    case '\\':
      return R"(\\)";
    default:
      break;
  }
  const bool isHidden = isIn(controls, code) || isIn(unseen, code);
  return isHidden ? escapes(encoded(code)) : encoded(code);
}

TEST(Visible, EachCharacterIsShownOrHasAnEscape) {
  for (std::uint32_t code = 0; code < codePoints; code = nextCode(code)) {
    if (!isSurrogate(code)) {
      ASSERT_EQ(visible("a" + encoded(code) + "b"), "a" + shownAs(code) + "b") << std::hex << code;
    }
  }
}

TEST(Visible, EachCharacterOfADiagnosticIsShownOrIsAQuestionMark) {
  for (std::uint32_t code = 0; code < codePoints; code = nextCode(code)) {
    if (!isSurrogate(code)) {
      const bool isHidden = isIn(controls, code) || isIn(unseen, code);
      ASSERT_EQ(harmless("a" + encoded(code) + "b"), "a" + (isHidden ? "?" : encoded(code)) + "b")
          << std::hex << code;
    }
  }
}

TEST(Visible, EachByteThatIsNoUtf8HasAnEscapeOrIsAQuestionMark) {
  for (unsigned byte = 0x80; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    EXPECT_EQ(visible(text + "a"), escapes(text) + "a");
    EXPECT_EQ(harmless(text + "a"), "?a");
    EXPECT_FALSE(isPrintable(text + "a"));
  }
}

TEST(Visible, OnlyControlCharactersArePrintedNowhere) {
  for (std::uint32_t code = 0; code < codePoints; code = nextCode(code)) {
    if (!isSurrogate(code)) {
      ASSERT_EQ(isPrintable(encoded(code)), !isIn(controls, code)) << std::hex << code;
    }
  }
}

}  // namespace
