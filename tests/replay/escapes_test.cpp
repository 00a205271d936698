#include "replay/escapes.h"

#include <gtest/gtest.h>

#include "recording/session.h"

namespace {

using ovxid::recording::escaped;
using ovxid::replay::unescaped;

std::string allBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) {
    bytes += static_cast<char>(byte);
  }
  return bytes;
}

TEST(Unescaped, GivesEveryByteBack) { EXPECT_EQ(unescaped(escaped(allBytes())), allBytes()); }

TEST(Unescaped, TakesCapitalDigits) { EXPECT_EQ(unescaped("\\xE4"), "\xe4"); }

TEST(Unescaped, RefusesWhatIsNoEscape) {
  for (const char* text : {"a\\", "\\q", "\\x", "\\x4", "\\xZZ", "\\x4Z", "\\x-1"}) {
    EXPECT_EQ(unescaped(text), std::nullopt) << text;
  }
}

}  // namespace
