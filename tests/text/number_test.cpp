#include "text/number.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <locale>
#include <sstream>
#include <string>

#include "simulation/kernel.h"
#include "text/memory_file.h"
#include "text/reading.h"

using ovxid::InputFile;
using Number = std::optional<std::int32_t>;

namespace {

Number streamedNumber(const std::string& text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  std::int32_t number = 0;
  return stream >> number ? Number(number) : std::nullopt;
}

Number numberOfFile(const std::string& path, const Reading& reading = {}) {
  InputFile file(path.c_str());
  const LimitedReading limited(reading);
  return firstNumber(file);
}

// None when the stream leaves the number as it was.
Number streamedNumberOfFile(const std::string& path, const Reading& reading = {}) {
  constexpr std::int32_t before = 123456789;
  std::ifstream stream(path);
  stream.imbue(std::locale::classic());
  std::int32_t number = before;
  const LimitedReading limited(reading);
  stream >> number;
  return number == before ? std::nullopt : Number(number);
}

void expectFileAsStreamsDo(const std::string& text, const Reading& reading = {}) {
  const MemoryFile file(text);
  EXPECT_EQ(numberOfFile(file.path(), reading), streamedNumberOfFile(file.path(), reading))
      << testing::PrintToString(text.substr(0, 100)) << " of " << text.size()
      << " bytes, in pieces of " << reading.bytes;
}

void expectNumberAsStreamsDo(const std::string& text) {
  EXPECT_EQ(ovxid::readNumber(text), streamedNumber(text)) << testing::PrintToString(text);
}

// Every text of up to so many of these characters.
void forEachText(const std::string& alphabet, std::size_t longest,
                 const std::function<void(const std::string&)>& call,
                 const std::string& beginning = "") {
  call(beginning);
  if (beginning.size() < longest) {
    for (const char next : alphabet) {
      forEachText(alphabet, longest, call, beginning + next);
    }
  }
}

// What stands at the edges of types of numbers, and one digit more.
std::vector<std::string> edges() {
  std::vector<std::string> texts;
  for (const char* digits :
       {"0", "1", "214748364", "2147483646", "2147483647", "2147483648", "2147483649", "2147483650",
        "4294967295", "4294967296", "4294967297", "9223372036854775807", "9223372036854775808",
        "18446744073709551615", "18446744073709551616", "99999999999999999999999999"}) {
    for (const char* sign : {"", "+", "-"}) {
      for (const char* zeros : {"", "0", "00000000000000000000000000000000"}) {
        for (const char* behind : {"", "0", "7", "x", " 1", "-", "\r", "000000000000000000000"}) {
          texts.push_back(std::string(" ") + sign + zeros + digits + behind);
        }
      }
    }
  }
  return texts;
}

TEST(Number, OfEveryShortTextIsReadAsAStreamReadsIt) {
  forEachText(std::string("09+- \nx.\0", 9), 4, expectNumberAsStreamsDo);
}

TEST(Number, OfEveryByteIsReadAsAStreamReadsIt) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    expectNumberAsStreamsDo(text);
    expectNumberAsStreamsDo(text + "7");
    expectNumberAsStreamsDo("-" + text + "7");
    expectNumberAsStreamsDo("7" + text + "7");
  }
}

TEST(Number, AtTheEdgesOfTheRangeIsReadAsAStreamReadsIt) {
  for (const std::string& text : edges()) {
    expectNumberAsStreamsDo(text);
  }
}

TEST(FirstNumber, OfEveryShortFileIsReadAsAStreamReadsIt) {
  forEachText(std::string("09+- \nx\0", 8), 3, [](const std::string& text) {
    expectFileAsStreamsDo(text);
    expectFileAsStreamsDo(text, {std::nullopt, 1});
  });
}

TEST(FirstNumber, AtTheEdgesOfTheRangeIsReadAsAStreamReadsIt) {
  for (const std::string& text : edges()) {
    expectFileAsStreamsDo(text);
    expectFileAsStreamsDo(text, {std::nullopt, 3});
  }
}

TEST(FirstNumber, BehindManyBlanksOrZerosIsReadAsAStreamReadsIt) {
  for (const std::size_t count : {4093U, 4094U, 4095U, 4096U, 4097U, 8191U, 8192U, 65536U}) {
    for (const char filling : {' ', '\n', '0'}) {
      const std::string before(count, filling);
      for (const char* number : {"", "12", "12x", "-12", "-", "2147483648"}) {
        expectFileAsStreamsDo(before + number);
        expectFileAsStreamsDo(before + number, {std::nullopt, 1000});
      }
    }
  }
}

TEST(FirstNumber, IsReadAsAStreamReadsItWhenReadingFails) {
  for (const char* text :
       {"12345678", "12 45678", "    5678", "   x5678", "  -45678", "    56 8"}) {
    for (int reads = 0; reads < 4; ++reads) {
      expectFileAsStreamsDo(text, {reads, 4});
    }
  }
}

TEST(FirstNumber, IsNoneWhenTheFileFailsBeforeItEnds) {
  const MemoryFile file("12345678");
  EXPECT_EQ(numberOfFile(file.path(), {1, 4}), std::nullopt);
  EXPECT_EQ(numberOfFile(file.path(), {2, 4}), std::nullopt);
  EXPECT_EQ(numberOfFile(file.path(), {3, 4}), 12345678);
}

TEST(FirstNumber, IsReadWhenTheFileFailsBehindIt) {
  const MemoryFile file("12 45678");
  EXPECT_EQ(numberOfFile(file.path(), {1, 4}), 12);
}

TEST(FirstNumber, IsReadNoFurtherThanThePartThatEndsIt) {
  const MemoryFile bytes("12 45678");
  InputFile file(bytes.path().c_str());
  const LimitedReading limited({3, 4});
  EXPECT_EQ(firstNumber(file), 12);
  EXPECT_EQ(kernel.readsLeft, 2);
}

TEST(FirstNumber, IsReadOnWhenASignalInterruptsReading) {
  const MemoryFile file("12\n");
  kernel.interruptions = 2;
  EXPECT_EQ(numberOfFile(file.path()), 12);
}

}  // namespace
